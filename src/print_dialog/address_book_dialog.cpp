#include "print_dialog/address_book_dialog.h"

#include <QDir>
#include <QFileDialog>
#include <QGroupBox>
#include <QVBoxLayout>
#include <algorithm>

#include "print_dialog/remembered_settings.h"
#include "print_dialog/widgets.h"
#include "print_dialog/window_texts.h"

namespace kalmo {
namespace {

using contacts::Code;
using contacts::Source;

constexpr int kPauseMs = 400;
constexpr int kNoteIndent = 22;
constexpr int kNoteGap = 4;
/// A longer path than this loses its middle.
constexpr int kFolderWidth = 330;

std::filesystem::path FolderOf(const QString& typed) {
    const QString text = typed.trimmed();
    const bool inHome = text == "~" || text.startsWith("~/");
    return (inHome ? QDir::homePath() + text.mid(1) : text).toStdString();
}

std::string Reason(const contacts::Answer& answer) {
    switch (answer.code) {
        case Code::unavailable:
            return HostText("Address book missing");
        case Code::timedOut:
            return HostText("Address book silent");
        case Code::readOnly:
            return HostText("Address book read-only");
        case Code::noSpace:
            return HostText("Address book without room");
        case Code::notFound:
        case Code::conflict:
            return HostText("Card gone");
        default:
            return HostText("Address book failed", {answer.text});
    }
}

QString Place(const AddressBookContents& contents, Source wanted, const QFontMetrics& font) {
    if (contents.opened.source == Source::desktop) return WindowText("Found desktop");
    const QString folder =
        font.elidedText(ShownPath(contents.opened.folder), Qt::ElideMiddle, kFolderWidth);
    return wanted == Source::automatic ? WindowText("Found no desktop", {folder})
                                       : WindowText("Found folder", {folder});
}

QString Counts(const AddressBookContents& contents) {
    const QStringList counts{QString::number(contents.persons), QString::number(contents.groups),
                             QString::number(contents.passedOver)};
    return contents.passedOver > 0 ? WindowText("Counts with unreadable", counts)
                                   : WindowText("Counts", counts.mid(0, 2));
}

}  // namespace

AddressBookDialog::AddressBookDialog(QWidget* parent) : QDialog(parent) {
    setWindowTitle(WindowText("Address book title"));
    auto* column = new QVBoxLayout(this);
    column->setSpacing(kRowGap);
    column->addWidget(createPlace());
    column->addWidget(createCard(), 1);
    fault_ = CreateFaultLabel(this);
    column->addWidget(fault_);
    const auto [buttons, ok] = CreateDialogButtons(*this);
    ok_ = ok;
    column->addLayout(buttons);
    pause_.setSingleShot(true);
    connect(&pause_, &QTimer::timeout, this, &AddressBookDialog::load);
    showSettings(contacts::CurrentSettings());
}

AddressBookDialog::~AddressBookDialog() { loading_.request_stop(); }

QWidget* AddressBookDialog::createPlace() {
    auto* place = new QGroupBox(WindowText("Address book place"), this);
    auto* column = new QVBoxLayout(place);
    column->setSpacing(kNoteGap);
    addSource(column, Source::automatic, WindowText("Address book automatic"),
              WindowText("Address book automatic note"));
    addSource(column, Source::desktop, WindowText("Address book desktop"),
              WindowText("Address book desktop note"));
    addSource(column, Source::folder, WindowText("Address book vCards"),
              WindowText("Address book vCards note"));
    column->addLayout(createFolderRow());
    found_ = CreateNoteLabel(place);
    // Two lines, so that the window keeps its size when they are known.
    found_->setMinimumHeight(2 * found_->fontMetrics().lineSpacing());
    column->addWidget(found_);
    return place;
}

void AddressBookDialog::addSource(QBoxLayout* column, Source source, const QString& text,
                                  const QString& note) {
    QWidget* const place = column->parentWidget();
    auto* button = new QRadioButton(text, place);
    auto* line = CreateNoteLabel(place);
    line->setText(note);
    line->setIndent(kNoteIndent);
    button->setAccessibleDescription(note);
    sources_[static_cast<std::size_t>(source)] = button;
    column->addWidget(button);
    column->addWidget(line);
    column->addSpacing(kNoteGap);
    connect(button, &QRadioButton::toggled, this, [this](bool on) {
        if (on) settingsChanged();
    });
}

QLayout* AddressBookDialog::createFolderRow() {
    auto* label = new QLabel(WindowText("Address book folder:"), this);
    folder_ = new QLineEdit(this);
    folder_->setPlaceholderText(ShownPath(contacts::DefaultFolder()));
    folder_->setMinimumWidth(kFolderWidth);
    label->setBuddy(folder_);
    browse_ = new QPushButton(WindowText("Address book browse..."), this);
    browse_->setAutoDefault(false);
    auto* row = new QHBoxLayout;
    row->addWidget(label);
    row->addWidget(folder_, 1);
    row->addWidget(browse_);
    connect(folder_, &QLineEdit::textChanged, this, &AddressBookDialog::settingsChanged);
    connect(browse_, &QPushButton::clicked, this, &AddressBookDialog::askForFolder);
    return row;
}

QWidget* AddressBookDialog::createCard() {
    auto* box = new QGroupBox(WindowText("My card"), this);
    auto* note = CreateNoteLabel(box);
    note->setText(WindowText("My card note"));
    card_ = new MyCardChoice(box);
    auto* column = new QVBoxLayout(box);
    column->addWidget(note);
    column->addWidget(card_, 1);
    return box;
}

void AddressBookDialog::showSettings(const contacts::Settings& settings) {
    sources_[static_cast<std::size_t>(settings.source)]->setChecked(true);
    if (!settings.folder.empty()) folder_->setText(ShownPath(settings.folder));
    pause_.start(0);
}

contacts::Settings AddressBookDialog::settings() const {
    const auto checked = std::ranges::find_if(sources_, &QRadioButton::isChecked);
    return {.source = static_cast<Source>(checked - sources_.begin()),
            .folder = FolderOf(folder_->text())};
}

void AddressBookDialog::settingsChanged() {
    const contacts::Settings wanted = settings();
    folder_->setEnabled(wanted.source != Source::desktop);
    browse_->setEnabled(folder_->isEnabled());
    clearFault();
    loading_.request_stop();
    contents_.reset();
    card_->setContents(nullptr);
    const bool usable = wanted.folder.empty() || wanted.folder.is_absolute();
    found_->setText(usable ? WindowText("Address book loading") : WindowText("Folder incomplete"));
    folder_->setAccessibleDescription(usable ? QString() : found_->text());
    ok_->setEnabled(usable);
    usable ? pause_.start(kPauseMs) : pause_.stop();
}

void AddressBookDialog::askForFolder() {
    const auto wanted = settings().folder;
    const QString chosen = QFileDialog::getExistingDirectory(
        this, WindowText("Address book folder title"),
        QString::fromStdString((wanted.empty() ? contacts::DefaultFolder() : wanted).string()));
    if (!chosen.isEmpty()) folder_->setText(ShownPath(chosen.toStdString()));
}

void AddressBookDialog::load() {
    loading_ = {};
    StartWorker([this, wanted = settings(), stop = loading_.get_token(), post = answers_.post()] {
        const auto contents =
            std::make_shared<const AddressBookContents>(ReadAddressBook(wanted, stop));
        post([=, this] {
            if (!stop.stop_requested()) showContents(contents);
        });
    });
}

void AddressBookDialog::showContents(const std::shared_ptr<const AddressBookContents>& contents) {
    QStringList lines;
    if (contents->opened.book) {
        lines << Place(*contents, settings().source, found_->fontMetrics());
    }
    const bool isRead = contents->opened.book && contents->answer;
    lines << (isRead ? Counts(*contents) : QString::fromStdString(Reason(contents->answer)));
    found_->setText(lines.join('\n'));
    makeRoom();
    if (!isRead) return;
    contents_ = contents;
    card_->setContents(contents);
}

void AddressBookDialog::makeRoom() {
    layout()->activate();
    resize(width(), std::max(height(), layout()->totalHeightForWidth(width())));
}

void AddressBookDialog::accept() {
    if (!ok_->isEnabled()) return;
    ok_->setEnabled(false);
    const bool marks = contents_ && card_->chosen() != contents_->me;
    const auto book = marks ? contents_->opened.book : nullptr;
    StartWorker([this, book, uid = card_->chosen(), wanted = settings(),
                 stop = loading_.get_token(), post = answers_.post()] {
        const contacts::Answer marked = book ? book->setMe(uid, stop) : contacts::Answer{};
        const std::string fault = marked ? RememberAddressBook(wanted).error
                                         : HostText("Card not marked", {Reason(marked)});
        // The dialog may be gone before the worker is done: only the answer may look at it.
        post([=, this, isMarked = static_cast<bool>(marked)] {
            if (fault.empty()) return finish(wanted);
            showFault(fault, isMarked ? static_cast<QWidget&>(*ok_) : *card_->list());
        });
    });
}

void AddressBookDialog::showFault(const std::string& fault, QWidget& about) {
    ok_->setEnabled(true);
    clearFault();
    ShowFault(*fault_, about, QString::fromStdString(fault));
    makeRoom();
}

void AddressBookDialog::clearFault() {
    ShowFault(*fault_, *ok_, {});
    ShowFault(*fault_, *card_->list(), {});
}

void AddressBookDialog::finish(const contacts::Settings& stored) {
    contacts::SetSettings(stored);
    QDialog::accept();
}

}  // namespace kalmo
