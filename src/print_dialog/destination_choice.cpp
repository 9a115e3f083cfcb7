#include "print_dialog/destination_choice.h"

#include <QFileDialog>
#include <QHBoxLayout>
#include <QStandardPaths>
#include <QVBoxLayout>
#include <algorithm>

#include "print_dialog/widgets.h"
#include "print_dialog/window_texts.h"

namespace kalmo {
DestinationChoice::DestinationChoice(QWidget* parent)
    : QWidget(parent),
      folder_(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation).toStdString()),
      list_(new DestinationList(parent)),
      note_(CreateNoteLabel(this)),
      folderRow_(new QWidget(this)),
      folderName_(CreateNoteLabel(folderRow_)),
      chooseFolder_(new QPushButton(WindowText("Choose folder..."), folderRow_)) {
    chooseFolder_->setAutoDefault(false);
    auto* row = new QHBoxLayout(folderRow_);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(folderName_, 1);
    row->addWidget(chooseFolder_);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(4);
    column->addWidget(folderRow_);
    column->addWidget(note_);
    connect(list_, &DestinationList::opened, this, &DestinationChoice::opened);
    connect(list_, &DestinationList::marked, this, &DestinationChoice::remember);
    connect(list_, &QComboBox::activated, this, [this] {
        status_.clear();
        showCurrent();
        Q_EMIT chosen();
    });
    connect(chooseFolder_, &QPushButton::clicked, this, &DestinationChoice::askForFolder);
    showCurrent();
}

const Destination& DestinationChoice::current() const {
    return destinations()[static_cast<std::size_t>(list_->current())];
}

void DestinationChoice::setQueues(std::vector<Destination> queues, const QString& notice) {
    const Destination before = current();
    list_->setQueues(std::move(queues), RememberedPrinters());
    notice_ = notice;
    chooseQueue(before.queue);
}

void DestinationChoice::chooseQueue(const std::string& queue) {
    const auto found = std::ranges::find(destinations(), queue, &Destination::queue);
    if (found != destinations().end()) {
        list_->setCurrent(static_cast<int>(found - destinations().begin()));
    }
    showCurrent();
}

void DestinationChoice::remember(const std::string& queue, bool isFavorite) {
    const auto outcome = RememberFavorite(queue, isFavorite);
    if (!outcome) setStatus(QString::fromStdString(outcome.error));
}

void DestinationChoice::setFolder(const std::filesystem::path& folder) {
    folder_ = folder;
    showCurrent();
}

void DestinationChoice::setFolderNote(const QString& note) {
    folderNote_ = note;
    showCurrent();
}

void DestinationChoice::setStatus(const QString& status) {
    status_ = status;
    showCurrent();
}

void DestinationChoice::showCurrent() {
    const bool isFolder = current().kind == Destination::Kind::folder;
    folderRow_->setVisible(isFolder);
    folderName_->setText(ShownPath(folder_));
    QStringList lines{status_.isEmpty() ? current().status : status_};
    if (isFolder) lines = {folderNote_, status_.isEmpty() ? notice_ : status_};
    lines.removeAll(QString());
    note_->setText(lines.join('\n'));
    note_->setVisible(!note_->text().isEmpty());
    setVisible(isFolder || !note_->text().isEmpty());
    list_->setAccessibleDescription(note_->text());
}

void DestinationChoice::askForFolder() {
    const QString chosenFolder = QFileDialog::getExistingDirectory(
        this, WindowText("Choose folder title"), QString::fromStdString(folder_.string()));
    if (!chosenFolder.isEmpty()) setFolder(chosenFolder.toStdString());
}

}  // namespace kalmo
