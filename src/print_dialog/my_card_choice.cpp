#include "print_dialog/my_card_choice.h"

#include <QLabel>
#include <QVBoxLayout>
#include <algorithm>

#include "contacts/collation.h"
#include "print_dialog/window_texts.h"

namespace kalmo {
namespace {

constexpr int kShownRows = 6;

}  // namespace

void PeopleModel::setContents(std::shared_ptr<const AddressBookContents> contents) {
    contents_ = std::move(contents);
    fill();
}

void PeopleModel::search(const QString& text) {
    searched_ = contacts::Folded(text.trimmed().toStdString());
    fill();
}

void PeopleModel::fill() {
    beginResetModel();
    shown_.clear();
    const std::size_t count = contents_ ? contents_->people.size() : 0;
    for (std::size_t i = 0; i < count; ++i) {
        if (contents_->people[i].folded.find(searched_) != std::string::npos) shown_.push_back(i);
    }
    endResetModel();
}

const ListedPerson& PeopleModel::personAt(int row) const {
    return contents_->people[shown_[static_cast<std::size_t>(row - 1)]];
}

std::string PeopleModel::uidAt(int row) const {
    return row < 1 ? std::string() : personAt(row).uid;
}

int PeopleModel::rowOf(const std::string& uid) const {
    if (uid.empty()) return 0;
    const auto found = std::ranges::find(
        shown_, uid, [this](std::size_t person) { return contents_->people[person].uid; });
    return found == shown_.end() ? -1 : static_cast<int>(found - shown_.begin()) + 1;
}

int PeopleModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() || !contents_ ? 0 : static_cast<int>(shown_.size()) + 1;
}

QVariant PeopleModel::data(const QModelIndex& index, int role) const {
    if (role != Qt::DisplayRole || !index.isValid()) return {};
    if (index.row() == 0) return WindowText("No card");
    return QString::fromStdString(personAt(index.row()).name);
}

MyCardChoice::MyCardChoice(QWidget* parent)
    : QWidget(parent),
      field_(new QLineEdit(this)),
      model_(new PeopleModel(this)),
      list_(new QListView(this)) {
    auto* label = new QLabel(WindowText("Address book search:"), this);
    label->setBuddy(field_);
    list_->setModel(model_);
    list_->setUniformItemSizes(true);
    list_->setAccessibleName(WindowText("My card"));
    list_->setMinimumHeight(kShownRows * (list_->fontMetrics().height() + 2));
    auto* search = new QHBoxLayout;
    search->addWidget(label);
    search->addWidget(field_, 1);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addLayout(search);
    column->addWidget(list_, 1);
    connect(field_, &QLineEdit::textChanged, this, &MyCardChoice::search);
    connect(list_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &MyCardChoice::takeSelection);
    setEnabled(false);
}

void MyCardChoice::setContents(std::shared_ptr<const AddressBookContents> contents) {
    setEnabled(contents != nullptr);
    chosen_ = contents ? contents->me : std::string();
    model_->setContents(std::move(contents));
    showChosen();
}

void MyCardChoice::search(const QString& text) {
    model_->search(text);
    showChosen();
}

void MyCardChoice::takeSelection() {
    // Nothing is selected while the chosen person is not among those found: the choice stays.
    const QModelIndexList selected = list_->selectionModel()->selectedIndexes();
    if (!selected.isEmpty()) chosen_ = model_->uidAt(selected.front().row());
}

void MyCardChoice::showChosen() {
    const QModelIndex index = model_->index(model_->rowOf(chosen_), 0);
    if (!index.isValid()) return;
    list_->setCurrentIndex(index);
    list_->scrollTo(index, QAbstractItemView::PositionAtCenter);
}

}  // namespace kalmo
