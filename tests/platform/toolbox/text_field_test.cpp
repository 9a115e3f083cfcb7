// Text fields: what the user would change comes to the handlers first.
#include <QClipboard>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QTest>

#include "interface.h"
#include "support/modal_driver.h"
#include "toolbox/qt_strings.h"

namespace kalmo::test {
namespace {

constexpr EventTypeSpec kInput = {kEventClassTextInput, kEventTextInput};
constexpr EventTypeSpec kFocus = {kEventClassControl, kEventControlSetFocusPart};

void ChooseInMenu(QLineEdit& field, const QString& text) {
    QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, {});
    QApplication::sendEvent(&field, &event);
    auto* const menu = field.findChild<QMenu*>();
    for (QAction* action : menu->actions()) {
        if (action->text().startsWith(text)) action->trigger();
    }
    delete menu;
}

/// A dialog with a field and a default button; a handler at the field that notes the input and
/// either calls the rest or answers itself.
class TextFields : public testing::Test {
protected:
    void SetUp() override {
        InstallPresence(WindowPresence());
        ASSERT_EQ(interface.open(), noErr);
        InstallControlEventHandler(interface.control(1), Handle, 1, &kInput, this, nullptr);
        field = interface.widget<QLineEdit>(1);
    }
    void TearDown() override { InstallPresence(UnattendedPresence()); }

    static OSStatus Handle(EventHandlerCallRef next, EventRef event, void* data) {
        auto* const self = static_cast<TextFields*>(data);
        self->seen = toolbox::ToQString(GetEventText(event));
        EXPECT_EQ(GetEventTextByteSize(event), self->seen.size() * 2);
        self->before = self->field->text();
        if (self->refuses(self->seen)) return noErr;
        const OSStatus rest = self->callsRest ? CallNextEventHandler(next, event) : noErr;
        EXPECT_EQ(rest, noErr);
        self->after = self->field->text();
        return eventNotHandledErr;
    }

    void reset() {
        field->setText("abc");
        SetControlTextSelection(interface.control(1), {1, 1});
        seen.clear();
    }

    Interface interface {
        WindowFile(WidgetText("QLineEdit", 1) +
                   WidgetText("QPushButton", 2,
                              "<property name=\"default\"><bool>true</bool></property>") +
                   WidgetText("QLineEdit", 3))
    };
    QLineEdit* field = nullptr;
    std::function<bool(const QString&)> refuses = [](const QString&) { return false; };
    bool callsRest = true;
    QString seen, before, after;
};

TEST_F(TextFields, EveryInputComesBeforeItChangesTheText) {
    QGuiApplication::clipboard()->setText("\n1\r\n2\n");
    const struct {
        const char* why;
        std::function<void(QLineEdit&)> act;
        QString seen, after;
    } rows[] = {
        {"key", [](auto& line) { QTest::keyClick(&line, 'x'); }, "x", "axc"},
        {"Backspace", [](auto& line) { QTest::keyClick(&line, Qt::Key_Backspace); }, "\b", "ac"},
        {"Delete", [](auto& line) { QTest::keyClick(&line, Qt::Key_Delete); }, "\x7f", "ac"},
        {"Up", [](auto& line) { QTest::keyClick(&line, Qt::Key_Up); }, "\x1e", "abc"},
        {"paste", [](auto& line) { QTest::keySequence(&line, QKeySequence::Paste); }, "1 2",
         "a1 2c"},
        {"undo",
         [](auto& line) {
             line.del();
             QTest::keySequence(&line, QKeySequence::Undo);
         },
         "\x1a", "abc"},
        {"menu's paste", [](auto& line) { ChooseInMenu(line, "&Paste"); }, "1 2", "a1 2c"},
        {"menu's delete", [](auto& line) { ChooseInMenu(line, "Delete"); }, "\x7f", "ac"},
        {"drop",
         [](auto& line) {
             QMimeData data;
             data.setText("d\n");
             QDropEvent event({0, 0}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
             static_cast<QObject&>(line).event(&event);  // no drag is running
         },
         "d", "dabc"},
        {"input method",
         [](auto& line) {
             QInputMethodEvent event("k", {});
             event.setCommitString(QString::fromUtf8("か"));
             QApplication::sendEvent(&line, &event);
         },
         QString::fromUtf8("か"), QString::fromUtf8("aかc")},
        {"the pieces of a composition",
         [](auto& line) {
             QInputMethodEvent event("k", {});
             QApplication::sendEvent(&line, &event);
         },
         "\b", "ac"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        for (const bool rest : {true, false}) {
            callsRest = rest;
            reset();
            row.act(*field);
            EXPECT_EQ(seen, row.seen);
            EXPECT_EQ(field->text(), row.after);
            EXPECT_EQ(after, rest ? row.after : before) << "at the end of the call";
        }
        refuses = [](const QString&) { return true; };
        reset();
        row.act(*field);
        EXPECT_EQ(field->text(), before);
        refuses = [](const QString&) { return false; };
    }
    // Cutting goes last: it changes the clipboard.
    reset();
    QTest::keySequence(field, QKeySequence::Cut);
    EXPECT_EQ(seen, "\b");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "b");
}

TEST_F(TextFields, HandlerMayLimitTheLength) {
    refuses = [this](const QString& text) {
        const CFRange selection = GetControlTextSelection(interface.control(1));
        return field->text().size() + text.size() - selection.length > 4;
    };
    reset();
    QGuiApplication::clipboard()->setText("1234");
    QTest::keySequence(field, QKeySequence::Paste);
    EXPECT_EQ(field->text(), "abc");
    QGuiApplication::clipboard()->setText("12");
    QTest::keySequence(field, QKeySequence::Paste);
    EXPECT_EQ(field->text(), "a12c");
    SetControlTextSelection(interface.control(1), {-5, 1'000'000'000'000});
    EXPECT_EQ(field->selectedText(), "a12c");
    SetControlTextSelection(interface.control(1), {9, -1});
    EXPECT_EQ(GetControlTextSelection(interface.control(1)).location, 4);
}

TEST_F(TextFields, CodeSendsNothingAndSecretsStay) {
    reset();
    SetControlTitleWithCFString(interface.control(1), CFSTR("secret"));
    field->setEchoMode(QLineEdit::Password);
    field->selectAll();
    QTest::keySequence(field, QKeySequence::Cut);
    field->setReadOnly(true);
    QTest::keyClick(field, 'x');
    QTest::keySequence(field, QKeySequence::Paste);
    EXPECT_EQ(seen, "");
    EXPECT_EQ(field->text(), "secret");
    field->setReadOnly(false);
    QTest::keyClick(field, 'x');
    EXPECT_EQ(field->text(), "x");
}

TEST_F(TextFields, ReturnPressesTheDefaultButtonUnlessSwallowed) {
    int pressed = 0;
    QObject::connect(interface.widget<QPushButton>(2), &QPushButton::clicked,
                     [&pressed] { ++pressed; });
    ModalDriver driver;
    driver.expect([&](QWidget& window) {
        refuses = [](const QString& text) { return text == "\r" || text == "\3"; };
        QTest::keyClick(field, Qt::Key_Return);
        QTest::keyClick(field, Qt::Key_Enter, Qt::KeypadModifier);
        EXPECT_EQ(pressed, 0);
        EXPECT_EQ(seen, "\3");
        QTest::keyClick(&window, Qt::Key_Return);
        EXPECT_EQ(pressed, 1) << "only the field's own";
        refuses = [&](const QString&) { return false; };
        QTest::keyClick(field, Qt::Key_Return);
        EXPECT_EQ(pressed, 2);
    });
    EXPECT_EQ(RunAppModalLoopForWindow(interface.window, nullptr), kModalOK);
    EXPECT_TRUE(driver.done());
}

TEST_F(TextFields, FocusIsToldOnceAndNotWhenOnlyTheWindowSleeps) {
    QString told;
    const auto note = [](EventHandlerCallRef, EventRef event, void* data) -> OSStatus {
        ControlID id{};
        GetControlID(GetEventControl(event), &id);
        *static_cast<QString*>(data) +=
            QString::number(id.id) + (GetEventHasFocus(event) ? "+" : "-");
        return eventNotHandledErr;
    };
    InstallWindowEventHandler(interface.window, note, 1, &kFocus, &told, nullptr);
    const auto activate = [](QWidget& window) {
        window.show();
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    };
    activate(*interface.windowWidget());
    SetKeyboardFocus(interface.control(1));
    SetKeyboardFocus(interface.control(3));
    EXPECT_EQ(told, "1+1-3+");
    QWidget other;
    activate(other);
    activate(*interface.windowWidget());
    ChooseInMenu(*interface.widget<QLineEdit>(3), "Select");
    EXPECT_EQ(told, "1+1-3+");
    activate(other);
    SetKeyboardFocus(interface.control(2));
    activate(*interface.windowWidget());
    EXPECT_EQ(told, "1+1-3+3-") << "late, but told";
}

}  // namespace
}  // namespace kalmo::test
