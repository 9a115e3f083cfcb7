#include "toolbox/tab_order.h"

#include <algorithm>

namespace toolbox {
namespace {

/// Inner parts of a control stand behind the control that they answer for.
bool TakesTab(const QWidget& widget) {
    return widget.focusPolicy() & Qt::TabFocus && !widget.focusProxy();
}

template <typename Visit>
void FollowTab(QWidget& window, const Visit& visit) {
    for (QWidget* widget = window.nextInFocusChain(); widget && widget != &window;
         widget = widget->nextInFocusChain()) {
        if (TakesTab(*widget)) visit(*widget);
    }
}

}  // namespace

TabOrder::TabOrder(QWidget& branch) {
    FollowTab(*branch.window(), [&](QWidget& widget) {
        if (&widget == &branch || branch.isAncestorOf(&widget)) order_.emplace_back(&widget);
    });
}

void TabOrder::restoreIn(QWidget& parent) const {
    QWidget* before = &parent;
    FollowTab(*parent.window(), [&](QWidget& widget) {
        const bool isMoved = std::find(order_.begin(), order_.end(), &widget) != order_.end();
        if (!isMoved && parent.isAncestorOf(&widget)) before = &widget;
    });
    for (const QPointer<QWidget>& widget : order_) {
        if (!widget || widget->window() != parent.window()) continue;
        QWidget::setTabOrder(before, widget);
        before = widget;
    }
}

}  // namespace toolbox
