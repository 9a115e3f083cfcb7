#include <QAction>
#include <QGuiApplication>
#include <QKeySequence>
#include <QMenu>
#include <QPointer>

#include "toolbox/text_field.h"

namespace toolbox {
namespace {

bool ShowsText(const TextField& field) { return field.echoMode() == QLineEdit::Normal; }

void Edit(TextField& field, char16_t character, void (QLineEdit::*standard)()) {
    field.input(QChar(character), [&field, standard] { (field.*standard)(); });
}

/// The texts are Qt's own, so that its translations serve.
constexpr struct {
    const char* text;  // null: a separator
    QKeySequence::StandardKey key;
    const char* icon;
    bool (*applies)(const TextField& field);
    void (*run)(TextField& field);
} kRows[] = {
    {QT_TRANSLATE_NOOP("QLineEdit", "&Undo"), QKeySequence::Undo, "edit-undo",
     [](const TextField& field) { return field.isUndoAvailable(); },
     [](TextField& field) { Edit(field, 26, &QLineEdit::undo); }},
    {QT_TRANSLATE_NOOP("QLineEdit", "&Redo"), QKeySequence::Redo, "edit-redo",
     [](const TextField& field) { return field.isRedoAvailable(); },
     [](TextField& field) { Edit(field, 26, &QLineEdit::redo); }},
    {},
    {QT_TRANSLATE_NOOP("QLineEdit", "Cu&t"), QKeySequence::Cut, "edit-cut",
     [](const TextField& field) {
         return !field.isReadOnly() && field.hasSelectedText() && ShowsText(field);
     },
     [](TextField& field) { Edit(field, 8, &QLineEdit::cut); }},
    {QT_TRANSLATE_NOOP("QLineEdit", "&Copy"), QKeySequence::Copy, "edit-copy",
     [](const TextField& field) { return field.hasSelectedText() && ShowsText(field); },
     [](TextField& field) { field.copy(); }},
    {QT_TRANSLATE_NOOP("QLineEdit", "&Paste"), QKeySequence::Paste, "edit-paste",
     [](const TextField& field) {
         return !field.isReadOnly() && !QGuiApplication::clipboard()->text().isEmpty();
     },
     [](TextField& field) { field.pasteFrom(QClipboard::Clipboard); }},
    {QT_TRANSLATE_NOOP("QLineEdit", "Delete"), QKeySequence::UnknownKey, "edit-delete",
     [](const TextField& field) { return !field.isReadOnly() && field.hasSelectedText(); },
     [](TextField& field) { Edit(field, 127, &QLineEdit::del); }},
    {},
    {QT_TRANSLATE_NOOP("QLineEdit", "Select All"), QKeySequence::SelectAll, "edit-select-all",
     [](const TextField& field) {
         return !field.text().isEmpty() && field.selectedText() != field.text();
     },
     [](TextField& field) { field.selectAll(); }},
};

QString TextAndKey(const char* text, QKeySequence::StandardKey key) {
    const QString keys = QKeySequence(key).toString(QKeySequence::NativeText);
    return QLineEdit::tr(text) + (keys.isEmpty() ? QString() : u'\t' + keys);
}

}  // namespace

void OpenEditMenu(TextField& field, const QPoint& place) {
    auto* const menu = new QMenu(&field);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const auto& row : kRows) {
        if (!row.text) {
            menu->addSeparator();
            continue;
        }
        QAction* const action = menu->addAction(TextAndKey(row.text, row.key));
        action->setIcon(QIcon::fromTheme(QString::fromLatin1(row.icon)));
        action->setEnabled(row.applies(field));
        QObject::connect(action, &QAction::triggered, &field,
                         [&field, run = row.run] { run(field); });
    }
    menu->popup(place);
}

}  // namespace toolbox
