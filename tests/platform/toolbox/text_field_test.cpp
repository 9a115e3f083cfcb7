// Text fields: what the user would change comes to the handlers first.
#include "interface.h"
#include "toolbox/qt_strings.h"

namespace kalmo::test {
namespace {

void ChooseDelete(QLineEdit& field) {
    QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, {});
    QApplication::sendEvent(&field, &event);
    for (QAction* action : field.findChild<QMenu*>()->actions())
        if (action->text() == "Delete") action->trigger();
    delete field.findChild<QMenu*>();
}

void Drop(QLineEdit& field) {
    QMimeData data;
    data.setText("d\n");
    QDropEvent event({0, 0}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    static_cast<QObject&>(field).event(&event);  // no drag is running
}

void Compose(QLineEdit& field) {
    QInputMethodEvent event("k", {});
    event.setCommitString("ka");
    QApplication::sendEvent(&field, &event);
}

/// A field and a default button; the field's handler calls the rest unless it refuses.
struct TextFields : testing::Test {
    void SetUp() override {
        InstallPresence(WindowPresence());
        ASSERT_EQ(interface.open(), noErr);
        InstallControlEventHandler(interface.control(1), Handle, 2, kTypes, this, nullptr);
        field = interface.widget<QLineEdit>(1);
    }

    static OSStatus Handle(EventHandlerCallRef next, EventRef event, void* data) {
        auto* const self = static_cast<TextFields*>(data);
        if (GetEventClass(event) == kEventClassControl) {
            self->record += GetEventHasFocus(event) ? "+" : "-";
            return eventNotHandledErr;
        }
        self->record += toolbox::ToQString(GetEventText(event));
        if (self->refuses) return noErr;
        EXPECT_EQ(CallNextEventHandler(next, event), noErr);
        self->after = self->field->text();
        return eventNotHandledErr;
    }

    static constexpr EventTypeSpec kTypes[] = {{kEventClassTextInput, kEventTextInput},
                                               {kEventClassControl, kEventControlSetFocusPart}};
    Interface interface {
        WindowFile(WidgetText("QLineEdit", 1) +
                   WidgetText("QPushButton", 2,
                              "<property name=\"default\"><bool>true</bool></property>"))
    };
    QLineEdit* field = nullptr;
    bool refuses = false;
    QString record, after;
};

TEST_F(TextFields, EveryInputComesBeforeItChangesTheText) {
    QGuiApplication::clipboard()->setText("\n1\r\n2\n");
    const std::tuple<QString, QString, void (*)(QLineEdit&)> rows[] = {
        {"1 2", "a1 2c", [](auto& line) { QTest::keySequence(&line, QKeySequence::Paste); }},
        {"\b", "ac", [](auto& line) { QTest::keySequence(&line, QKeySequence::Cut); }},
        {"x", "axc", [](auto& line) { QTest::keyClick(&line, 'x'); }},
        {"\x7f", "ac", ChooseDelete},
        {"d", "dabc", Drop},
        {"ka", "akac", Compose},
    };
    for (const auto& [seen, left, act] : rows) {
        SCOPED_TRACE(seen.toStdString());
        for (const bool refused : {true, false}) {
            refuses = refused;
            field->setText("abc");
            field->setSelection(1, 1);
            record.clear();
            act(*field);
            EXPECT_EQ(record, seen);
            EXPECT_EQ(field->text(), refused ? "abc" : left);
        }
        EXPECT_EQ(after, left) << "done when the rest has been called";
    }
}

TEST_F(TextFields, FocusIsToldOnceAndNotWhenOnlyTheWindowSleeps) {
    SetKeyboardFocus(interface.control(1));
    Activate(*interface.windowWidget());
    QWidget other;
    Activate(other);
    Activate(*interface.windowWidget());
    EXPECT_EQ(record, "+");
    SetKeyboardFocus(interface.control(2));
    SetKeyboardFocus(interface.control(1));
    EXPECT_EQ(record, "+-+");
    Activate(other);
    SetKeyboardFocus(interface.control(2));
    Activate(*interface.windowWidget());
    EXPECT_EQ(record, "+-+-") << "late, but told";
}

}  // namespace
}  // namespace kalmo::test
