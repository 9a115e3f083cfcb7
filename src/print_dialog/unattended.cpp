#include "print_dialog/unattended.h"

#include <QEventLoop>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "print_dialog/conflicts.h"
#include "print_dialog/dry_run.h"
#include "print_dialog/job.h"
#include "print_dialog/job_input.h"
#include "print_dialog/presets.h"
#include "print_dialog/printers.h"
#include "print_dialog/private_folder.h"
#include "print_dialog/stop_signals.h"
#include "print_dialog/wait_for_answer.h"
#include "print_dialog/window_texts.h"
#include "system/presence.h"
#include "toolbox/host.h"

namespace kalmo {
namespace {

/// What the extension expects around its pane: a window with a default and a cancel button.
class HiddenWindow final {
public:
    HiddenWindow() {
        auto* column = new QVBoxLayout(&window_);
        for (QWidget* widget : {static_cast<QWidget*>(pane_), static_cast<QWidget*>(print_),
                                static_cast<QWidget*>(cancel_)}) {
            column->addWidget(widget);
        }
        const auto window = WindowFromWidget(&window_);
        SetWindowDefaultButton(window, ControlFromWidget(print_));
        SetWindowCancelButton(window, ControlFromWidget(cancel_));
    }
    [[nodiscard]] ControlRef pane() const { return ControlFromWidget(pane_); }

private:
    QWidget window_;
    QWidget* pane_ = new QWidget;
    QPushButton* print_ = new QPushButton;
    QPushButton* cancel_ = new QPushButton;
};

/// A run that ends early: its line is written here, its exit code goes back.
class Stop final {
public:
    Stop(ExitCode code, const std::string& line) : code_(code) {
        if (!line.empty()) PrintMessage(line);
    }
    operator ExitCode() const { return code_; }

private:
    ExitCode code_;
};

class Run final {
public:
    explicit Run(const CommandLine& commandLine)
        : commandLine_(commandLine), host_(commandLine.panels) {}

    ExitCode run() {
        for (const auto step : {&Run::readDocument, &Run::choosePrinter, &Run::readTicket,
                                &Run::startPane, &Run::applySettings, &Run::work}) {
            const ExitCode code = (this->*step)();
            if (code != kExitDone) {
                host_.end(kPMInvalidPDEContext);
                return code;
            }
        }
        host_.end(noErr);
        return kExitDone;
    }

private:
    /// A document and somewhere to print it.
    [[nodiscard]] bool prints() const {
        return !commandLine_.document.empty() &&
               (commandLine_.ppd.empty() || !commandLine_.output.empty());
    }

    ExitCode readDocument() {
        const bool nowhere = !commandLine_.document.empty() && !prints() && !commandLine_.dryRun;
        if (nowhere && commandLine_.writeTicket.empty()) {
            return Stop(kExitUsage, HostText("Nowhere to print"));
        }
        if (const auto opened = document_.open(commandLine_.document); !opened) {
            return Stop(kExitUsage, opened.error);
        }
        if (document_.path().empty()) return kExitDone;
        const auto inspected = InspectDocument(document_.path(), &pages_);
        return inspected ? kExitDone : Stop(kExitUsage, document_.name() + ": " + inspected.error);
    }

    ExitCode choosePrinter() {
        if (const auto loaded = host_.load(); !loaded) return Stop(kExitFailed, loaded.error);
        if (commandLine_.ppd.empty()) return chooseQueue();
        const auto name = std::filesystem::path(commandLine_.ppd).stem().string();
        const auto outcome = host_.setPrinter({name, commandLine_.ppd});
        return outcome ? kExitDone : Stop(kExitUsage, commandLine_.ppd + ": " + outcome.error);
    }

    ExitCode chooseQueue() {
        auto queue = commandLine_.printer;
        if (queue.empty()) {
            const auto list =
                WaitForAnswer<PrinterList>([&](auto answer) { printers_.list(answer); });
            if (!list.error.empty()) return Stop(kExitFailed, list.error);
            const auto chosen = std::ranges::find(list.printers, true, &PrinterEntry::isDefault);
            if (chosen == list.printers.end()) {
                return Stop(kExitUsage, HostText("No default printer"));
            }
            queue = chosen->name;
        }
        const auto found = WaitForAnswer<PrinterDescription>(
            [&](auto answer) { printers_.describe(queue, answer); });
        if (!found.error.empty()) return Stop(kExitFailed, queue + ": " + found.error);
        if (!found.note.empty()) PrintMessage(queue + ": " + found.note);
        const auto outcome = host_.setPrinter({queue, found.ppdPath, found.clearHost});
        return outcome ? kExitDone : Stop(kExitFailed, queue + ": " + outcome.error);
    }

    ExitCode readTicket() {
        auto settings = host_.settings();
        settings.orientation = DocumentOrientation(pages_);
        host_.apply(settings);
        const auto outcome = LoadInputs(commandLine_, host_);
        return outcome ? kExitDone : Stop(kExitUsage, outcome.error);
    }

    ExitCode startPane() {
        const OSStatus status = host_.begin(window_.pane());
        if (status == fnfErr) return Stop(kExitFailed, HostText("Plug-in unfit"));
        if (status != noErr) {
            return Stop(kExitFailed, HostText("Not a Kalmo printer", {host_.printer().name}));
        }
        if (commandLine_.phase == Phase::open) host_.open();
        return kExitDone;
    }

    /// Towards the living pane, which resets the booklet of a ticket that it begins with.
    ExitCode applySettings() {
        if (!commandLine_.ticket.empty()) return kExitDone;
        if (commandLine_.preset.empty()) {
            const auto start = StartSettings();
            std::vector<std::string> ignored;
            const auto outcome = start ? ApplyPreset(host_, *start, &ignored) : Outcome{};
            if (!outcome) PrintMessage(outcome.error);
            return kExitDone;
        }
        std::vector<std::string> notApplied;
        Preset preset;
        auto outcome = FindPreset(commandLine_.preset, &preset);
        if (outcome) outcome = ApplyPreset(host_, preset, &notApplied);
        for (const auto& choice : notApplied) {
            PrintMessage(HostText("Not on this printer", {choice}));
        }
        return outcome ? kExitDone : Stop(kExitUsage, outcome.error);
    }

    ExitCode work() {
        if (prints() && !commandLine_.dryRun) return print();
        if (host_.sync(kSyncToTicket) != noErr) {
            return Stop(kExitFailed, HostText("Ticket not filled"));
        }
        return commandLine_.dryRun ? rehearse() : writeTicket();
    }

    /// The print check is left out: it may open dialogs. What it would refuse is told.
    ExitCode rehearse() {
        DryRun told;
        const auto form = commandLine_.json ? DryRunForm::json : DryRunForm::text;
        const auto outcome = RehearseJob(host_, jobRequest(), pages_, form, &told);
        if (!outcome) return Stop(kExitFailed, outcome.error);
        std::fwrite(told.output.data(), 1, told.output.size(), stdout);
        if (std::fflush(stdout) != 0)
            return Stop(kExitFailed, SystemReason(HostText("Standard output"), errno));
        return told.printable ? kExitDone : kExitFailed;
    }

    ExitCode writeTicket() {
        if (commandLine_.writeTicket.empty()) return kExitDone;
        const auto written = WriteTicket(commandLine_.writeTicket, host_);
        return written ? kExitDone : Stop(kExitFailed, written.error);
    }

    ExitCode print() {
        QEventLoop loop;
        JobResult result;
        const auto job = StartJob(host_, jobRequest(),
                                  {.approve = [this] { return approve(); },
                                   .finished =
                                       [&](const JobResult& end) {
                                           result = end;
                                           loop.quit();
                                       }});
        if (!job) return kExitFailed;  // the pane or approve() has said why
        const StopSignals stop([&job] { job->cancel(); });
        loop.exec();
        if (result.end == JobResult::End::cancelled) {
            return Stop(kExitCancelled, HostText("Cancelled"));
        }
        if (result.end == JobResult::End::failed) return Stop(kExitFailed, result.message);
        for (const auto& line : result.differences) PrintMessage(line);
        return writeTicket();
    }

    /// Scripts hear of each conflict; nothing that conflicts goes out unasked.
    [[nodiscard]] bool approve() {
        const auto report = CheckConflicts(host_);
        for (const auto& line : ConflictLines(report)) PrintMessage(line);
        if (report.conflicts.empty() || commandLine_.printAnyway) return true;
        for (const auto& line : ChangeLines(report)) PrintMessage(line);
        PrintMessage(HostText("Conflict refused"));
        return false;
    }

    [[nodiscard]] JobRequest jobRequest() const {
        return {.document = document_.path(),
                .name = document_.name(),
                .layout = SheetLayout(host_.paper(), host_.settings(), pages_),
                .queue = host_.printer().name,
                .folder = commandLine_.output};
    }

    const CommandLine& commandLine_;
    HiddenWindow window_;
    PrintJobHost host_;
    Printers printers_;
    InputDocument document_;
    std::vector<PageSize> pages_;
};

}  // namespace

ExitCode RunUnattended(const CommandLine& commandLine) {
    InstallPresence(UnattendedPresence());
    return Run(commandLine).run();
}

}  // namespace kalmo
