#include "print_dialog/pane_view.h"

#include <QScreen>
#include <QScrollBar>
#include <QVBoxLayout>

#include "print_dialog/widgets.h"
#include "toolbox/host.h"

namespace kalmo {
namespace {

/// What the pane asks for before it has been asked.
constexpr QSize kUsualPane(540, 491);
/// Room that the window's other parts and the desktop's bars take from the screen.
constexpr QSize kAround(420, 200);

/// At least as large as the pane asks for, and larger where its texts are longer: a least size that
/// is set would hide what the contents need.
class Embedder final : public QWidget {
public:
    [[nodiscard]] QSize minimumSizeHint() const override {
        return QWidget::minimumSizeHint().expandedTo(asked_);
    }
    void ask(const QSize& size) {
        asked_ = size;
        updateGeometry();
    }

private:
    QSize asked_;
};

/// As large as its contents; scrolls only where the screen has no room for that.
class ScreenScroll final : public QScrollArea {
public:
    using QScrollArea::QScrollArea;
    [[nodiscard]] QSize sizeHint() const override { return minimumSizeHint(); }
    [[nodiscard]] QSize minimumSizeHint() const override {
        if (!widget()) return kUsualPane;
        const QSize contents = sizeOfContents();
        const QSize room = screen()->availableSize() - kAround;
        const QSize fitting = contents.boundedTo(room);
        const int bar = verticalScrollBar()->sizeHint().width();
        return {fitting.width() + (fitting.height() < contents.height() ? bar : 0),
                fitting.height()};
    }

protected:
    /// Texts that wrap say how high they are only when they know their width.
    [[nodiscard]] QSize sizeOfContents() const {
        const QSize size = widget()->minimumSizeHint();
        return size.expandedTo({0, widget()->heightForWidth(size.width())});
    }

    bool eventFilter(QObject* object, QEvent* event) override {
        const bool handled = QScrollArea::eventFilter(object, event);
        if (object == widget() && event->type() == QEvent::LayoutRequest) updateGeometry();
        return handled;
    }
};

}  // namespace

PaneView::PaneView(QWidget* parent)
    : QWidget(parent), scroll_(new ScreenScroll(this)), reason_(new QLabel(this)) {
    scroll_->setFrameShape(QFrame::NoFrame);
    scroll_->setFocusPolicy(Qt::NoFocus);
    scroll_->hide();
    reason_->setWordWrap(true);
    reason_->setAlignment(Qt::AlignCenter);
    reason_->setMargin(2 * kRowGap);
    reason_->setMinimumWidth(240);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(scroll_);
    layout->addWidget(reason_);
}

ControlRef PaneView::createEmbedder() {
    // The pane keeps its distances to the edges it meets. Those of the room that the pane before
    // left here would add to what it needs; nothing but the pane itself is to be around it.
    scroll_->setWidgetResizable(false);
    embedder_ = new Embedder;
    embedder_->resize(0, 0);
    scroll_->setWidget(embedder_);
    return ControlFromWidget(embedder_);
}

void PaneView::showPane(int width, int height) {
    static_cast<Embedder*>(embedder_)->ask({width, height});
    scroll_->setWidgetResizable(true);
    reason_->hide();
    scroll_->show();
}

void PaneView::showReason(const QString& reason) {
    scroll_->hide();
    reason_->setText(reason);
    reason_->show();
}

}  // namespace kalmo
