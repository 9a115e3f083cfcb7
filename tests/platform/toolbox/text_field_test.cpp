// Fields: what the user would change comes to the handlers first.

#include "interface.h"
#include "toolbox/combo_box.h"
#include "toolbox/qt_strings.h"

namespace kalmo::test {
namespace {

constexpr EventTypeSpec kInput = {kEventClassTextInput, kEventTextInput};

/// The widget of Qt's that the mouse meets.
QWidget& Inner(QWidget& field) {
    if (auto* const combo = qobject_cast<QComboBox*>(&field)) return *combo->lineEdit();
    return field;
}

void ChooseDelete(QWidget& field) {
    QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, {});
    QApplication::sendEvent(&field, &event);
    for (QAction* action : field.findChild<QMenu*>()->actions()) {
        if (action->text() == "Delete") action->trigger();
    }
    delete field.findChild<QMenu*>();
}

void Drop(QWidget& field) {
    QMimeData data;
    data.setText("d\v");
    QDropEvent event({0, 0}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    struct Area final : QPlainTextEdit {
        using QPlainTextEdit::dropEvent;
    };
    // No drag is running.
    if (auto* const area = qobject_cast<QPlainTextEdit*>(&field)) {
        (area->*&Area::dropEvent)(&event);
    } else {
        static_cast<QObject&>(Inner(field)).event(&event);
    }
}

void Compose(QWidget& field) {
    QInputMethodEvent event("k", {});
    event.setCommitString("ka");
    QApplication::sendEvent(&field, &event);
}

/// A field whose handler calls the rest unless it refuses.
class Fields : public testing::TestWithParam<std::string> {
protected:
    Fields() { InstallControlEventHandler(control, Handle, 1, &kInput, this, nullptr); }

    static OSStatus Handle(EventHandlerCallRef next, EventRef event, void* data) {
        auto* const self = static_cast<Fields*>(data);
        self->record += toolbox::ToQString(GetEventText(event));
        if (self->refuses) return noErr;
        EXPECT_EQ(CallNextEventHandler(next, event), noErr);
        self->after = self->text();
        return eventNotHandledErr;
    }

    [[nodiscard]] QString text() const {
        return QString::fromStdString(TakeText(CopyControlTitleAsCFString(control)));
    }

    Interface interface { WindowFile(WidgetText(GetParam(), 1)) };
    ControlRef control = interface.control(1);
    QWidget* field = interface.widget(1);
    bool refuses = false;
    QString record, after;
};

INSTANTIATE_TEST_SUITE_P(, Fields, testing::Values("QLineEdit", "ComboField", "TextArea"),
                         [](const auto& kind) { return kind.param; });

TEST_P(Fields, EveryInputComesBeforeItChangesTheText) {
    QGuiApplication::clipboard()->setText("\n1\r\n2\n");
    const QString pasted = GetParam() == "TextArea" ? "\n1\n2\n" : "1 2";
    const std::tuple<QString, QString, void (*)(QWidget&)> rows[] = {
        {pasted, "a" + pasted + "c", [](auto& w) { QTest::keySequence(&w, QKeySequence::Paste); }},
        {"\b", "ac", [](auto& w) { QTest::keySequence(&w, QKeySequence::Cut); }},
        {"x", "axc", [](auto& w) { QTest::keyClick(&w, 'x'); }},
        {"\x7f", "ac", [](auto& w) { ChooseDelete(Inner(w)); }},
        {"d ", "d abc", Drop},
        {"ka", "akac", Compose},
    };
    for (const auto& [seen, changed, act] : rows) {
        SCOPED_TRACE(seen.toStdString());
        for (const bool refused : {true, false}) {
            SetControlTitleWithCFString(control, CFSTR("abc"));
            SetControlTextSelection(control, {1, 1});
            EXPECT_EQ(GetControlTextSelection(control).location, 1);
            record.clear();
            refuses = refused;
            act(*field);
            EXPECT_EQ(record, seen);
            EXPECT_EQ(text(), refused ? "abc" : changed);
        }
        EXPECT_EQ(after, changed) << "done when the rest has been called";
    }
}

TEST(TextAreas, WordsOfAnyLengthAreShownAtOnce) {
    Interface interface { WindowFile(WidgetText("TextArea", 1)) };
    auto& area = *interface.widget<QPlainTextEdit>(1);
    const auto usual = area.wordWrapMode();
    QElapsedTimer clock;
    clock.start();
    SetControlTitleWithCFString(interface.control(1), String(std::string(200'000, 'W').c_str()));
    interface.windowWidget()->show();
    QGuiApplication::clipboard()->setText(QString(200'000, u'x'));
    area.paste();
    SetControlTitleWithCFString(interface.control(1), CFSTR("two words"));
    EXPECT_EQ(area.wordWrapMode(), usual);
    EXPECT_LT(clock.elapsed(), 5000) << "each step would take longer";
}

TEST(SearchFields, ClearingIsAnInputAndEscapeComesBeforeCancel) {
    Interface interface(WindowFile(WidgetText("SearchField", 1)));
    auto& field = *interface.widget<QLineEdit>(1);
    Heard inputs(interface.control(1), kInput);
    Activate(*interface.windowWidget());
    QAction& clear = *field.actions().last();
    for (const bool byKey : {true, false}) {
        inputs.record.clear();
        QTest::keyClicks(&field, "ab");
        EXPECT_TRUE(clear.isVisible());
        byKey ? QTest::keyClick(&field, Qt::Key_Escape) : clear.trigger();
        EXPECT_EQ(field.text().toStdString() + inputs.record, "hhh");
    }
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, {});
    QApplication::sendEvent(&field, &escape);
    EXPECT_FALSE(escape.isAccepted());
}

TEST(ComboFields, OnlyAChoiceInTheListIsAHit) {
    Interface interface(WindowFile(WidgetText("ComboField", 1)));
    const ControlRef control = interface.control(1);
    auto& combo = *interface.widget<QComboBox>(1);
    const auto text = [&] { return TakeText(CopyControlTitleAsCFString(control)); };
    const Heard hits(control);
    for (const char* item : {"One", "Two"}) AppendComboBoxItem(control, String(item));
    Activate(*interface.windowWidget());
    QTest::keyClicks(&combo, "Tw");
    for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Down, Qt::Key_PageDown, Qt::Key_F4}) {
        QTest::keyClick(&combo, key);
        EXPECT_TRUE(combo.view()->isVisible());
        combo.hidePopup();
    }
    EXPECT_EQ(text(), "Tw") << "neither completed nor replaced";
    QTest::keyClick(&combo, 'o');
    combo.clearFocus();
    EXPECT_EQ(hits.record, "") << "typed, not chosen";
    QTest::keyClick(&combo, Qt::Key_Down, Qt::AltModifier);
    QTest::keyClick(combo.view(), Qt::Key_Up);
    QTest::keyClick(combo.view(), Qt::Key_Return);
    EXPECT_EQ(text() + hits.record, "Oneh");
}

}  // namespace
}  // namespace kalmo::test
