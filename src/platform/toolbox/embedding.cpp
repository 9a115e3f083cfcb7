// Where controls stand: bounds, parents, panes.
#include <QLabel>
#include <QLayout>
#include <algorithm>

#include "toolbox/control_state.h"
#include "toolbox/controls.h"
#include "toolbox/pane_layouts.h"
#include "toolbox/qt_strings.h"
#include "toolbox/tab_order.h"
#include "toolbox/user_pane.h"

using namespace toolbox;

namespace {

QRect ToQRect(const Rect& bounds) {
    return {bounds.left, bounds.top, std::max(0, bounds.right - bounds.left),
            std::max(0, bounds.bottom - bounds.top)};
}

/// Qt hides a widget that changes its parent, and forgets its place.
void MoveInto(QWidget& view, QWidget& parent, const QRect& place) {
    const bool shown = IsShown(view);
    view.setParent(&parent);
    view.setGeometry(place);
    view.setVisible(shown);
}

/// Views that lay themselves out are rows of the pane's column; others stay where they were drawn.
void MoveSubview(QWidget& view, QWidget& pane, int top) {
    const QRect place = view.geometry().translated(0, top);
    MoveInto(view, pane, place);
    if (!pane.layout() && view.layout()) new SectionColumn(&pane);
    if (auto* const column = dynamic_cast<SectionColumn*>(pane.layout()); column && view.layout()) {
        column->append(view, place);
    } else {
        pane.setMinimumSize(pane.minimumSize().expandedTo({place.right() + 1, place.bottom() + 1}));
    }
}

/// A parent that lays out what it holds takes the child in; else panes are anchored and other
/// controls stay at their bounds.
void PlaceIn(QWidget& child, QWidget& parent) {
    if (qobject_cast<UserPane*>(&child) && !parent.layout()) new AnchorLayout(&parent);
    auto* const anchors = dynamic_cast<AnchorLayout*>(parent.layout());
    if (!anchors && parent.layout()) {
        parent.layout()->addWidget(&child);
    } else if (anchors && qobject_cast<UserPane*>(&child)) {
        anchors->anchor(child);
    }
}

ControlRef FirstOf(const std::vector<QWidget*>& views, std::size_t index) {
    return index < views.size() ? ToControl(views[index]) : nullptr;
}

}  // namespace

void GetControlBounds(ControlRef control, Rect* bounds) {
    if (!bounds) return;
    QWidget* const widget = ToWidget(control);
    if (!widget) {
        *bounds = {};
        return;
    }
    const QRect place = widget->isWindow() ? widget->rect() : widget->geometry();
    *bounds = {place.top(), place.left(), place.top() + place.height(),
               place.left() + place.width()};
}

void SetControlBounds(ControlRef control, const Rect& bounds) {
    QWidget* const widget = ToWidget(control);
    if (!widget) return;
    const QRect place = ToQRect(bounds);
    widget->isWindow() ? widget->resize(place.size()) : widget->setGeometry(place);
}

void GetBestControlSize(ControlRef control, SInt32* width, SInt32* height) {
    QSize best(0, 0);
    if (QWidget* const widget = ToWidget(control)) {
        widget->ensurePolished();
        best = widget->sizeHint().expandedTo(widget->minimumSizeHint());
        best = best.expandedTo(widget->minimumSize());
    }
    if (width) *width = best.width();
    if (height) *height = best.height();
}

OSStatus EmbedControl(ControlRef child, ControlRef parent) {
    QWidget* const view = ToWidget(child);
    QWidget* const container = ToWidget(parent);
    if (!view || !container || view == container || view->isAncestorOf(container)) return paramErr;
    const TabOrder order(*view);
    MoveInto(*view, *container, view->geometry());
    PlaceIn(*view, *container);
    order.restoreIn(*container);
    return noErr;
}

ControlRef GetFirstSubcontrol(ControlRef control) {
    QWidget* const widget = ToWidget(control);
    return widget ? FirstOf(Subviews(*widget), 0) : nullptr;
}

ControlRef GetNextSibling(ControlRef control) {
    QWidget* const widget = ToWidget(control);
    if (!widget || widget->isWindow()) return nullptr;
    const QWidget* const tabs = TabsOf(*widget);
    const std::vector<QWidget*> sisters = Subviews(tabs ? *tabs : *widget->parentWidget());
    const auto place = std::ranges::find(sisters, widget);
    return FirstOf(sisters, static_cast<std::size_t>(place - sisters.begin()) + 1);
}

OSStatus CreateUserPaneControl(WindowRef window, const Rect& bounds, ControlRef* pane) {
    QWidget* const content = ToWidget(GetWindowContentView(window));
    if (!content || !pane) return paramErr;
    auto* const view = new UserPane(content);
    view->setGeometry(ToQRect(bounds));
    view->show();
    *pane = ToControl(view);
    return noErr;
}

OSStatus CreateStaticTextControl(WindowRef window, const Rect& bounds, CFStringRef text,
                                 ControlRef* control) {
    QWidget* const content = ToWidget(GetWindowContentView(window));
    if (!content || !control) return paramErr;
    auto* const label = new QLabel(ToQString(text), content);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setGeometry(ToQRect(bounds));
    label->show();
    *control = ToControl(label);
    return noErr;
}

OSStatus MoveSubviewsToPane(ControlRef section, ControlRef pane, SInt32 top) {
    QWidget* const from = ToWidget(section);
    QWidget* const into = ToWidget(pane);
    if (!from || !into || from == into || from->isAncestorOf(into)) return paramErr;
    const TabOrder order(*from);
    for (QWidget* view : Subviews(*from)) MoveSubview(*view, *into, top);
    order.restoreIn(*into);
    return noErr;
}
