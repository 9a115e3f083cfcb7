#include <QAction>
#include <QGuiApplication>
#include <QKeySequence>
#include <QLineEdit>
#include <QMenu>

#include "toolbox/text_input.h"

namespace toolbox {

/// A command and the input that it is, 0 for one that changes nothing. The texts are Qt's own, so
/// that its translations serve.
struct EditMenuRow {
    using Edit = TextInput::Edit;
    using State = TextInput::State;

    const char* text;  // null: a separator
    QKeySequence::StandardKey key;
    const char* icon;
    Edit command;
    char16_t input;
    bool (*applies)(const State& state);

    void run(TextInput& field) const {
        if (command == Edit::paste) {
            field.pasteFrom(QClipboard::Clipboard);
        } else if (input) {
            field.input(QChar(input), [&field, this] { field.edit(command); });
        } else {
            field.edit(command);
        }
    }

    static const EditMenuRow kRows[9];
};

constexpr EditMenuRow EditMenuRow::kRows[] = {
    {QT_TRANSLATE_NOOP("QLineEdit", "&Undo"), QKeySequence::Undo, "edit-undo", Edit::undo, 26,
     [](const State& state) { return state.canUndo; }},
    {QT_TRANSLATE_NOOP("QLineEdit", "&Redo"), QKeySequence::Redo, "edit-redo", Edit::redo, 26,
     [](const State& state) { return state.canRedo; }},
    {},
    {QT_TRANSLATE_NOOP("QLineEdit", "Cu&t"), QKeySequence::Cut, "edit-cut", Edit::cut, 8,
     [](const State& state) { return !state.isReadOnly && state.canCopy; }},
    {QT_TRANSLATE_NOOP("QLineEdit", "&Copy"), QKeySequence::Copy, "edit-copy", Edit::copy, 0,
     [](const State& state) { return state.canCopy; }},
    {QT_TRANSLATE_NOOP("QLineEdit", "&Paste"), QKeySequence::Paste, "edit-paste", Edit::paste, 0,
     [](const State& state) {
         return !state.isReadOnly && !QGuiApplication::clipboard()->text().isEmpty();
     }},
    {QT_TRANSLATE_NOOP("QLineEdit", "Delete"), QKeySequence::UnknownKey, "edit-delete", Edit::erase,
     127, [](const State& state) { return !state.isReadOnly && state.hasSelection; }},
    {},
    {QT_TRANSLATE_NOOP("QLineEdit", "Select All"), QKeySequence::SelectAll, "edit-select-all",
     Edit::selectAll, 0, [](const State& state) { return state.canSelectMore; }},
};

namespace {

QString TextAndKey(const char* text, QKeySequence::StandardKey key) {
    const QString keys = QKeySequence(key).toString(QKeySequence::NativeText);
    return QLineEdit::tr(text) + (keys.isEmpty() ? QString() : u'\t' + keys);
}

}  // namespace

void TextInput::openEditMenu(const QPoint& place) {
    auto* const menu = new QMenu(&field_);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const EditMenuRow& row : EditMenuRow::kRows) {
        if (!row.text) {
            menu->addSeparator();
            continue;
        }
        QAction* const action = menu->addAction(TextAndKey(row.text, row.key));
        action->setIcon(QIcon::fromTheme(QString::fromLatin1(row.icon)));
        action->setEnabled(row.applies(state()));
        QObject::connect(action, &QAction::triggered, &field_, [this, &row] { row.run(*this); });
    }
    menu->popup(place);
}

}  // namespace toolbox
