#include "print_dialog/destination_choice.h"

#include <QFileDialog>
#include <QHBoxLayout>
#include <QStandardPaths>
#include <QVBoxLayout>
#include <algorithm>

#include "print_dialog/widgets.h"
#include "print_dialog/window_texts.h"

namespace kalmo {
namespace {

Destination FolderDestination() {
    return {Destination::Kind::folder, {}, WindowText("Save to folder"), {}};
}

}  // namespace

DestinationChoice::DestinationChoice(QWidget* parent)
    : QWidget(parent),
      destinations_{FolderDestination()},
      folder_(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation).toStdString()),
      list_(new QComboBox(parent)),
      note_(CreateNoteLabel(this)),
      folderRow_(new QWidget(this)),
      folderName_(CreateNoteLabel(folderRow_)),
      chooseFolder_(new QPushButton(WindowText("Choose folder..."), folderRow_)) {
    list_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    list_->setMinimumContentsLength(22);
    fillList();
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
    connect(list_, &QComboBox::activated, this, [this] {
        status_.clear();
        showCurrent();
        Q_EMIT chosen();
    });
    connect(chooseFolder_, &QPushButton::clicked, this, &DestinationChoice::askForFolder);
    showCurrent();
}

const Destination& DestinationChoice::current() const {
    return destinations_[static_cast<std::size_t>(list_->currentData().toInt())];
}

void DestinationChoice::setQueues(std::vector<Destination> queues, const QString& notice) {
    const Destination before = current();
    destinations_ = std::move(queues);
    destinations_.push_back(FolderDestination());
    notice_ = notice;
    fillList();
    chooseQueue(before.queue);
}

void DestinationChoice::fillList() {
    list_->clear();
    for (const Destination& destination : destinations_) {
        list_->addItem(destination.text, list_->count());
    }
    if (destinations_.size() > 1) list_->insertSeparator(list_->count() - 1);
}

void DestinationChoice::chooseQueue(const std::string& queue) {
    const auto found = std::ranges::find(destinations_, queue, &Destination::queue);
    if (found != destinations_.end()) {
        list_->setCurrentIndex(list_->findData(static_cast<int>(found - destinations_.begin())));
    }
    showCurrent();
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
