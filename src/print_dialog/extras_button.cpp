#include "print_dialog/extras_button.h"

#include <QMenu>
#include <algorithm>

#include "print_dialog/address_book_dialog.h"
#include "print_dialog/window_texts.h"

namespace kalmo {
namespace {

/// The style leaves no room between the text and the arrow of the menu.
constexpr QSize kRoomForArrow(12, 0);

}  // namespace

ExtrasButton::ExtrasButton(QWidget* parent) : QPushButton(WindowText("Extras"), parent) {
    setAutoDefault(false);
    setMenu(new QMenu(this));
    setToolTip(WindowText("Extras tip"));
    addPanel("special-pages", WindowText("Special Pages"));
    addPanel("job-notes", WindowText("Job Notes"));
    menu()->addSeparator();
    connect(menu()->addAction(WindowText("Address book...")), &QAction::triggered, this,
            [this] { AddressBookDialog(window()).exec(); });
}

void ExtrasButton::addPanel(const std::string& panel, const QString& text) {
    QAction* action = menu()->addAction(text);
    action->setCheckable(true);
    connect(action, &QAction::triggered, this, &ExtrasButton::chosen);
    items_.push_back({panel, action});
}

void ExtrasButton::setPanels(const std::vector<std::string>& panels) {
    for (const Item& item : items_) {
        item.action->setChecked(std::ranges::find(panels, item.panel) != panels.end());
    }
}

QSize ExtrasButton::sizeHint() const { return QPushButton::sizeHint() + kRoomForArrow; }

std::vector<std::string> ExtrasButton::panels() const {
    std::vector<std::string> chosenPanels;
    for (const Item& item : items_) {
        if (item.action->isChecked()) chosenPanels.push_back(item.panel);
    }
    return chosenPanels;
}

}  // namespace kalmo
