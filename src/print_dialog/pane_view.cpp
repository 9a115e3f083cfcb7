#include "print_dialog/pane_view.h"

#include <QVBoxLayout>

#include "print_dialog/widgets.h"
#include "toolbox/host.h"
#include "toolbox/tab_order.h"

namespace kalmo {
namespace {

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

}  // namespace

PaneView::PaneView(QWidget* parent)
    : QWidget(parent), scroll_(new ScreenScroll(this)), reason_(new QLabel(this)) {
    scroll_->hide();
    reason_->setTextFormat(Qt::PlainText);
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
    toolbox::TabOrder(*embedder_).restoreIn(*this);
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
