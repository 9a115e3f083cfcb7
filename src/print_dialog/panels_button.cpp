#include "print_dialog/panels_button.h"

#include <QMenu>
#include <algorithm>

#include "print_dialog/window_texts.h"

namespace kalmo {
namespace {

/// The style leaves no room between the text and the arrow of the menu.
constexpr QSize kRoomForArrow(12, 0);

}  // namespace

PanelsButton::PanelsButton(QWidget* parent) : QPushButton(WindowText("Panels"), parent) {
    setAutoDefault(false);
    setMenu(new QMenu(this));
    setToolTip(WindowText("Panels tip"));
    addPanel("special-pages", WindowText("Special Pages"));
    addPanel("job-notes", WindowText("Job Notes"));
}

void PanelsButton::addPanel(const std::string& panel, const QString& text) {
    QAction* action = menu()->addAction(text);
    action->setCheckable(true);
    connect(action, &QAction::triggered, this, &PanelsButton::chosen);
    items_.push_back({panel, action});
}

void PanelsButton::setPanels(const std::vector<std::string>& panels) {
    for (const Item& item : items_) {
        item.action->setChecked(std::ranges::find(panels, item.panel) != panels.end());
    }
}

QSize PanelsButton::sizeHint() const { return QPushButton::sizeHint() + kRoomForArrow; }

std::vector<std::string> PanelsButton::panels() const {
    std::vector<std::string> chosenPanels;
    for (const Item& item : items_) {
        if (item.action->isChecked()) chosenPanels.push_back(item.panel);
    }
    return chosenPanels;
}

}  // namespace kalmo
