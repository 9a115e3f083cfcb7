// The print system's side of one dialog: it owns the session with its tickets and printer, and
// takes the extension through its life. The window and the run without a window drive the same
// object.
//
//    load ─ setPrinter ─ [readTicket] ─ begin ─ [open] ─ apply, sync ... ─ [close] ─ end
//                ▲                                                             │
//                └────────────── another printer, with the same tickets ◀──────┘
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "print_dialog/extension.h"
#include "print_dialog/job_settings.h"
#include "print_dialog/outcome.h"
#include "printing/ppd_conflicts.h"
#include "printing/ppd_papers.h"
#include "printing/session.h"

namespace kalmo {

/// Plain values. `ppdPath` is a local file; empty for a queue without one. `clearHost` is as in
/// PrinterDescription.
struct HostPrinter {
    std::string name;
    std::string ppdPath;
    std::string clearHost = {};
};

class PrintJobHost final {
public:
    enum class State {
        idle,         // no extension lives
        refused,      // Initialize refused: no pane, only end() is left
        initialized,  // Sync may run
        open,         // the pane is shown
    };

    /// `panels`: as for setPanels.
    explicit PrintJobHost(std::vector<std::string> panels = {});
    /// Ends what still lives.
    ~PrintJobHost();
    PrintJobHost(const PrintJobHost&) = delete;
    PrintJobHost& operator=(const PrintJobHost&) = delete;

    /// Finds and opens the bundle. Fails when it is not installed.
    Outcome load();

    // Before begin, or between end and the next begin.

    /// Reads the PPD file. When another printer goes, PPD choices that the new one does not have
    /// go with it. Fails, changing nothing, when the file is no PPD file (no file name in the
    /// error).
    Outcome setPrinter(const HostPrinter& printer);
    /// Further panels of the next pane, as names of --panels, each known to PanelInterfaceName.
    void setPanels(std::vector<std::string> panels);
    /// The job's name, known to the panels. Empty: none, and a ticket's own name stays.
    void setJobName(const std::string& name);

    /// Replaces the tickets by those of a ticket file's bytes; a living pane then shows them. The
    /// settings take over paper, orientation, source, colour and the dialog's own from it. Fails,
    /// changing nothing, when the bytes are no ticket file (no file name in the error).
    Outcome readTicket(std::string_view bytes);

    /// From the factory to Initialize. `parent` is the embedder for the pane, in a window that has
    /// a default and a cancel button; both are lent until end(). Not noErr: refused (the extension
    /// has said why on standard error), or no extension; then end() is the next call.
    OSStatus begin(ControlRef parent);
    OSStatus open();
    OSStatus close();
    OSStatus sync(Boolean direction);
    /// Closes an open pane, terminates, releases. Safe in every state. `status` tells the extension
    /// how the dialog ended (noErr: printed).
    void end(OSStatus status);

    /// Takes over the dialog's own choices. What a panel reads (paper, orientation, more than one
    /// page a sheet) is written between a Sync towards the ticket and one towards the pane, and
    /// only when it changes.
    void apply(const JobSettings& settings);

    /// Replaces choices of the printer, after a Sync towards the ticket, and shows them by one
    /// towards the pane; an empty choice removes one. The settings take over what is theirs of it.
    /// Returns what was there before, for the way back.
    std::vector<PPDSelection> writeChoices(const std::vector<PPDSelection>& choices);

    /// The title of the panel that the open pane shows; empty without an open pane.
    [[nodiscard]] std::string shownPanel() const;
    /// Shows the panel of that title, where the open pane has one.
    void showPanel(const std::string& title);

    /// Asks the pane whether the job may be printed, as its Print button would. False: refused, the
    /// pane has told the user why. True without a pane.
    [[nodiscard]] bool printCheck();

    [[nodiscard]] State state() const { return state_; }
    /// A pane lives.
    [[nodiscard]] bool hasPane() const {
        return state_ == State::initialized || state_ == State::open;
    }
    [[nodiscard]] const JobSettings& settings() const { return settings_; }
    [[nodiscard]] const HostPrinter& printer() const { return printer_; }
    /// Null before setPrinter and for a queue without a PPD file.
    [[nodiscard]] const PPDDescription* description() const {
        return description_ ? &*description_ : nullptr;
    }
    /// The paper of the settings, else the printer's own; of no size without a PPD file.
    [[nodiscard]] PPDPaper paper() const;
    [[nodiscard]] const std::string& jobName() const { return jobName_; }
    /// Title and least size of the pane, from Prologue.
    [[nodiscard]] const std::string& paneTitle() const { return paneTitle_; }
    [[nodiscard]] int paneWidth() const { return static_cast<int>(paneWidth_); }
    [[nodiscard]] int paneHeight() const { return static_cast<int>(paneHeight_); }

    [[nodiscard]] PMPrintSession session() const { return session_; }
    [[nodiscard]] PMTicketRef printSettings() const;
    /// The choice in the PPD dictionary; empty when there is none.
    [[nodiscard]] std::string ppdChoice(const std::string& keyword) const;
    /// The tickets as a ticket file's bytes, with `extra` (may be null) among the print settings;
    /// empty on failure.
    [[nodiscard]] std::string ticketFile(CFDictionaryRef extra = nullptr) const;

private:
    OSStatus prologue();
    void fillSession();
    void takeSettingsFromTickets();
    void write(const JobSettings& settings);
    /// To the living pane, after it has written them. It hands back one less of its rotation.
    void showTickets();
    /// Whether the choice is one of the dialog's own; then it is in `settings`.
    bool takeChoice(const PPDSelection& choice, JobSettings* settings) const;
    [[nodiscard]] std::vector<PPDSelection> choicesBefore(
        const std::vector<PPDSelection>& choices) const;
    /// A fax turns the colour off in the ticket, and nobody turns it on again for the next job.
    void restoreColor();
    /// The popup of the open pane's panels; null without one.
    [[nodiscard]] ControlRef panelSelector() const;
    /// The paper that prints: the chosen one, else the printer's own; empty when nobody knows.
    [[nodiscard]] std::string effectivePaper(const JobSettings& settings) const;
    [[nodiscard]] bool colorChanges(const JobSettings& settings) const;
    [[nodiscard]] bool paperChanges(const JobSettings& settings) const;

    std::vector<std::string> panels_;
    Owned<CFBundleRef> bundle_;
    Owned<PMPrintSession> session_;
    HostPrinter printer_;
    std::optional<PPDDescription> description_;
    std::string jobName_;
    JobSettings settings_;
    // The pane has not been told of the paper since it began or read a ticket.
    bool paperIsNews_ = true;

    State state_ = State::idle;
    std::unique_ptr<OfferedPanels> offered_;
    std::unique_ptr<Extension> extension_;
    PDEContext context_ = nullptr;
    ControlRef parent_ = nullptr;
    std::string paneTitle_;
    UInt32 paneWidth_ = 0, paneHeight_ = 0;
};

}  // namespace kalmo
