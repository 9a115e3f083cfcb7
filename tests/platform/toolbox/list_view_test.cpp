// Lists: what is selected in which order, what stays when items change, and which texts are asked.
#include "toolbox/list_view.h"

#include "interface.h"

namespace kalmo::test {
namespace {

using Items = std::vector<ListItem>;

Items Numbers(ListItem first, ListItem last) {
    Items items;
    for (ListItem item = first; item <= last; ++item) items.push_back(item);
    return items;
}

/// A list of the numbers 1 to 100,000 with two columns; records its events.
class Lists : public testing::Test {
public:
    void SetUp() override {
        ASSERT_EQ(interface.open(), noErr);
        list = interface.control(1);
        view = interface.widget<QTreeView>(1);
        SetListTextProc(list, GiveText, this);
        EXPECT_EQ(AddListColumn(list, 'page', CFSTR("Page"), 100), noErr);
        EXPECT_EQ(AddListColumn(list, 'attr', CFSTR("Attributes"), 300), noErr);
        EXPECT_EQ(SetListItems(list, Numbers(1, 100'000)), noErr);
        InstallControlEventHandler(list, Handle, 3, kTypes, this, nullptr);
        interface.windowWidget()->show();
        view->setFocus();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(view->window()));
    }

    static OSStatus GiveText(ControlRef, ListItem item, OSType column, CFStringRef* text,
                             void* self) {
        ++static_cast<Lists*>(self)->textsAsked;
        if (column != 'page') return kListPropertyNotSupportedErr;
        if (item != 2) *text = CFStringCreateFromUTF8("Page " + std::to_string(item));
        return noErr;
    }

    static OSStatus Handle(EventHandlerCallRef, EventRef event, void* data) {
        auto* const self = static_cast<Lists*>(data);
        if (GetEventClass(event) == kEventClassKeyboard) {
            return self->swallowed && GetEventKeyCharacter(event) == self->swallowed
                       ? noErr
                       : eventNotHandledErr;
        }
        self->record += GetEventKind(event) == kEventListItemOpened ? 'o' : 's';
        return self->answer;
    }

    void click(int row, Qt::KeyboardModifiers keys = {}) const {
        QTest::mouseClick(view->viewport(), Qt::LeftButton, keys, cell(row).center());
    }
    void key(Qt::Key pressed, Qt::KeyboardModifiers keys = {}) const {
        QTest::keyClick(view, pressed, keys);
    }
    [[nodiscard]] QRect cell(int row) const {
        return view->visualRect(view->model()->index(row, 0));
    }

    static constexpr EventTypeSpec kTypes[] = {{kEventClassList, kEventListSelectionChanged},
                                               {kEventClassList, kEventListItemOpened},
                                               {kEventClassKeyboard, kEventRawKeyDown}};
    Interface interface {
        WindowFile("<layout class=\"QVBoxLayout\"><item>" + WidgetText("ListView", 1) +
                   "</item><item>" + WidgetText("QLineEdit", 2) + "</item></layout>")
    };
    ControlRef list = nullptr;
    QTreeView* view = nullptr;
    std::string record;
    OSStatus answer = noErr;
    UniChar swallowed = 0;
    int textsAsked = 0;
};

TEST_F(Lists, TheUserSelectsInAnOrderThatIsKept) {
    const struct {
        const char* why;
        void (*act)(Lists&);
        Items selected;
        ListItem anchor;
        const char* record;
    } steps[] = {
        {"one", [](Lists& t) { t.click(4); }, {5}, 5, "s"},
        {"more", [](Lists& t) { t.click(1, Qt::ControlModifier); }, {5, 2}, 2, "s"},
        {"one less", [](Lists& t) { t.click(4, Qt::ControlModifier); }, {2}, 2, "s"},
        {"a range, in the list's order",
         [](Lists& t) { t.key(Qt::Key_Up, Qt::ShiftModifier); },
         {2, 4, 5},
         4,
         "s"},
        {"by program",
         [](Lists& t) {
             SetListSelection(t.list, {7, 3, 0, 200'000, 7});
         },
         {7, 3},
         7,
         ""},
        {"many are not opened", [](Lists& t) { t.key(Qt::Key_Return); }, {7, 3}, 7, ""},
        {"double click",
         [](Lists& t) {
             QTest::mouseDClick(t.view->viewport(), Qt::LeftButton, {}, t.cell(2).center());
         },
         {3},
         3,
         "so"},
        {"Enter", [](Lists& t) { t.key(Qt::Key_Enter, Qt::KeypadModifier); }, {3}, 3, "o"},
        {"letters search nothing", [](Lists& t) { t.key(Qt::Key_P); }, {3}, 3, ""},
        {"one at most",
         [](Lists& t) {
             SetListSelectsMany(t.list, false);
             t.click(0);
         },
         {1},
         1,
         "s"},
    };
    for (const auto& step : steps) {
        SCOPED_TRACE(step.why);
        record.clear();
        step.act(*this);
        EXPECT_EQ(GetListSelection(list), step.selected);
        EXPECT_EQ(GetListSelectionAnchor(list), step.anchor);
        EXPECT_EQ(record, step.record);
    }
}

TEST_F(Lists, SelectionAndPlaceOutliveNewItems) {
    SetListSelection(list, {60, 55, 51});
    view->verticalScrollBar()->setValue(49);
    Items items = Numbers(52, 200);
    items.insert(items.begin(), {-1, -2});
    EXPECT_EQ(SetListItems(list, items), noErr);
    EXPECT_EQ(GetListSelection(list), (Items{60, 55}));
    EXPECT_EQ(view->selectionModel()->selectedRows().size(), 2);
    EXPECT_EQ(cell(items.size() - 149).top(), 2 * cell(0).height()) << "50 and 51 are gone";
    EXPECT_EQ(record, "");
    for (const Items& wrong : {Items{1, 0}, Items{1, 1}, Items{1, 52}}) {
        EXPECT_EQ(AddListItems(list, wrong), paramErr);
    }
    EXPECT_EQ(AddListItems(list, {1, 2}), noErr);
    EXPECT_EQ(CountListItems(list), 153);
    RevealListItem(list, 1);
    EXPECT_TRUE(view->viewport()->rect().contains(cell(151).center()));
}

TEST_F(Lists, AsksOnlyForTextsThatAreShown) {
    view->grab();
    EXPECT_GT(textsAsked, 0);
    SetListSelection(list, {99'999});
    SetListItems(list, Numbers(2, 100'000));
    key(Qt::Key_End);
    key(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(GetListSelection(list).size(), 99'999U);
    key(Qt::Key_X);
    view->grab();
    EXPECT_LT(textsAsked, 500);
}

TEST_F(Lists, TheLastColumnTakesWhatIsLeftButKeepsItsWidth) {
    auto& last = *view->header();
    for (const int width : {900, 200}) {
        view->window()->resize(width, 300);
        QCoreApplication::processEvents();
        EXPECT_EQ(last.sectionSize(1), std::max(300, view->viewport()->width() - 100));
        EXPECT_EQ(view->horizontalScrollBar()->isVisible(), width == 200);
    }
}

TEST_F(Lists, KeysThatAreNotTheirsGoOn) {
    answer = eventNotHandledErr;
    SetListSelection(list, {1});
    struct Window final : QObject {
        bool eventFilter(QObject*, QEvent* event) override {
            if (event->type() == QEvent::KeyPress) keys += static_cast<QKeyEvent*>(event)->text();
            return false;
        }
        QString keys;
    } window;
    view->window()->installEventFilter(&window);
    key(Qt::Key_Escape);
    key(Qt::Key_Return);
    swallowed = 27;
    key(Qt::Key_Escape);
    EXPECT_EQ(window.keys, "\x1b\r");
    key(Qt::Key_Tab);
    EXPECT_TRUE(interface.widget(2)->hasFocus());
}

}  // namespace
}  // namespace kalmo::test
