// The window's printer, and the pane that comes with it.
#include <QApplication>
#include <QTimer>
#include <algorithm>

#include "print_dialog/color_options.h"
#include "print_dialog/print_window.h"
#include "print_dialog/remembered_settings.h"
#include "print_dialog/window_texts.h"
#include "toolbox/host.h"

namespace kalmo {
namespace {

constexpr int kAskAgainMs = 100;
/// A server that does not answer is asked for its printers as often as this.
constexpr int kListAgainMs = 2500;

/// The one that was printed on last, else the server's default; empty without either.
std::string UsualPrinter(const std::vector<PrinterEntry>& printers) {
    const std::vector<std::string> recent = RememberedPrinters().recent;
    const bool lastIsThere =
        !recent.empty() &&
        std::ranges::find(printers, recent.front(), &PrinterEntry::name) != printers.end();
    if (lastIsThere) return recent.front();
    const auto byDefault = std::ranges::find(printers, true, &PrinterEntry::isDefault);
    return byDefault == printers.end() ? std::string() : byDefault->name;
}

}  // namespace

void PrintWindow::findPrinters() {
    presets_->ready();
    if (!commandLine_.printer.empty()) openQueue(commandLine_.printer);
    listPrinters();
}

void PrintWindow::listPrinters() {
    sinceListed_.start();
    form_->destination()->setStatus(WindowText("Looking for printers"));
    printers_.list([this](const PrinterList& list) { showPrinters(list); });
}

void PrintWindow::findPrintersAgain() {
    if (sinceListed_.isValid() && sinceListed_.hasExpired(kListAgainMs)) listPrinters();
}

void PrintWindow::showPrinters(const PrinterList& list) {
    std::string preferred = commandLine_.printer;
    if (preferred.empty()) preferred = UsualPrinter(list.printers);
    DestinationChoice* destination = form_->destination();
    if (list.error.empty()) sinceListed_.invalidate();
    destination->setStatus({});
    destination->setQueues(list.destinations, QString::fromStdString(list.error));
    if (!destinationOpen_ || job_) return;
    destinationOpen_ = false;
    destination->chooseQueue(preferred);
    chooseDestination();
}

void PrintWindow::chooseDestination() {
    const Destination& chosen = form_->destination()->current();
    if (chosen.kind == Destination::Kind::queue) {
        // Back at the one that is open: another one's answer is no longer waited for.
        openingQueue_.clear();
        if (chosen.queue != host_.printer().name) openQueue(chosen.queue);
    }
    updatePrint();
}

void PrintWindow::openQueue(const std::string& queue) {
    openingQueue_ = queue;
    form_->destination()->setStatus(WindowText("Opening printer"));
    printers_.describe(queue, [this, queue](const PrinterDescription& found) {
        whenPaneIsFree([=, this] {
            if (queue == openingQueue_) usePrinter(found);
        });
    });
    updatePrint();
}

void PrintWindow::usePrinter(const PrinterDescription& found) {
    DestinationChoice* destination = form_->destination();
    destination->setStatus(QString::fromStdString(found.error));
    if (found.error.empty()) {
        const bool isFirst = host_.printer().name.empty();
        const JobSettings typed = form_->settings();
        closePane();
        presets_->printerLeaves();
        const auto outcome = host_.setPrinter({openingQueue_, found.ppdPath, found.clearHost});
        destination->setStatus(QString::fromStdString(outcome ? found.note : outcome.error));
        if (!outcome) static_cast<void>(host_.setPrinter({openingQueue_, {}}));
        openPane();
        presets_->printerCame();
        presets_->ready();
        if (isFirst) keepTyped(typed);
    }
    openingQueue_.clear();
    updatePrint();
}

void PrintWindow::keepTyped(const JobSettings& typed) {
    if (!form_->takeChanges(typed)) return;
    presets_->settingsChosen();
    settingsChanged();
}

void PrintWindow::whenPaneIsFree(const std::function<void()>& act) {
    // A dialog of the pane works on what the pane holds, and an open list or menu is a part of it:
    // the pane stays until they are left and their callers are through, and until a job on its way
    // has come to its end.
    const bool isOpen = CallersWaitForUser() || QApplication::activeModalWidget() ||
                        QApplication::activePopupWidget();
    if (!isOpen && !job_) return act();
    QTimer::singleShot(kAskAgainMs, this, [this, act] { whenPaneIsFree(act); });
}

void PrintWindow::changePanels() {
    changePane([this] { host_.setPanels(panels_->panels()); });
    bar_->showFault(QString::fromStdString(RememberPanels(panels_->panels()).error));
    panels_->setFocus();
}

void PrintWindow::changePane(const std::function<void()>& change) {
    const bool hadPane = host_.hasPane();
    if (hadPane) closePane();
    change();
    if (hadPane) openPane();
}

void PrintWindow::closePane() {
    if (host_.hasPane()) {
        shownPanel_ = host_.shownPanel();
        host_.sync(kSyncToTicket);
    }
    host_.end(kNotPrinted);
}

void PrintWindow::presetApplied() {
    form_->takeTicket(host_.settings());
    showHostSettings();
    documentChanged();
}

void PrintWindow::showHostSettings() {
    const PPDDescription printer = host_.description() ? *host_.description() : PPDDescription{};
    JobSettings settings = form_->settings();
    settings.paper = host_.ppdChoice("PageSize");
    settings.inputSlot = host_.ppdChoice("InputSlot");
    settings.colorOption = ColorOption(printer);
    settings.colorChoice = host_.ppdChoice(settings.colorOption);
    form_->setPrinter(printer, settings);
    form_->destination()->setFolderNote(
        printer.makeAndModel.empty()
            ? QString()
            : WindowText("Settings of", {QString::fromStdString(printer.makeAndModel)}));
}

void PrintWindow::openPane() {
    showHostSettings();
    const QString name = QString::fromStdString(host_.printer().name);
    if (!extensionLoaded_) return pane_->showReason(WindowText("Extension missing"));
    if (!host_.description()) return pane_->showReason(WindowText("Printer without PPD", {name}));
    if (host_.begin(pane_->createEmbedder()) != noErr) {
        host_.end(kNotPrinted);
        return pane_->showReason(WindowText("Another maker's printer", {name}));
    }
    host_.open();
    host_.apply(form_->settings());
    host_.showPanel(shownPanel_);
    pane_->showPane(host_.paneWidth(), host_.paneHeight());
}

}  // namespace kalmo
