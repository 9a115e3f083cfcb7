#include "support/shown_texts.h"

#include <QtWidgets>

namespace kalmo::test {
namespace {

/// Rows of `model` below `parent`, and those below them.
void AddItems(const QAbstractItemModel& model, const QModelIndex& parent, QStringList& texts) {
    for (int row = 0; row < model.rowCount(parent); ++row) {
        for (int column = 0; column < model.columnCount(parent); ++column) {
            const QModelIndex item = model.index(row, column, parent);
            texts << item.data(Qt::DisplayRole).toString() << item.data(Qt::ToolTipRole).toString()
                  << item.data(Qt::AccessibleTextRole).toString();
            AddItems(model, item, texts);
        }
    }
}

QStringList TextsOfActions(const QWidget& widget) {
    QStringList texts;
    for (const QAction* action : widget.actions()) texts << action->text() << action->toolTip();
    return texts;
}

QStringList TextsOfView(const QAbstractItemView& view) {
    QStringList texts;
    if (!view.model()) return texts;
    AddItems(*view.model(), {}, texts);
    const auto* const tree = qobject_cast<const QTreeView*>(&view);
    const bool hasColumns = tree ? !tree->isHeaderHidden() : view.inherits("QTableView");
    for (int column = 0; hasColumns && column < view.model()->columnCount(); ++column)
        texts << view.model()->headerData(column, Qt::Horizontal).toString();
    return texts;
}

/// What the kind of widget adds to what every widget has.
QStringList OwnTexts(const QWidget& widget) {
    if (const auto* label = qobject_cast<const QLabel*>(&widget)) return {label->text()};
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) return {button->text()};
    if (const auto* box = qobject_cast<const QGroupBox*>(&widget)) return {box->title()};
    if (const auto* line = qobject_cast<const QLineEdit*>(&widget))
        return {line->placeholderText()};
    if (const auto* area = qobject_cast<const QPlainTextEdit*>(&widget))
        return {area->placeholderText()};
    if (const auto* spin = qobject_cast<const QSpinBox*>(&widget))
        return {spin->prefix(), spin->suffix(), spin->specialValueText()};
    if (const auto* view = qobject_cast<const QAbstractItemView*>(&widget))
        return TextsOfView(*view);
    QStringList texts;
    if (const auto* combo = qobject_cast<const QComboBox*>(&widget)) {
        AddItems(*combo->model(), {}, texts);
        texts << combo->placeholderText();
    }
    if (const auto* tabs = qobject_cast<const QTabBar*>(&widget)) {
        for (int tab = 0; tab < tabs->count(); ++tab)
            texts << tabs->tabText(tab) << tabs->tabToolTip(tab);
    }
    return texts;
}

}  // namespace

std::vector<ShownText> ShownTexts(QWidget& window) {
    std::vector<ShownText> shown{{"title", window.windowTitle()}};
    QList<QWidget*> widgets = window.findChildren<QWidget*>();
    widgets.prepend(&window);
    for (const QWidget* widget : widgets) {
        // The list of a popup shows the popup's items.
        if (widget->parent() && widget->parent()->inherits("QComboBoxPrivateContainer")) continue;
        const auto where =
            (QString(widget->metaObject()->className()) + " " + widget->objectName()).toStdString();
        const QStringList texts =
            QStringList{widget->toolTip(), widget->statusTip(), widget->whatsThis(),
                        widget->accessibleName(), widget->accessibleDescription()} +
            OwnTexts(*widget) + TextsOfActions(*widget);
        for (const QString& text : texts)
            if (!text.trimmed().isEmpty()) shown.push_back({where, text});
    }
    return shown;
}

}  // namespace kalmo::test
