#include "print_dialog/print_window.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QMimeData>
#include <QScreen>
#include <QShortcut>
#include <QTimer>
#include <QVBoxLayout>

#include "print_dialog/color_options.h"
#include "print_dialog/extension.h"
#include "print_dialog/remembered_settings.h"
#include "print_dialog/session_tickets.h"
#include "print_dialog/widgets.h"
#include "print_dialog/window_texts.h"
#include "system/system.h"
#include "toolbox/host.h"
#include "toolbox/windows.h"

namespace kalmo {
namespace {

/// Form, preview and pane beside each other; below that the preview stands under the form.
constexpr int kWidthForThreeColumns = 1240;
/// What the desktop draws around a window, which is not known before the window is there.
constexpr QSize kFrame(16, 40);
constexpr int kColumnGap = 18;
constexpr int kAskAgainMs = 100;
/// How the extension hears that a dialog ended without printing.
constexpr OSStatus kNotPrinted = kPMInvalidPDEContext;

constexpr auto kHelpPage = "How_to/print_a_document.htm";

QString ShownName(const PrinterEntry& printer) {
    return QString::fromStdString(printer.info.empty() ? printer.name : printer.info);
}

QString ShownStatus(const PrinterEntry& printer) {
    const QString message = QString::fromStdString(printer.stateMessage);
    if (!printer.accepting) return WindowText("Printer refuses jobs");
    if (printer.stopped && message.isEmpty()) return WindowText("Printer stopped");
    if (printer.stopped) return WindowText("Printer stopped because", {message});
    if (!message.isEmpty()) return message;
    return QString::fromStdString(printer.location.empty() ? printer.makeAndModel
                                                           : printer.location);
}

std::filesystem::path DroppedDocument(const QMimeData& dropped) {
    if (dropped.urls().size() != 1 || !dropped.urls().front().isLocalFile()) return {};
    return dropped.urls().front().toLocalFile().toStdString();
}

}  // namespace

PrintWindow::PrintWindow(const CommandLine& commandLine) : commandLine_(commandLine) {
    setWindowTitle(WindowText("Print title"));
    setAcceptDrops(true);
    createWidgets();
    connectWidgets();
    panels_->setPanels(commandLine.panels.empty() ? RememberedPanels() : commandLine.panels);
    host_.setPanels(panels_->panels());
    documentChanged();
}

PrintWindow::~PrintWindow() { host_.end(exitCode_ == kExitDone ? noErr : kNotPrinted); }

void PrintWindow::createWidgets() {
    body_ = new QWidget(this);
    form_ = new SettingsForm(body_);
    preview_ = new Preview(document_, body_);
    pane_ = new PaneView(body_);
    bar_ = new SendingBar(this);

    left_ = new QBoxLayout(QBoxLayout::LeftToRight);
    left_->setSpacing(kColumnGap);
    auto* formColumn = new QVBoxLayout;
    formColumn->addWidget(form_);
    formColumn->addStretch();
    left_->addLayout(formColumn);
    left_->addWidget(preview_, 1);
    auto* columns = new QHBoxLayout(body_);
    columns->setContentsMargins(0, 0, 0, 0);
    columns->setSpacing(kColumnGap);
    columns->addLayout(left_, 1);
    columns->addWidget(pane_);

    auto* window = new QVBoxLayout(this);
    window->setContentsMargins(kColumnGap, kColumnGap, kColumnGap, kRowGap);
    window->setSpacing(kRowGap);
    window->addWidget(body_, 1);
    window->addWidget(bar_);
    window->addLayout(createButtons());
}

QLayout* PrintWindow::createButtons() {
    help_ = new QPushButton(WindowText("Help"), this);
    cancel_ = new QPushButton(WindowText("Cancel"), this);
    print_ = new QPushButton(WindowText("Print"), this);
    panels_ = new ExtrasButton(this);
    help_->setAutoDefault(false);
    cancel_->setAutoDefault(false);
    print_->setDefault(true);
    auto* row = new QHBoxLayout;
    row->setSpacing(8);
    row->addWidget(help_);
    row->addWidget(panels_);
    row->addStretch();
    row->addWidget(cancel_);
    row->addWidget(print_);
    const WindowRef window = WindowFromWidget(this);
    SetWindowDefaultButton(window, ControlFromWidget(print_));
    SetWindowCancelButton(window, ControlFromWidget(cancel_));
    return row;
}

void PrintWindow::connectWidgets() {
    connect(form_, &SettingsForm::changed, this, &PrintWindow::settingsChanged);
    connect(form_->destination(), &DestinationChoice::chosen, this,
            &PrintWindow::chooseDestination);
    connect(preview_, &Preview::openRequested, this, &PrintWindow::askForDocument);
    connect(new QShortcut(QKeySequence::Open, this), &QShortcut::activated, this,
            &PrintWindow::askForDocument);
    connect(new QShortcut(QKeySequence::HelpContents, this), &QShortcut::activated, this,
            &PrintWindow::showHelp);
    connect(&document_, &Document::changed, this, &PrintWindow::documentChanged);
    connect(help_, &QPushButton::clicked, this, &PrintWindow::showHelp);
    connect(panels_, &ExtrasButton::chosen, this,
            [this] { whenPaneIsFree([this] { changePanels(); }); });
    connect(cancel_, &QPushButton::clicked, this, &PrintWindow::reject);
    connect(print_, &QPushButton::clicked, this, &PrintWindow::print);
}

ExitCode PrintWindow::prepare() {
    const auto refuse = [](const std::string& line) {
        PrintMessage(line);
        return kExitUsage;
    };
    if (const auto opened = input_.open(commandLine_.document); !opened) {
        return refuse(opened.error);
    }
    extensionLoaded_ = static_cast<bool>(host_.load());
    if (!commandLine_.ppd.empty()) {
        const auto name = std::filesystem::path(commandLine_.ppd).stem().string();
        const auto outcome = host_.setPrinter({name, commandLine_.ppd});
        if (!outcome) return refuse(commandLine_.ppd + ": " + outcome.error);
    }
    if (const auto loaded = LoadInputs(commandLine_, host_); !loaded) return refuse(loaded.error);
    const bool fromTicket = !commandLine_.ticket.empty() && HasOrientation(host_.session());
    if (fromTicket) form_->keepOrientation();
    if (!commandLine_.output.empty()) form_->destination()->setFolder(commandLine_.output);
    if (!input_.path().empty()) document_.open(input_.path());
    if (commandLine_.ppd.empty()) {
        pane_->showReason(WindowText("No printer yet"));
    } else {
        openPane();
    }
    return kExitDone;
}

void PrintWindow::findPrinters() {
    if (!commandLine_.printer.empty()) openQueue(commandLine_.printer);
    form_->destination()->setStatus(WindowText("Looking for printers"));
    printers_.list([this](const PrinterList& list) { showPrinters(list); });
}

void PrintWindow::showPrinters(const PrinterList& list) {
    std::vector<Destination> queues;
    std::string preferred = commandLine_.printer;
    for (const PrinterEntry& printer : list.printers) {
        queues.push_back(
            {Destination::Kind::queue, printer.name, ShownName(printer), ShownStatus(printer)});
        if (preferred.empty() && printer.isDefault) preferred = printer.name;
    }
    DestinationChoice* destination = form_->destination();
    destination->setStatus({});
    destination->setQueues(std::move(queues), QString::fromStdString(list.error));
    // A PPD file or a folder on the command line is a choice of its own.
    if (!commandLine_.output.empty() || !commandLine_.ppd.empty() || job_) return;
    destination->chooseQueue(preferred);
    chooseDestination();
}

void PrintWindow::chooseDestination() {
    const Destination& chosen = form_->destination()->current();
    if (chosen.kind == Destination::Kind::queue && chosen.queue != host_.printer().name) {
        openQueue(chosen.queue);
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
        closePane();
        const auto outcome = host_.setPrinter({openingQueue_, found.ppdPath});
        destination->setStatus(QString::fromStdString(outcome.error));
        if (!outcome) static_cast<void>(host_.setPrinter({openingQueue_, {}}));
        openPane();
    }
    openingQueue_.clear();
    updatePrint();
}

void PrintWindow::whenPaneIsFree(const std::function<void()>& act) {
    // A dialog of the pane works on what the pane holds: the pane stays until it is answered, and
    // until a job on its way has come to its end.
    if (!QApplication::activeModalWidget() && !job_) return act();
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

void PrintWindow::openPane() {
    const PPDDescription printer = host_.description() ? *host_.description() : PPDDescription{};
    JobSettings settings = form_->settings();
    settings.paper = host_.ppdChoice("PageSize");
    settings.inputSlot = host_.ppdChoice("InputSlot");
    settings.colorOption = ColorOption(printer);
    settings.colorChoice = host_.ppdChoice(settings.colorOption);
    if (form_->keepsOrientation()) settings.orientation = host_.settings().orientation;
    form_->setPrinter(printer, settings);
    form_->destination()->setFolderNote(
        printer.makeAndModel.empty()
            ? QString()
            : WindowText("Settings of", {QString::fromStdString(printer.makeAndModel)}));

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

void PrintWindow::openDocument(const std::filesystem::path& file) {
    if (!job_) whenPaneIsFree([=, this] { showDocument(file); });
}

void PrintWindow::showDocument(const std::filesystem::path& file) {
    bar_->clear();
    document_.open(file);
    if (!commandLine_.title.empty()) return;
    changePane([&] { host_.setJobName(file.filename().string()); });
}

void PrintWindow::askForDocument() {
    const QString file = QFileDialog::getOpenFileName(this, WindowText("Open title"), QString(),
                                                      WindowText("PDF files") + " (*.pdf)");
    if (!file.isEmpty()) openDocument(file.toStdString());
}

void PrintWindow::documentChanged() {
    const auto& pages = document_.pages();
    if (document_.state() == Document::State::ready) {
        form_->setDocument(static_cast<int>(pages.size()), DocumentOrientation(pages));
    }
    const QString name = QString::fromStdString(document_.file().filename().string());
    const bool named = document_.state() != Document::State::none && commandLine_.document != "-";
    setWindowTitle(named ? WindowText("Print title of", {name}) : WindowText("Print title"));
    settingsChanged();
}

void PrintWindow::settingsChanged() {
    if (form_->isValid()) {
        preview_->setSheets(form_->paper(), form_->settings(), form_->isGrey());
    }
    // A document that has loaded can change them at any time.
    whenPaneIsFree([this] {
        if (form_->isValid()) host_.apply(form_->settings());
    });
    updatePrint();
}

void PrintWindow::updatePrint() {
    const Destination& destination = form_->destination()->current();
    const bool ready = destination.kind == Destination::Kind::folder ||
                       (openingQueue_.empty() && host_.printer().name == destination.queue);
    print_->setEnabled(ready && !job_ && form_->isValid() &&
                       document_.state() == Document::State::ready);
}

JobRequest PrintWindow::jobRequest() const {
    const Destination& destination = form_->destination()->current();
    JobRequest request{.document = printed_->path(),
                       .layout = SheetLayout(form_->paper(), form_->settings(), document_.pages())};
    if (destination.kind == Destination::Kind::queue) {
        request.queue = destination.queue;
    } else {
        request.folder = form_->destination()->folder();
    }
    return request;
}

void PrintWindow::print() {
    if (!print_->isEnabled()) return;
    bar_->clear();
    host_.apply(form_->settings());
    printed_ = document_.copy();
    const QString destination = form_->destination()->current().text;
    job_ = StartJob(host_, jobRequest(),
                    {.progress =
                         [this, destination](JobStage stage, int percent) {
                             bar_->showProgress(stage, percent, destination);
                         },
                     .finished = [this](const JobResult& result) { finishJob(result); }});
    if (!job_) return;  // the pane has said why
    setSending(true);
    bar_->showProgress(JobStage::preparing, 0, destination);
}

void PrintWindow::setSending(bool sending) {
    if (sending) focusBefore_ = focusWidget();
    body_->setEnabled(!sending);
    help_->setEnabled(!sending);
    panels_->setEnabled(!sending);
    updatePrint();
    if (sending) {
        cancel_->setFocus();
    } else if (focusBefore_) {
        focusBefore_->setFocus();
    }
}

void PrintWindow::finishJob(const JobResult& result) {
    job_.reset();
    setSending(false);
    bar_->showFault(QString::fromStdString(result.message));
    if (stopping_) QDialog::reject();
    if (result.end != JobResult::End::printed) return;
    exitCode_ = kExitDone;
    if (!commandLine_.writeTicket.empty()) {
        const auto written = WriteTicket(commandLine_.writeTicket, host_);
        if (!written) {
            PrintMessage(written.error);
            exitCode_ = kExitFailed;
        }
    }
    accept();
}

void PrintWindow::stop() {
    stopping_ = true;
    // Each modal loop ends with the window it runs for; what it returns to must still be there.
    while (QWidget* dialog = QApplication::activeModalWidget()) {
        if (dialog == this) break;
        if (!dialog->close()) dialog->hide();
    }
    reject();
    if (!job_) QCoreApplication::quit();
}

void PrintWindow::reject() {
    if (job_) {
        job_->cancel();
        return;
    }
    QDialog::reject();
}

void PrintWindow::showHelp() {
    // The pane opens its own book; without a pane the dialog finds it in the bundle.
    if (SendCommandToWindow(WindowFromWidget(this), 'help') == noErr) return;
    const auto bundle = Owned<CFBundleRef>::Adopt(OpenExtensionBundle());
    const CFTypeRef name =
        CFBundleGetValueForInfoDictionaryKey(bundle, CFSTR("CFBundleHelpBookName"));
    if (!name || CFGetTypeID(name) != CFStringGetTypeID()) return;
    const auto book = static_cast<CFStringRef>(name);
    const auto page = Owned<CFStringRef>::Adopt(CFStringCreateFromUTF8(kHelpPage));
    AHRegisterHelpBook(bundle);
    if (AHGotoPage(book, page, nullptr) != noErr) bar_->showFault(WindowText("Help missing"));
}

void PrintWindow::chooseDirection() {
    const QSize room = screen()->availableSize() - kFrame;
    const bool wide = room.width() >= kWidthForThreeColumns;
    left_->setDirection(wide ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
    layout()->activate();
    // Rather no preview than buttons below the edge of the screen.
    preview_->setVisible(wide || minimumSizeHint().height() <= room.height());
    body_->layout()->activate();
    layout()->activate();
    resize(sizeHint().boundedTo(room));
}

void PrintWindow::setVisible(bool visible) {
    // Before the window system knows the window: a second change of size on the way to its place
    // can bring it back to the corner of the screen, without its title bar.
    if (visible && !windowHandle()) chooseDirection();
    QDialog::setVisible(visible);
}

bool PrintWindow::event(QEvent* event) {
    const bool handled = QDialog::event(event);
    if (event->type() == QEvent::UpdateRequest && !painted_) {
        painted_ = true;
        Q_EMIT firstPainted();
    }
    return handled;
}

void PrintWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (!job_ && !DroppedDocument(*event->mimeData()).empty()) event->acceptProposedAction();
}

void PrintWindow::dropEvent(QDropEvent* event) {
    openDocument(DroppedDocument(*event->mimeData()));
    event->acceptProposedAction();
}

}  // namespace kalmo
