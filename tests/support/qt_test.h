// What nearly every test with widgets uses.
#pragma once

#include <QtTest>
#include <QtWidgets>

#include "support/modal_driver.h"
#include "support/printer_files.h"
#include "support/test.h"
#include "system/presence.h"
#include "toolbox/host.h"

namespace kalmo::test {

/// As a person does it, so that its owner hears of it.
inline void Pick(QComboBox& popup, const QString& text) {
    popup.setCurrentText(text);
    Q_EMIT popup.activated(popup.currentIndex());
}
/// What the rows of a list say in that column.
inline QStringList RowsOf(const QAbstractItemModel& model, int column = 0) {
    QStringList texts;
    for (int row = 0; row < model.rowCount(); ++row)
        texts << model.index(row, column).data().toString();
    return texts;
}
inline void Activate(QWidget& window) {
    window.show();
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
}
inline bool Wait(const std::function<bool()>& until) { return QTest::qWaitFor(until, 30000); }

}  // namespace kalmo::test
