#include "print_dialog/print_window.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QMimeData>
#include <QScreen>
#include <QShortcut>
#include <QTimer>
#include <QVBoxLayout>

#include "print_dialog/extension.h"
#include "print_dialog/remembered_settings.h"
#include "print_dialog/screen_scroll.h"
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

constexpr auto kHelpPage = "How_to/print_a_document.htm";

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
    // A PPD file or a folder on the command line is a choice of its own.
    destinationOpen_ = commandLine.output.empty() && commandLine.ppd.empty();
    panels_->setPanels(commandLine.panels.empty() ? RememberedPanels() : commandLine.panels);
    host_.setPanels(panels_->panels());
    documentChanged();
}

PrintWindow::~PrintWindow() { host_.end(exitCode_ == kExitDone ? noErr : kNotPrinted); }

void PrintWindow::createWidgets() {
    body_ = new QWidget(this);
    auto* formColumn = new ScreenScroll(body_);
    form_ = new SettingsForm(formColumn);
    formColumn->setWidget(form_);
    formColumn->setWidgetResizable(true);
    preview_ = new Preview(document_, body_);
    pane_ = new PaneView(body_);
    conflicts_ = new ConflictNotice(
        host_, [this](const auto& act) { whenPaneIsFree(act); }, this);
    bar_ = new SendingBar(this);

    left_ = new QBoxLayout(QBoxLayout::LeftToRight);
    left_->setSpacing(kColumnGap);
    left_->addWidget(formColumn);
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
    window->addWidget(conflicts_);
    window->addWidget(bar_);
    window->addLayout(createButtons());
}

QLayout* PrintWindow::createButtons() {
    help_ = new QPushButton(WindowText("Help"), this);
    panels_ = new ExtrasButton(this);
    summary_ = new QPushButton(WindowText("Summary..."), this);
    cancel_ = new QPushButton(WindowText("Cancel"), this);
    print_ = new QPushButton(WindowText("Print"), this);
    // Window and panes have taken all letters.
    const QKeySequence shortcut(Qt::CTRL | Qt::Key_I);
    summary_->setShortcut(shortcut);
    summary_->setToolTip(WindowText("Summary tip", {shortcut.toString(QKeySequence::NativeText)}));
    help_->setAutoDefault(false);
    summary_->setAutoDefault(false);
    cancel_->setAutoDefault(false);
    print_->setDefault(true);
    auto* row = new QHBoxLayout;
    row->setSpacing(8);
    row->addWidget(help_);
    row->addWidget(panels_);
    row->addWidget(summary_);
    row->addStretch();
    row->addWidget(cancel_);
    row->addWidget(print_);
    const WindowRef window = WindowFromWidget(this);
    SetWindowDefaultButton(window, ControlFromWidget(print_));
    SetWindowCancelButton(window, ControlFromWidget(cancel_));
    return row;
}

void PrintWindow::connectWidgets() {
    presets_ = std::make_unique<PresetCommands>(host_, *form_->presets(),
                                                [this](const auto& act) { whenPaneIsFree(act); });
    connect(presets_.get(), &PresetCommands::applied, this, &PrintWindow::presetApplied);
    connect(presets_.get(), &PresetCommands::told, bar_, &SendingBar::showFault);
    connect(presets_.get(), &PresetCommands::settingsWanted, this,
            [this] { host_.apply(form_->settings()); });
    connect(form_, &SettingsForm::changed, this, &PrintWindow::settingsChanged);
    connect(form_->destination(), &DestinationChoice::chosen, this, [this] {
        destinationOpen_ = false;
        chooseDestination();
    });
    connect(form_->destination(), &DestinationChoice::opened, this,
            &PrintWindow::findPrintersAgain);
    connect(preview_, &Preview::openRequested, this, &PrintWindow::askForDocument);
    connect(new QShortcut(QKeySequence::Open, this), &QShortcut::activated, this,
            &PrintWindow::askForDocument);
    connect(new QShortcut(QKeySequence::HelpContents, this), &QShortcut::activated, this,
            &PrintWindow::showHelp);
    connect(&document_, &Document::changed, this, &PrintWindow::documentChanged);
    connect(help_, &QPushButton::clicked, this, &PrintWindow::showHelp);
    connect(panels_, &ExtrasButton::chosen, this,
            [this] { whenPaneIsFree([this] { changePanels(); }); });
    connect(summary_, &QPushButton::clicked, this, &PrintWindow::showSummary);
    connect(cancel_, &QPushButton::clicked, this, &PrintWindow::reject);
    connect(print_, &QPushButton::clicked, this, &PrintWindow::print);
    connect(conflicts_, &ConflictNotice::ticketsChanged, this, &PrintWindow::showHostSettings);
    connect(conflicts_, &ConflictNotice::solved, print_, [this] { print_->setFocus(); });
    connect(conflicts_, &ConflictNotice::printAnyway, this, [this](const ConflictReport& told) {
        // What the pane has made of it since then is told first.
        sendJob([this, told] { return conflicts_->approve(told); });
    });
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
    form_->takeTicket(host_.settings());
    if (const auto begun = presets_->begin(commandLine_); !begun) return refuse(begun.error);
    if (!commandLine_.output.empty()) form_->destination()->setFolder(commandLine_.output);
    if (!input_.path().empty()) document_.open(input_.path(), input_.name());
    if (commandLine_.ppd.empty()) {
        pane_->showReason(WindowText("No printer yet"));
    } else {
        openPane();
        presets_->printerCame();
    }
    return kExitDone;
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
    const QString name = QString::fromStdString(document_.name());
    const bool named = document_.state() != Document::State::none && commandLine_.document != "-";
    setWindowTitle(named ? WindowText("Print title of", {name}) : WindowText("Print title"));
    settingsChanged();
}

void PrintWindow::settingsChanged() {
    conflicts_->clear();  // it told of other settings
    if (form_->isValid()) {
        preview_->setSheets(form_->paper(), form_->settings(), form_->isGrey());
    }
    // A document that has loaded can change them at any time.
    // Without a printer the form would take from a ticket the paper that the printer has.
    whenPaneIsFree([this] {
        const bool known = form_->isValid() && !host_.printer().name.empty();
        if (known) host_.apply(form_->settings());
    });
    updatePrint();
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
    const QSize remembered = RememberedWindowSize();
    const QSize wanted = remembered.isEmpty() ? sizeHint() : remembered;
    resize(wanted.expandedTo(minimumSizeHint()).boundedTo(room));
}

void PrintWindow::rememberSize() const {
    const bool whole = (windowState() & (Qt::WindowMaximized | Qt::WindowFullScreen)) != 0;
    if (!whole && chosenSize_.isValid()) RememberWindowSize(chosenSize_);
}

void PrintWindow::setVisible(bool visible) {
    // Before the window system knows the window: a second change of size on the way to its place
    // can bring it back to the corner of the screen, without its title bar.
    if (visible && !windowHandle()) chooseDirection();
    if (!visible && isVisible()) rememberSize();
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

void PrintWindow::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    // A note or a panel that needs more room is nobody's wish for a larger window.
    const bool grown = event->size() == event->oldSize().expandedTo(minimumSize());
    if (painted_ && !grown) chosenSize_ = event->size();
}

void PrintWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (!job_ && !DroppedDocument(*event->mimeData()).empty()) event->acceptProposedAction();
}

void PrintWindow::dropEvent(QDropEvent* event) {
    openDocument(DroppedDocument(*event->mimeData()));
    event->acceptProposedAction();
}

}  // namespace kalmo
