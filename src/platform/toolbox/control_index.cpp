#include "toolbox/control_index.h"

#include "toolbox/control_state.h"

namespace toolbox {
namespace {

using Index = QHash<quint64, QPointer<QWidget>>;

QHash<const QObject*, Index>& Indexes() {
    static auto& indexes = *new QHash<const QObject*, Index>;
    return indexes;
}

void Forget(const QObject* window) { Indexes().remove(window); }

Index& IndexOf(QWidget& window) {
    if (!Indexes().contains(&window)) {
        QObject::connect(&window, &QObject::destroyed, &Forget);
    }
    return Indexes()[&window];
}

void Enter(Index& index, QWidget& widget) {
    const ControlState* const state = FindState(widget);
    if (state && KeyOf(state->id) != 0 && !index.contains(KeyOf(state->id))) {
        index.insert(KeyOf(state->id), &widget);
    }
}

/// A tree changes in many ways, and a found control can be checked in an instant: so the index is
/// not kept right, it is made anew when it misses.
void Rebuild(Index& index, QWidget& window) {
    index.clear();
    Enter(index, window);
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        if (widget->window() == &window) Enter(index, *widget);
    }
}

QWidget* LookUp(const Index& index, const QWidget& window, quint64 key) {
    QWidget* const found = index.value(key);
    if (!found || found->window() != &window) return nullptr;
    const ControlState* const state = FindState(*found);
    return state && KeyOf(state->id) == key ? found : nullptr;
}

}  // namespace

QWidget* FindControl(QWidget& window, const ControlID& id) {
    Index& index = IndexOf(window);
    if (QWidget* const found = LookUp(index, window, KeyOf(id))) return found;
    Rebuild(index, window);
    return LookUp(index, window, KeyOf(id));
}

}  // namespace toolbox
