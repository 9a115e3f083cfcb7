#include "print_dialog/widgets.h"

#include <QAccessible>
#include <QDir>
#include <QEvent>

#include "print_dialog/window_texts.h"

namespace kalmo {
namespace {

const QColor kFaultOnLight(0xb3, 0x26, 0x1e);
const QColor kFaultOnDark(0xff, 0x8f, 0x85);

class TintedLabel final : public QLabel {
public:
    enum class Tint { fault, note };
    TintedLabel(Tint tint, QWidget* parent) : QLabel(parent), tint_(tint) {
        setWordWrap(true);
        setTextFormat(Qt::PlainText);
        takeColor();
    }

protected:
    void changeEvent(QEvent* event) override {
        QLabel::changeEvent(event);
        if (event->type() == QEvent::PaletteChange) takeColor();
    }

private:
    void takeColor() {
        const QPalette around = parentWidget()->palette();
        const QColor text = around.color(QPalette::WindowText);
        const QColor back = around.color(QPalette::Window);
        const QColor mixed((2 * text.red() + back.red()) / 3, (2 * text.green() + back.green()) / 3,
                           (2 * text.blue() + back.blue()) / 3);
        const QColor fault = IsDark(around) ? kFaultOnDark : kFaultOnLight;
        const QColor color = tint_ == Tint::fault ? fault : mixed;
        QPalette own = palette();
        if (own.color(QPalette::WindowText) == color) return;
        own.setColor(QPalette::WindowText, color);
        setPalette(own);
    }

    Tint tint_;
};

}  // namespace

QString ShownPath(const std::filesystem::path& path) {
    const QString text = QString::fromStdString(path.string());
    const QString home = QDir::homePath();
    return text.startsWith(home + '/') ? '~' + text.mid(home.size()) : text;
}

bool IsDark(const QPalette& palette) { return palette.color(QPalette::Window).lightness() < 128; }

QLabel* CreateFaultLabel(QWidget* parent) {
    auto* label = new TintedLabel(TintedLabel::Tint::fault, parent);
    label->hide();
    return label;
}

void ShowFault(QLabel& line, QWidget& field, const QString& fault) {
    line.setText(fault);
    line.setVisible(!fault.isEmpty());
    field.setAccessibleDescription(fault);
    if (fault.isEmpty()) return;
    field.setFocus();
    QAccessibleEvent alert(&line, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

QLabel* CreateNoteLabel(QWidget* parent) {
    return new TintedLabel(TintedLabel::Tint::note, parent);
}

DialogButtons CreateDialogButtons(QDialog& dialog) {
    auto* cancel = new QPushButton(WindowText("Cancel"), &dialog);
    cancel->setAutoDefault(false);
    auto* ok = new QPushButton(WindowText("OK"), &dialog);
    ok->setDefault(true);
    auto* row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(cancel);
    row->addWidget(ok);
    QObject::connect(cancel, &QPushButton::clicked, &dialog, &QDialog::reject);
    QObject::connect(ok, &QPushButton::clicked, &dialog, &QDialog::accept);
    return {row, ok};
}

}  // namespace kalmo
