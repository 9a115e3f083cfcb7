#include "toolbox/combo_field.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QWheelEvent>
#include <algorithm>
#include <iterator>

#include "toolbox/combo_box.h"
#include "toolbox/control_state.h"
#include "toolbox/qt_strings.h"
#include "toolbox/raw_keys.h"

namespace toolbox {
namespace {

constexpr int kShownCharacters = 16;  // no entry makes the field wider

bool OpensList(const QKeyEvent& key) {
    constexpr Qt::Key kKeys[] = {Qt::Key_Up, Qt::Key_Down, Qt::Key_PageUp, Qt::Key_PageDown,
                                 Qt::Key_F4};
    return std::ranges::find(kKeys, key.key()) != std::end(kKeys);
}

/// What stands beside the control, else its own name.
QString LabelOf(QWidget& control) {
    QString name = control.accessibleName();
    QAccessibleInterface* const seen = QAccessible::queryAccessibleInterface(&control);
    for (const auto& relation : seen->relations(QAccessible::Label)) {
        if (name.isEmpty()) name = relation.first->text(QAccessible::Name);
    }
    return name.remove(u'&');
}

}  // namespace

ComboField::ComboField(QWidget* parent) : QComboBox(parent), line_(new TextField(this, *this)) {
    line_->setObjectName(QStringLiteral("qt_combo_line"));  // an inner part, no view
    setEditable(true);
    setLineEdit(line_);
    setCompleter(nullptr);
    setInsertPolicy(NoInsert);
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(kShownCharacters);
    setFocusPolicy(Qt::StrongFocus);
    // Qt would choose an item whose text has been typed.
    disconnect(line_, &QLineEdit::editingFinished, this, nullptr);
}

/// The first item would become the text.
void ComboField::append(const QString& text) {
    const QString shown = line_->text();
    addItem(text);
    if (line_->text() == shown) return;
    setCurrentIndex(-1);
    line_->setText(shown);
}

void ComboField::showPopup() {
    const int row = findText(line_->text(), Qt::MatchFixedString | Qt::MatchCaseSensitive);
    if (row >= 0) setCurrentIndex(row);
    QComboBox::showPopup();
    if (row < 0) view()->selectionModel()->clear();
}

bool ComboField::event(QEvent* event) {
    if (event->type() != QEvent::KeyPress) return QComboBox::event(event);
    SendRawKey(*this, static_cast<QKeyEvent&>(*event), [this, event] { QComboBox::event(event); });
    return true;
}

void ComboField::keyPressEvent(QKeyEvent* event) {
    if (!OpensList(*event)) return QComboBox::keyPressEvent(event);
    const QString text = InputOf(*event);
    if (text.isEmpty()) return showPopup();
    line_->input(text, [this] { showPopup(); });
}

void ComboField::wheelEvent(QWheelEvent* event) { event->ignore(); }

/// The line is what assistive technology finds focused.
void ComboField::showEvent(QShowEvent* event) {
    line_->setAccessibleName(LabelOf(*this));
    QComboBox::showEvent(event);
}

}  // namespace toolbox

using namespace toolbox;

OSStatus AppendComboBoxItem(ControlRef control, CFStringRef text) {
    auto* const combo = qobject_cast<ComboField*>(ToWidget(control));
    if (!combo || !text) return paramErr;
    combo->append(ToQString(text));
    return noErr;
}

UInt16 CountComboBoxItems(ControlRef control) {
    const auto* const combo = qobject_cast<ComboField*>(ToWidget(control));
    return combo ? static_cast<UInt16>(combo->count()) : UInt16{0};
}

CFStringRef CopyComboBoxItem(ControlRef control, UInt16 item) {
    const auto* const combo = qobject_cast<ComboField*>(ToWidget(control));
    if (!combo || item < 1 || item > combo->count()) return nullptr;
    return CreateString(combo->itemText(item - 1));
}
