// The Job Notes panel: who a job is from and for, and what is said at the printer.
//
// The record holds the last typed names, and for each whether the box shows them or its item ("use
// the job's name", "use the login name").
#pragma once

#include <array>

#include "job_notes/job_notes_preferences.h"
#include "shell/base/panel_interface.h"
#include "toolbox/events.h"

namespace kalmo {

/// The value of the item "use the login name".
inline constexpr SInt32 kUseLoginName = 'JnUL';
extern const SettingMap LoginNameMap[];

/// How many fields of several lines there are: banner, job start, additional information.
inline constexpr std::size_t kMessageCount = 3;

/// Null before the first Open, and where the interface file lacks one.
struct JobNotesControls {
    ControlRef pane = nullptr;
    ControlRef jobName = nullptr, senderName = nullptr, recipientName = nullptr;
    ControlRef bannerMessage = nullptr, jobStartMessage = nullptr, additionalInfo = nullptr;
    ControlRef clearBanner = nullptr, clearJobStart = nullptr, clearAdditional = nullptr;
    ControlRef preferences = nullptr;
};

struct _JobNotesContext : PanelContext {
    // Never null.
    Owned<CFStringRef> jobName = NoText(), senderName = NoText(), recipientName = NoText();
    Owned<CFStringRef> bannerMessage = NoText(), jobStartMessage = NoText(),
                       additionalInfo = NoText();
    bool useJobName = true, senderUseLoginName = true, recipientUseLoginName = true;
    JobNotesPreferencesOptions preferences;
    JobNotesControls controls;
    EventHandlerRef paneHandler = nullptr;
    std::array<EventHandlerRef, kMessageCount> returnHandlers{}, breakHandlers{};

    static Owned<CFStringRef> NoText() { return Owned<CFStringRef>::Retain(CFSTR("")); }
};

/// Builds the controls in the pane and shows the record. The failure of the interface file.
OSStatus BuildJobNotesControls(_JobNotesContext& context);
/// Controls to record; nothing before there are any.
void UpdateJobNotesContext(_JobNotesContext& context);
/// Record to controls; nothing before there are any.
void UpdateJobNotesEditFields(_JobNotesContext& context);
/// Saves the histories of the names, and takes the handlers away.
void FinishJobNotesControls(_JobNotesContext& context);

/// Ticket to record and controls, and back. Always 0.
OSStatus ReadJobNotes(_JobNotesContext& context, PMTicketRef ticket);
OSStatus WriteJobNotes(_JobNotesContext& context, PMTicketRef ticket);

}  // namespace kalmo

extern "C" [[gnu::visibility("default")]] OSStatus GetJobNotesPanelInterface(
    PDEInterfaceObject** out);
