// Values and their bounds, for each kind of control that has one.
#include <QAbstractSlider>
#include <QCheckBox>
#include <QComboBox>
#include <QSpinBox>
#include <QTabWidget>
#include <algorithm>
#include <limits>

#include "toolbox/control_state.h"
#include "toolbox/menu_model.h"
#include "toolbox/spin_arrows.h"

using namespace toolbox;

namespace {

struct Bounds {
    SInt32 minimum, maximum;
};

struct ValueKind {
    bool (*fits)(const QWidget& widget);
    SInt32 (*value)(const QWidget& widget);
    /// `value` lies within the bounds.
    void (*setValue)(QWidget& widget, SInt32 value);
    Bounds (*bounds)(const QWidget& widget);
    /// Null: bounds that are set stand beside the widget, in its state.
    void (*setBounds)(QWidget& widget, Bounds bounds);
};

/// Spins, arrows and sliders hold all of it themselves.
template <typename Number>
constexpr ValueKind kNumberKind = {
    [](const QWidget& widget) { return qobject_cast<const Number*>(&widget) != nullptr; },
    [](const QWidget& widget) { return SInt32{static_cast<const Number&>(widget).value()}; },
    [](QWidget& widget, SInt32 value) { static_cast<Number&>(widget).setValue(value); },
    [](const QWidget& widget) {
        const auto& number = static_cast<const Number&>(widget);
        return Bounds{number.minimum(), number.maximum()};
    },
    [](QWidget& widget, Bounds bounds) {
        static_cast<Number&>(widget).setRange(bounds.minimum, bounds.maximum);
    },
};

void ChooseItem(QWidget& widget, SInt32 value) {
    auto& popup = static_cast<QComboBox&>(widget);
    const int row = value - 1;
    const Menu* const menu = MenuOf(popup);
    if (menu && IsSeparator(*menu, row)) return;
    popup.setCurrentIndex(row < popup.count() ? row : -1);
}

constexpr ValueKind kPopupKind = {
    [](const QWidget& widget) {
        const auto* popup = qobject_cast<const QComboBox*>(&widget);
        return popup && !popup->isEditable();
    },
    [](const QWidget& widget) {
        return SInt32{static_cast<const QComboBox&>(widget).currentIndex() + 1};
    },
    ChooseItem,
    [](const QWidget& widget) {
        return Bounds{0, SInt32{static_cast<const QComboBox&>(widget).count()}};
    },
    nullptr,
};

constexpr ValueKind kCheckKind = {
    [](const QWidget& widget) {
        const auto* button = qobject_cast<const QAbstractButton*>(&widget);
        return button && button->isCheckable();
    },
    [](const QWidget& widget) {
        return SInt32{static_cast<const QAbstractButton&>(widget).isChecked()};
    },
    [](QWidget& widget, SInt32 value) {
        static_cast<QAbstractButton&>(widget).setChecked(value > 0);
    },
    [](const QWidget&) {
        return Bounds{0, 1};
    },
    nullptr,
};

constexpr ValueKind kTabsKind = {
    [](const QWidget& widget) { return qobject_cast<const QTabWidget*>(&widget) != nullptr; },
    [](const QWidget& widget) {
        return SInt32{static_cast<const QTabWidget&>(widget).currentIndex() + 1};
    },
    [](QWidget& widget, SInt32 value) {
        static_cast<QTabWidget&>(widget).setCurrentIndex(value - 1);
    },
    [](const QWidget& widget) {
        const int count = static_cast<const QTabWidget&>(widget).count();
        return Bounds{std::min(count, 1), count};
    },
    nullptr,
};

constexpr const ValueKind* kKinds[] = {&kPopupKind,
                                       &kCheckKind,
                                       &kTabsKind,
                                       &kNumberKind<QSpinBox>,
                                       &kNumberKind<SpinArrows>,
                                       &kNumberKind<QAbstractSlider>};

const ValueKind* KindOf(const QWidget* widget) {
    const auto* kind = std::ranges::find_if(
        kKinds, [widget](const ValueKind* row) { return widget && row->fits(*widget); });
    return kind == std::end(kKinds) ? nullptr : *kind;
}

Bounds BoundsOf(const ValueKind& kind, const QWidget& widget) {
    Bounds bounds = kind.bounds(widget);
    if (const ControlState* const state = FindState(widget)) {
        bounds.minimum = state->minimum.value_or(bounds.minimum);
        bounds.maximum = state->maximum.value_or(bounds.maximum);
    }
    return bounds;
}

void SetClamped(const ValueKind& kind, QWidget& widget, SInt32 value) {
    const Bounds bounds = BoundsOf(kind, widget);
    const QSignalBlocker quiet(widget);
    kind.setValue(widget, std::max(bounds.minimum, std::min(value, bounds.maximum)));
}

/// The value follows when it no longer lies within.
void SetBounds(const ValueKind& kind, QWidget& widget, Bounds bounds) {
    if (kind.setBounds) {
        const QSignalBlocker quiet(widget);
        kind.setBounds(widget, bounds);
        return;
    }
    ControlState& state = StateOf(widget);
    state.minimum = bounds.minimum;
    state.maximum = bounds.maximum;
    const SInt32 value = kind.value(widget);
    if (value > bounds.maximum) SetClamped(kind, widget, value);
}

}  // namespace

SInt32 GetControl32BitValue(ControlRef control) {
    const ValueKind* const kind = KindOf(ToWidget(control));
    return kind ? kind->value(*ToWidget(control)) : 0;
}

void SetControl32BitValue(ControlRef control, SInt32 value) {
    if (const ValueKind* const kind = KindOf(ToWidget(control))) {
        SetClamped(*kind, *ToWidget(control), value);
    }
}

SInt32 GetControl32BitMinimum(ControlRef control) {
    const ValueKind* const kind = KindOf(ToWidget(control));
    return kind ? BoundsOf(*kind, *ToWidget(control)).minimum : 0;
}

void SetControl32BitMinimum(ControlRef control, SInt32 minimum) {
    if (const ValueKind* const kind = KindOf(ToWidget(control))) {
        const SInt32 maximum = BoundsOf(*kind, *ToWidget(control)).maximum;
        SetBounds(*kind, *ToWidget(control), {minimum, std::max(minimum, maximum)});
    }
}

SInt32 GetControl32BitMaximum(ControlRef control) {
    const ValueKind* const kind = KindOf(ToWidget(control));
    return kind ? BoundsOf(*kind, *ToWidget(control)).maximum : 0;
}

void SetControl32BitMaximum(ControlRef control, SInt32 maximum) {
    if (const ValueKind* const kind = KindOf(ToWidget(control))) {
        const SInt32 minimum = BoundsOf(*kind, *ToWidget(control)).minimum;
        SetBounds(*kind, *ToWidget(control), {std::min(minimum, maximum), maximum});
    }
}
