#include "toolbox/control_state.h"

#include <QAbstractSlider>
#include <QCheckBox>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QPushButton>
#include <QSpinBox>
#include <unordered_map>

#include "toolbox/color_well.h"
#include "toolbox/event_way.h"
#include "toolbox/menu_button.h"
#include "toolbox/menu_model.h"

namespace toolbox {
namespace {

using States = std::unordered_map<const QObject*, ControlState>;

// Never destroyed: widgets may outlive every static object.
States& AllStates() {
    static auto& states = *new States;
    return states;
}

void ReportUserChanges(QWidget& widget) {
    const auto report = [control = &widget] { UserChanged(*control); };
    if (auto* popup = qobject_cast<QComboBox*>(&widget)) {
        if (!popup->isEditable()) GiveMenu(*popup);
        QObject::connect(popup, &QComboBox::activated, popup, report);
    } else if (qobject_cast<MenuButton*>(&widget)) {
        return;  // its menu reports
    } else if (auto* well = qobject_cast<ColorWell*>(&widget)) {
        QObject::connect(well, &ColorWell::colorChosen, well, report);
    } else if (auto* button = qobject_cast<QAbstractButton*>(&widget)) {
        QObject::connect(button, &QAbstractButton::clicked, button, report);
    } else if (auto* spin = qobject_cast<QSpinBox*>(&widget)) {
        QObject::connect(spin, &QSpinBox::valueChanged, spin, report);
    } else if (auto* date = qobject_cast<QDateTimeEdit*>(&widget)) {
        QObject::connect(date, &QDateTimeEdit::dateTimeChanged, date, report);
    } else if (auto* tabs = qobject_cast<QTabWidget*>(&widget)) {
        QObject::connect(tabs, &QTabWidget::currentChanged, tabs, report);
    } else if (auto* slider = qobject_cast<QAbstractSlider*>(&widget)) {
        QObject::connect(slider, &QAbstractSlider::valueChanged, slider, [slider, report] {
            const QPointer<QWidget> alive = slider;
            CallAction(*slider, kControlIndicatorPart);
            if (alive) report();
        });
    }
}

void Forget(const QObject* widget) {
    const auto state = AllStates().find(widget);
    if (state == AllStates().end()) return;
    EndHandlers(state->second);
    AllStates().erase(state);
}

}  // namespace

ControlState& StateOf(QWidget& widget) {
    const auto [state, isNew] = AllStates().try_emplace(&widget);
    if (isNew) {
        QObject::connect(&widget, &QObject::destroyed, &Forget);
        ReportUserChanges(widget);
    }
    return state->second;
}

ControlState* FindState(const QWidget& widget) {
    const auto state = AllStates().find(&widget);
    return state == AllStates().end() ? nullptr : &state->second;
}

void EndHandlers(ControlState& state) {
    for (const auto& handler : state.handlers) handler->proc = nullptr;
    state.handlers.clear();
}

QTabWidget* TabsOf(const QWidget& page) {
    const QWidget* const stack = page.parentWidget();
    auto* const tabs = qobject_cast<QTabWidget*>(stack ? stack->parentWidget() : nullptr);
    return tabs && tabs->indexOf(&page) >= 0 ? tabs : nullptr;
}

std::vector<QWidget*> Subviews(const QWidget& widget) {
    std::vector<QWidget*> views;
    if (const auto* tabs = qobject_cast<const QTabWidget*>(&widget)) {
        for (int page = 0; page < tabs->count(); ++page) views.push_back(tabs->widget(page));
        return views;
    }
    for (QObject* child : widget.children()) {
        auto* view = qobject_cast<QWidget*>(child);
        if (view && !view->isWindow() && !view->objectName().startsWith("qt_")) {
            views.push_back(view);
        }
    }
    return views;
}

}  // namespace toolbox
