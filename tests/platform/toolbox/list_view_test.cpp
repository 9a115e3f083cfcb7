// Lists: what is selected in which order, what stays when items change, and which texts are asked.
#include "toolbox/list_view.h"

#include <numeric>

#include "interface.h"

namespace kalmo::test {
namespace {

using Items = std::vector<ListItem>;

Items Numbers(ListItem first, ListItem last) {
    Items items(static_cast<std::size_t>(last - first + 1));
    std::iota(items.begin(), items.end(), first);
    return items;
}

/// A list of the numbers 1 to 100,000 with two columns; records its events.
class Lists : public testing::Test {
protected:
    void SetUp() override {
        SetListTextProc(list, GiveText, &textsAsked);
        AddListColumn(list, 'page', CFSTR("Page"), 100);
        AddListColumn(list, 'attr', CFSTR("Attributes"), 300);
        ASSERT_EQ(SetListItems(list, Numbers(1, 100'000)), noErr);
        handle({kEventClassList, kEventListSelectionChanged}, selected);
        handle({kEventClassList, kEventListItemOpened}, opened);
        interface.windowWidget()->show();
        view->setFocus();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(view->window()));
    }

    static OSStatus GiveText(ControlRef, ListItem item, OSType column, CFStringRef* text,
                             void* textsAsked) {
        ++*static_cast<int*>(textsAsked);
        if (column != 'page') return kListPropertyNotSupportedErr;
        if (item != 2) *text = CFStringCreateFromUTF8("Page " + std::to_string(item));
        return noErr;
    }
    void handle(const EventTypeSpec& type, Recorder& recorder) const {
        InstallControlEventHandler(list, Recorder::Handle, 1, &type, &recorder, nullptr);
    }
    [[nodiscard]] QPoint inRow(int row) const {
        return view->visualRect(view->model()->index(row, 0)).center();
    }

    Interface interface { WindowFile(WidgetText("ListView", 1, Geometry(0, 0, 500, 300))) };
    ControlRef list = interface.control(1);
    QTreeView* view = interface.widget<QTreeView>(1);
    std::string record;
    Recorder selected{'s', &record}, opened{'o', &record, noErr};
    int textsAsked = 0;
};

TEST_F(Lists, TheUserSelectsInAnOrderThatIsKept) {
    constexpr int kClick = 0;
    const std::tuple<const char*, int, int, Qt::KeyboardModifiers, Items, ListItem, const char*>
        steps[] = {
            {"one", kClick, 4, {}, {5}, 5, "s"},
            {"more", kClick, 1, Qt::ControlModifier, {5, 2}, 2, "s"},
            {"one less", kClick, 4, Qt::ControlModifier, {2}, 2, "s"},
            {"a range, in the list's order", Qt::Key_Up, 0, Qt::ShiftModifier, {2, 4, 5}, 4, "s"},
            {"many are not opened", Qt::Key_Return, 0, {}, {2, 4, 5}, 4, ""},
            {"again one", kClick, 2, {}, {3}, 3, "s"},
            {"opened", Qt::Key_Enter, 0, Qt::KeypadModifier, {3}, 3, "o"},
            {"letters search nothing", Qt::Key_P, 0, {}, {3}, 3, ""},
        };
    for (const auto& [why, key, row, with, selection, anchor, told] : steps) {
        SCOPED_TRACE(why);
        record.clear();
        key == kClick ? QTest::mouseClick(view->viewport(), Qt::LeftButton, with, inRow(row))
                      : QTest::keyClick(view, Qt::Key(key), with);
        EXPECT_EQ(GetListSelection(list), selection);
        EXPECT_EQ(GetListSelectionAnchor(list), anchor);
        EXPECT_EQ(record, told);
    }
    SetListSelection(list, {7, 3, 0, 200'000, 7});
    EXPECT_EQ(GetListSelection(list), (Items{7, 3}));
    SetListSelectsMany(list, false);
    EXPECT_EQ(GetListSelection(list), Items{7});
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, inRow(2));
    QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, inRow(2));
    EXPECT_EQ(record, "so");
}

TEST_F(Lists, SelectionAndPlaceOutliveNewItems) {
    SetListSelection(list, {60, 55, 51});
    view->verticalScrollBar()->setValue(49);
    Items items = Numbers(-10, 200);
    items.erase(items.begin() + 10, items.begin() + 62);
    EXPECT_EQ(SetListItems(list, items), noErr);
    EXPECT_EQ(GetListSelection(list), (Items{60, 55}));
    EXPECT_EQ(view->indexAt({0, 0}).row(), 8) << "52, now in row 10, is still the third";
    EXPECT_EQ(record, "");
    EXPECT_EQ(AddListItems(list, {1, 2}), noErr);
    EXPECT_EQ(CountListItems(list), 161);
    RevealListItem(list, 1);
    EXPECT_TRUE(view->viewport()->rect().contains(inRow(159)));
    ScrollListToTop(list);
    EXPECT_EQ(view->indexAt({0, 0}).row(), 0);
}

TEST_F(Lists, AsksOnlyForTextsThatAreShown) {
    view->grab();
    EXPECT_GT(textsAsked, 0);
    SetListSelection(list, {99'999});
    SetListItems(list, Numbers(2, 100'000));
    QTest::keyClick(view, Qt::Key_End);
    QTest::keySequence(view, QKeySequence::SelectAll);
    EXPECT_EQ(GetListSelection(list).size(), 99'999U);
    QTest::keyClick(view, Qt::Key_X);
    view->grab();
    EXPECT_LT(textsAsked, 500);
}

TEST_F(Lists, ItemsMayBeGoneWhenOthersTakeTheirPlace) {
    ListItem lowest = 200'000;
    AddListItems(list, {100'001});  // not laid out yet
    SetListTextProc(
        list,
        [](ControlRef, ListItem item, OSType, CFStringRef*, void* asked) -> OSStatus {
            auto& lowestAsked = *static_cast<ListItem*>(asked);
            lowestAsked = std::min(lowestAsked, item);
            return kListPropertyNotSupportedErr;
        },
        &lowest);
    SetListItems(list, {200'000});
    EXPECT_EQ(lowest, 200'000);
}

TEST_F(Lists, TheUserSortsByTitleOrByMenuInThreeSteps) {
    std::string said;
    const auto sort = [](EventHandlerCallRef, EventRef event, void* sorts) -> OSStatus {
        const auto [column, isDescending] = GetListSort(GetEventControl(event));
        *static_cast<std::string*>(sorts) += column == 0 ? '0' : isDescending ? '>' : '<';
        return SetListItems(GetEventControl(event), Numbers(1, 9));
    };
    const EventTypeSpec changed{kEventClassList, kEventListSortChanged};
    InstallControlEventHandler(list, sort, 1, &changed, &said, nullptr);
    const auto click = [this] {
        QTest::mouseClick(view->header()->viewport(), Qt::LeftButton, {}, {150, 5});
    };
    const auto choose = [this] {
        QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, {});
        QApplication::sendEvent(view, &event);
        auto* const menu = view->findChild<QMenu*>();
        menu->actions()[1]->trigger();
        delete menu;
    };
    click();
    SetListSortable(list, true);
    for (int press = 0; press < 4; ++press) click();
    EXPECT_EQ(view->header()->sortIndicatorSection(), 1);
    for (int press = 0; press < 3; ++press) choose();
    EXPECT_EQ(said, "<>0<>0<");
}

}  // namespace
}  // namespace kalmo::test
