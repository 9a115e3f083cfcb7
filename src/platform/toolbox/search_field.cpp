#include "toolbox/search_field.h"

#include <QAction>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QStyle>
#include <QToolButton>

namespace toolbox {
namespace {

/// In the color of hints, whatever theme of icons there is.
class MagnifyingGlass final : public QIconEngine {
public:
    void paint(QPainter* painter, const QRect& rect, QIcon::Mode, QIcon::State) override {
        const qreal side = std::min(rect.width(), rect.height());
        QPen pen(QGuiApplication::palette().color(QPalette::PlaceholderText), side / 10);
        pen.setCapStyle(Qt::RoundCap);
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(pen);
        painter->translate(rect.topLeft());
        painter->drawEllipse(QPointF(0.42, 0.42) * side, 0.26 * side, 0.26 * side);
        painter->drawLine(QPointF(0.61, 0.61) * side, QPointF(0.84, 0.84) * side);
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, pixmap.rect(), mode, state);
        return pixmap;
    }
    [[nodiscard]] QIconEngine* clone() const override { return new MagnifyingGlass; }
};

}  // namespace

SearchField::SearchField(QWidget* parent) : TextField(parent) {
    // For those who do not see the picture.
    addAction(QIcon(new MagnifyingGlass), LeadingPosition)
        ->setText(QCoreApplication::translate("QShortcut", "Search"));
    QAction* const clear =
        addAction(style()->standardIcon(QStyle::SP_LineEditClearButton), TrailingPosition);
    clear->setText(QCoreApplication::translate("QLineEdit", "Delete"));
    clear->setVisible(false);
    connect(clear, &QAction::triggered, this, &SearchField::empty);
    connect(this, &QLineEdit::textChanged, clear,
            [clear](const QString& text) { clear->setVisible(!text.isEmpty()); });
    for (auto* button : findChildren<QToolButton*>()) {
        button->setObjectName(QStringLiteral("qt_search_button"));  // an inner part, no view
    }
}

void SearchField::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Escape || text().isEmpty() || isReadOnly()) {
        return TextField::keyPressEvent(event);
    }
    event->accept();
    empty();
}

void SearchField::empty() {
    input(QChar(8), [this] {
        selectAll();
        del();
    });
}

}  // namespace toolbox
