#include "toolbox/tab_order.h"

#include <algorithm>

namespace toolbox {
namespace {

/// Everything in the window but inner parts, which follow the control that they answer for. Views
/// that Tab passes over count too: what comes into them later starts from their place.
template <typename Visit>
void FollowTab(QWidget& window, const Visit& visit) {
    for (QWidget* widget = window.nextInFocusChain(); widget && widget != &window;
         widget = widget->nextInFocusChain()) {
        if (!widget->focusProxy()) visit(*widget);
    }
}

/// Qt orders only what takes the focus; so for this moment the widget does.
class Focusable final {
public:
    explicit Focusable(QWidget& widget) : widget_(widget), policy_(widget.focusPolicy()) {
        widget.setFocusPolicy(Qt::StrongFocus);
    }
    ~Focusable() { widget_.setFocusPolicy(policy_); }
    Focusable(const Focusable&) = delete;
    Focusable& operator=(const Focusable&) = delete;

private:
    QWidget& widget_;
    Qt::FocusPolicy policy_;
};

void PutBehind(QWidget& before, QWidget& widget) {
    const Focusable first(before), second(widget);
    QWidget::setTabOrder(&before, &widget);
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
        PutBehind(*before, *widget);
        before = widget;
    }
}

}  // namespace toolbox
