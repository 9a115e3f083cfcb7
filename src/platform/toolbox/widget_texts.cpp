#include "toolbox/widget_texts.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QRegularExpression>
#include <QTabWidget>
#include <cstdio>

#include "toolbox/control_state.h"
#include "toolbox/qt_strings.h"
#include "toolbox/text_area.h"

namespace toolbox {
namespace {

QString TextForKey(CFBundleRef bundle, const QString& key, const QString& table) {
    const auto keyRef = Owned<CFStringRef>::Adopt(CreateString(key));
    const auto tableRef = Owned<CFStringRef>::Adopt(CreateString(table));
    // A value that no table holds tells a missing key from a text that equals its key.
    const CFStringRef missing = CFSTR("\x1amissing\x1a");
    const auto text =
        Owned<CFStringRef>::Adopt(CFBundleCopyLocalizedString(bundle, keyRef, missing, tableRef));
    if (text && !CFEqual(text, missing)) return ToQString(text);
    std::fprintf(stderr, "No text for %s in %s.strings\n", qUtf8Printable(key),
                 qUtf8Printable(table));
    return QStringLiteral("STRING NOT FOUND");
}

void SetTip(QWidget& widget, const QString& text) { widget.setToolTip(AsPlainText(text)); }

/// A label's text may serve as the name of what it stands beside: without the mark of its mnemonic,
/// which languages of other scripts add as a letter in parentheses.
void SetName(QWidget& widget, const QString& text) {
    static const QRegularExpression mark(QStringLiteral("\\(&.\\)|&(.)"));
    widget.setAccessibleName(QString(text).replace(mark, QStringLiteral("\\1")));
}

constexpr struct {
    const char* property;
    void (*apply)(QWidget& widget, const QString& text);
} kTextProperties[] = {{"textKey", SetOwnText}, {"nameKey", SetName}, {"tipKey", SetTip}};

}  // namespace

void SetOwnText(QWidget& widget, const QString& text) {
    if (auto* button = qobject_cast<QAbstractButton*>(&widget)) {
        button->setText(text);
    } else if (auto* label = qobject_cast<QLabel*>(&widget)) {
        label->setText(text);
    } else if (auto* box = qobject_cast<QGroupBox*>(&widget)) {
        box->setTitle(text);
    } else if (QLineEdit* line = LineOf(widget)) {
        line->setText(text);
    } else if (auto* area = qobject_cast<TextArea*>(&widget)) {
        area->setText(text);
    } else if (QTabWidget* tabs = TabsOf(widget)) {
        tabs->setTabText(tabs->indexOf(&widget), text);
    } else if (widget.isWindow()) {
        widget.setWindowTitle(text);
    }
}

QString OwnText(const QWidget& widget) {
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) return button->text();
    if (const auto* label = qobject_cast<const QLabel*>(&widget)) return label->text();
    if (const auto* box = qobject_cast<const QGroupBox*>(&widget)) return box->title();
    if (const QLineEdit* line = LineOf(widget)) return line->text();
    if (const auto* area = qobject_cast<const TextArea*>(&widget)) return area->text();
    if (const auto* tabs = TabsOf(widget)) return tabs->tabText(tabs->indexOf(&widget));
    return widget.isWindow() ? widget.windowTitle() : QString();
}

QLineEdit* LineOf(const QWidget& widget) {
    const auto* const combo = qobject_cast<const QComboBox*>(&widget);
    if (combo) return combo->lineEdit();
    return const_cast<QLineEdit*>(qobject_cast<const QLineEdit*>(&widget));
}

void ApplyTexts(QWidget& widget, CFBundleRef bundle) {
    const QString named = widget.property("textTable").toString();
    const QString table = named.isEmpty() ? QStringLiteral("Localizable") : named;
    for (const auto& row : kTextProperties) {
        const QString key = widget.property(row.property).toString();
        if (!key.isEmpty()) row.apply(widget, TextForKey(bundle, key, table));
    }
}

}  // namespace toolbox
