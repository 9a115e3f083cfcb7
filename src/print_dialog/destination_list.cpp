#include "print_dialog/destination_list.h"

#include <QSignalBlocker>
#include <algorithm>

namespace kalmo {
namespace {

/// So many printers are all among the few.
constexpr int kFew = 8;

}  // namespace

DestinationList::DestinationList(QWidget* parent) : QComboBox(parent) {
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(22);
    setCurrent(model_.queueCount());
}

void DestinationList::setQueues(std::vector<Destination> queues, const PrinterMarks& marks) {
    model_.setQueues(std::move(queues), marks);
    setCurrent(model_.queueCount());
}

void DestinationList::setCurrent(int destination) {
    const QSignalBlocker quiet(this);
    fill(destination);
    setCurrentIndex(findData(destination));
}

void DestinationList::fill(int current) {
    std::vector<int> few = model_.queueCount() <= kFew ? model_.arranged() : model_.marked();
    const int folder = model_.queueCount();
    for (const int needed : {current, folder}) {
        if (std::ranges::find(few, needed) == few.end()) few.push_back(needed);
    }
    clear();
    for (const int destination : few) {
        addItem(model_.destinations()[destination].text, destination);
    }
    if (count() > 1) insertSeparator(findData(folder));
}

void DestinationList::createPopup() {
    popup_ = std::make_unique<DestinationPopup>(model_, this);
    connect(popup_.get(), &DestinationPopup::marked, this, &DestinationList::marked);
    connect(popup_.get(), &DestinationPopup::chosen, this, [this](int destination) {
        setCurrent(destination);
        Q_EMIT activated(currentIndex());
    });
}

void DestinationList::showPopup() {
    if (!popup_) createPopup();
    popup_->open(*this, current());
    Q_EMIT opened();
}

void DestinationList::hidePopup() {
    if (popup_) popup_->close();
    QComboBox::hidePopup();
}

}  // namespace kalmo
