#include "print_dialog/print_job_host.h"

#include <algorithm>

#include "print_dialog/color_options.h"
#include "print_dialog/papers.h"
#include "print_dialog/reasons.h"
#include "print_dialog/session_tickets.h"
#include "print_dialog/window_texts.h"
#include "printing/ticket_file.h"
#include "toolbox/events.h"
#include "toolbox/menus.h"
#include "toolbox/windows.h"

namespace kalmo {
namespace {

/// What the Print button sends, as the pane knows it.
constexpr UInt32 kPrintCommand = 'ok  ';
/// The popup whose items are the titles of the pane's panels.
constexpr ControlID kPanelSelector = {'Kshl', 16};

Owned<PMPrinter> MakePrinter(const HostPrinter& printer) {
    const auto name = Owned<CFStringRef>::Adopt(CFStringCreateFromUTF8(printer.name));
    Owned<CFURLRef> ppd;
    if (!printer.ppdPath.empty()) {
        const auto path = Owned<CFStringRef>::Adopt(CFStringCreateFromUTF8(printer.ppdPath));
        ppd =
            Owned<CFURLRef>::Adopt(CFURLCreateWithFileSystemPath(kCFAllocatorDefault, path, false));
    }
    return Owned<PMPrinter>::Adopt(PMPrinterCreate(name, ppd));
}

std::string ItemText(ControlRef popup, SInt32 item) {
    const auto text = Owned<CFStringRef>::Adopt(
        CopyMenuItemTextAsCFString(GetControlPopupMenu(popup), static_cast<UInt16>(item)));
    return text ? CFStringToUTF8(text) : std::string();
}

}  // namespace

PrintJobHost::PrintJobHost(std::vector<std::string> panels)
    : panels_(std::move(panels)), session_(Owned<PMPrintSession>::Adopt(PMSessionCreate())) {}

PrintJobHost::~PrintJobHost() { end(noErr); }

Outcome PrintJobHost::load() {
    bundle_ = Owned<CFBundleRef>::Adopt(OpenExtensionBundle());
    return {bundle_ ? "" : HostText("Plug-in missing")};
}

Outcome PrintJobHost::setPrinter(const HostPrinter& printer) {
    std::optional<PPDDescription> description;
    if (!printer.ppdPath.empty()) {
        std::string reason;
        description = ReadPPDDescription(printer.ppdPath, &reason);
        if (!description) return {ReasonInWords(reason)};
    }
    const bool another = !printer_.name.empty();
    printer_ = printer;
    description_ = std::move(description);
    if (another && description_) DropForeignPPDChoices(session_, *description_);
    PMSessionSetCurrentPrinter(session_, MakePrinter(printer));
    return {};
}

void PrintJobHost::setPanels(std::vector<std::string> panels) { panels_ = std::move(panels); }

void PrintJobHost::setJobName(const std::string& name) { jobName_ = name; }

Outcome PrintJobHost::readTicket(std::string_view bytes) {
    std::string reason;
    if (!ReadTicketFile(session_, bytes, &reason)) return {ReasonInWords(reason)};
    takeSettingsFromTickets();
    paperIsNews_ = true;
    if (hasPane()) {
        fillSession();
        sync(kSyncToUI);
    }
    return {};
}

OSStatus PrintJobHost::begin(ControlRef parent) {
    parent_ = parent;
    paperIsNews_ = true;
    state_ = State::refused;
    fillSession();
    if (!bundle_) return fnfErr;
    offered_ = std::make_unique<OfferedPanels>(bundle_, panels_);
    extension_ = Extension::Create(bundle_);
    if (!extension_) return fnfErr;
    if (const OSStatus status = prologue(); status != noErr) return status;
    UInt32 flags = 0;
    const OSStatus status =
        extension_->operations().Initialize(context_, &flags, nullptr, parent, session_);
    if (status == noErr) state_ = State::initialized;
    return status;
}

OSStatus PrintJobHost::prologue() {
    OSType creator = 0;
    CFStringRef kind = nullptr, title = nullptr;
    const OSStatus status = extension_->operations().Prologue(&context_, &creator, &kind, &title,
                                                              &paneWidth_, &paneHeight_);
    paneTitle_ = CFStringToUTF8(title);
    return status;
}

void PrintJobHost::fillSession() {
    if (!jobName_.empty()) WriteJobName(session_, jobName_);
    WriteMakeAndModel(session_, description_ ? description_->makeAndModel : "");
    if (!HasOrientation(session_)) WriteOrientation(session_, settings_.orientation);
    WritePagesPerSheet(session_, settings_.pagesPerSheet);
    WriteDialogSettings(session_, settings_);
}

void PrintJobHost::takeSettingsFromTickets() {
    settings_.paper = ReadPPDChoice(session_, "PageSize");
    settings_.inputSlot = ReadPPDChoice(session_, "InputSlot");
    if (!settings_.colorOption.empty()) {
        settings_.colorChoice = ReadPPDChoice(session_, settings_.colorOption);
    }
    settings_.orientationChosen = HasOrientation(session_);
    if (settings_.orientationChosen) settings_.orientation = ReadOrientation(session_);
    ReadDialogSettings(session_, &settings_);
}

OSStatus PrintJobHost::open() {
    if (state_ != State::initialized) return kPMInvalidPDEContext;
    const OSStatus status = extension_->operations().Open(context_);
    state_ = State::open;
    return status;
}

OSStatus PrintJobHost::close() {
    if (state_ != State::open) return kPMInvalidPDEContext;
    state_ = State::initialized;
    return extension_->operations().Close(context_);
}

OSStatus PrintJobHost::sync(Boolean direction) {
    if (!hasPane()) return kPMInvalidPDEContext;
    if (direction == kSyncToTicket) restoreColor();
    return extension_->operations().Sync(context_, session_, direction);
}

void PrintJobHost::restoreColor() {
    if (description_ && FindOption(*description_, settings_.colorOption)) {
        WritePPDChoice(session_, settings_.colorOption, settings_.colorChoice);
    }
}

void PrintJobHost::end(OSStatus status) {
    if (state_ == State::open) close();
    // Also after a refused Initialize: what Prologue made is freed here.
    if (context_) extension_->operations().Terminate(context_, status);
    context_ = nullptr;
    parent_ = nullptr;
    extension_.reset();
    offered_.reset();
    state_ = State::idle;
}

std::string PrintJobHost::effectivePaper(const JobSettings& settings) const {
    return settings.paper.empty() && description_ ? description_->defaultPaper : settings.paper;
}

bool PrintJobHost::paperChanges(const JobSettings& settings) const {
    if (settings.paper != settings_.paper) return true;
    const std::string paper = effectivePaper(settings);
    return paperIsNews_ && !paper.empty() && !StockHasPaper(session_, paper);
}

bool PrintJobHost::colorChanges(const JobSettings& settings) const {
    return !settings.colorOption.empty() && (settings.colorOption != settings_.colorOption ||
                                             settings.colorChoice != settings_.colorChoice);
}

void PrintJobHost::apply(const JobSettings& settings) {
    const bool paneReads = paperChanges(settings) || colorChanges(settings) ||
                           settings.orientation != settings_.orientation ||
                           (settings.pagesPerSheet > 1) != (settings_.pagesPerSheet > 1);
    const bool framed = hasPane() && paneReads;
    if (framed) sync(kSyncToTicket);
    write(settings);
    if (framed) showTickets();
}

void PrintJobHost::showTickets() {
    RaiseRotation(session_);
    sync(kSyncToUI);
}

void PrintJobHost::write(const JobSettings& settings) {
    if (paperChanges(settings)) {
        WritePPDChoice(session_, "PageSize", settings.paper);
        // The pane's stock follows what the window shows, chosen or the printer's own.
        WriteStockPaper(session_, effectivePaper(settings));
    }
    if (settings.inputSlot != settings_.inputSlot) {
        WritePPDChoice(session_, "InputSlot", settings.inputSlot);
    }
    if (colorChanges(settings)) {
        WritePPDChoice(session_, settings.colorOption, settings.colorChoice);
        // A printer with a color mode beside the option has two words for one thing.
        if (description_ && FindOption(*description_, kColorModeOption)) {
            WritePPDChoice(session_, kColorModeOption,
                           ColorModeFor(*description_, settings.colorChoice));
        }
    }
    if (settings.orientation != settings_.orientation || !HasOrientation(session_)) {
        WriteOrientation(session_, settings.orientation);
    }
    WritePagesPerSheet(session_, settings.pagesPerSheet);
    WriteDialogSettings(session_, settings);
    settings_ = settings;
    // A booklet's own size is not the window's to change: the stock follows when it is left.
    if (hasPane()) paperIsNews_ = !StockTakesPaper(session_);
}

bool PrintJobHost::takeChoice(const PPDSelection& choice, JobSettings* settings) const {
    if (choice.option == "PageSize") {
        settings->paper = choice.choice;
    } else if (choice.option == "InputSlot") {
        settings->inputSlot = choice.choice;
    } else if (choice.option == settings->colorOption) {
        settings->colorChoice = choice.choice;
    } else {
        return false;
    }
    return true;
}

std::vector<PPDSelection> PrintJobHost::choicesBefore(
    const std::vector<PPDSelection>& choices) const {
    std::vector<PPDSelection> before;
    for (const auto& [option, ignored] : choices) before.push_back({option, ppdChoice(option)});
    // The color mode goes along with the color.
    const auto isColor = [&](const auto& each) { return each.option == settings_.colorOption; };
    if (std::ranges::any_of(choices, isColor)) {
        before.push_back({kColorModeOption, ppdChoice(kColorModeOption)});
    }
    return before;
}

std::vector<PPDSelection> PrintJobHost::writeChoices(const std::vector<PPDSelection>& choices) {
    auto before = choicesBefore(choices);
    JobSettings settings = settings_;
    std::vector<PPDSelection> others;
    for (const PPDSelection& choice : choices) {
        if (!takeChoice(choice, &settings)) others.push_back(choice);
    }
    write(settings);
    for (const auto& [option, choice] : others) ReplacePPDChoice(session_, option, choice);
    if (hasPane()) showTickets();
    return before;
}

bool PrintJobHost::printCheck() {
    if (!hasPane()) return true;
    const WindowRef window = GetControlOwner(parent_);
    ControlRef button = nullptr;
    GetWindowDefaultButton(window, &button);
    const OSStatus answer = button ? SendCommandFromControl(button, kPrintCommand)
                                   : SendCommandToWindow(window, kPrintCommand);
    return answer == eventNotHandledErr;
}

ControlRef PrintJobHost::panelSelector() const {
    ControlRef selector = nullptr;
    if (state_ == State::open) {
        GetControlByID(GetControlOwner(parent_), kPanelSelector, &selector);
    }
    return selector;
}

std::string PrintJobHost::shownPanel() const {
    const ControlRef selector = panelSelector();
    return selector ? ItemText(selector, GetControl32BitValue(selector)) : std::string();
}

void PrintJobHost::showPanel(const std::string& title) {
    const ControlRef selector = panelSelector();
    const SInt32 count = selector ? CountMenuItems(GetControlPopupMenu(selector)) : 0;
    for (SInt32 item = 1; item <= count; ++item) {
        if (ItemText(selector, item) != title) continue;
        SetControl32BitValue(selector, item);
        SendEventToControl(selector, kEventClassControl, kEventControlHit);
        return;
    }
}

PPDPaper PrintJobHost::paper() const {
    if (!description_) return {};
    const auto& wanted = settings_.paper.empty() ? description_->defaultPaper : settings_.paper;
    return FindPaper(*description_, wanted).value_or(PPDPaper{});
}

PMTicketRef PrintJobHost::printSettings() const {
    return PMSessionGetTicket(session_, kPMPrintSettingsTicket);
}

std::string PrintJobHost::ppdChoice(const std::string& keyword) const {
    return ReadPPDChoice(session_, keyword);
}

std::string PrintJobHost::ticketFile(CFDictionaryRef extra) const {
    return WriteTicketFile(session_, extra);
}

}  // namespace kalmo
