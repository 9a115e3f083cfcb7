// The list of printers: what is found, in which order, and by which keys.
#include "print_dialog/destination_choice.h"
#include "print_dialog/destination_order.h"
#include "print_dialog/printers.h"
#include "support/qt_test.h"

namespace kalmo::test {
namespace {

std::vector<Destination> Office() {
    return ArrangedDestinations({
        {"q10", "Room 10", "Attic", "Kalmo Tolvane C7030"},
        {"q9", "Room 9", "Cellar", "Kalmo Tolvane C7030"},
        {"zed", "Ärzte", "Straße 5", "Somebody's"},
        {"a", "Copies", "North", "M100"},
        {"b", "Copies", "South", "M100"},
    });
}

struct DestinationTest : testing::Test {
    DestinationTest() {
        setenv("XDG_CONFIG_HOME", MakeFolder("config").c_str(), 1);
        restart();
    }
    void restart() {
        window_ = std::make_unique<QDialog>();
        choice_ = new DestinationChoice(window_.get());
        (new QHBoxLayout(window_.get()))->addWidget(choice_->list());
        QObject::connect(choice_, &DestinationChoice::chosen, [this] { ++chosen_; });
        Activate(*window_);
    }
    void fill(int others = 0) {
        auto queues = Office();
        for (int i = 0; i < others; ++i) {
            const QString name = QString("Other %1").arg(i);
            queues.push_back(
                {Destination::Kind::queue, name.toStdString(), name, {}, {}, name.toLower()});
        }
        choice_->setQueues(queues, {});
    }
    [[nodiscard]] QWidget* popup() const { return window_->findChild<DestinationPopup*>(); }
    [[nodiscard]] QListView& rows() const { return *popup()->findChild<QListView*>(); }
    [[nodiscard]] QStringList shown() const { return RowsOf(*rows().model()); }
    void open() {
        choice_->list()->setFocus();
        QTest::keyClick(choice_->list(), Qt::Key_F4);
        ASSERT_TRUE(popup()->isVisible());
    }
    void press(int key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(popup()->focusWidget(), static_cast<Qt::Key>(key), modifiers);
    }
    void type(const QString& text) { QTest::keyClicks(popup()->focusWidget(), text); }
    [[nodiscard]] QString current() const { return choice_->current().text; }

    std::unique_ptr<QDialog> window_;
    DestinationChoice* choice_ = nullptr;
    int chosen_ = 0;
};

TEST_F(DestinationTest, WordsInAnyOrderFindAPrinterWhateverItsCaseAndAccents) {
    struct {
        const char *why, *typed;
        QStringList found;
    } const rows[] = {
        {"in the order of the language, numbers as numbers",
         "",
         {"Ärzte", "Copies (a)", "Copies (b)", "Room 9", "Room 10"}},
        {"words of different fields", "ATTIC room", {"Room 10"}},
        {"name of the queue", "q9", {"Room 9"}},
        {"typed without accents", "arzte strasse", {"Ärzte"}},
        {"all words", "room cellar attic", {}},
    };
    DestinationModel model;
    model.setQueues(ArrangedDestinations({{"q", "<h1>Hallo</h1>"}}), {});
    EXPECT_TRUE(model.index(0).data(Qt::ToolTipRole).toString().startsWith("&lt;h1"));
    model.setQueues(Office(), {});
    for (const auto& [why, typed, found] : rows) {
        SCOPED_TRACE(why);
        model.setSearch(typed);
        EXPECT_EQ(RowsOf(model), found + QStringList{"Save to folder"});
    }
}

TEST_F(DestinationTest, MarkedPrintersComeFirstAndStayMarkedAtTheNextStart) {
    for (const char* queue : {"b", "q10", "gone", "zed"}) RememberPrinter(queue);
    EXPECT_TRUE(RememberFavorite("zed", true));
    fill(20);
    open();
    const QStringList before = {"Ärzte", "Room 10", "Copies (b)", "Copies (a)", "Room 9"};
    EXPECT_EQ(shown().first(5), before) << "favorites, the newest of the others, all others";
    EXPECT_EQ(shown().last(), "Save to folder");
    type("room 9");
    press(Qt::Key_D, Qt::ControlModifier);
    EXPECT_TRUE(
        rows().model()->index(0, 0).data(Qt::AccessibleTextRole).toString().contains("Favorite"));
    press(Qt::Key_Escape);
    EXPECT_TRUE(window_->isVisible() && !popup()->isVisible()) << "only the popup";
    for (const char* queue : {"1", "2", "3", "4", "b"}) RememberPrinter(queue);
    restart();
    fill(20);
    open();
    const QStringList after = {"Ärzte", "Room 9", "Copies (b)", "Copies (a)", "Room 10"};
    EXPECT_EQ(shown().first(5), after) << "of the recent ones five are kept";
}

TEST_F(DestinationTest, KeysChooseAmongThousands) {
    fill(1000);
    EXPECT_EQ(current(), "Save to folder");
    open();
    type("other 77");
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    press('9');  // goes on in the field
    press(Qt::Key_Return);
    EXPECT_EQ(current(), "Other 779");
    EXPECT_EQ(chosen_, 1);
    open();
    EXPECT_EQ(rows().currentIndex().data(), "Other 779") << "opens where it stands";
    press(Qt::Key_Home);
    type("no such printer");
    EXPECT_EQ(shown(), QStringList{"Save to folder"});
    press(Qt::Key_Return);
    EXPECT_EQ(current(), "Save to folder");
    EXPECT_EQ(chosen_, 2);
}

TEST_F(DestinationTest, AClickChoosesAPrinterOrMarksIt) {
    fill();
    open();
    EXPECT_FALSE(popup()->findChild<QLineEdit*>()->isVisible()) << "for so few";
    const auto star = rows().visualRect(rows().model()->index(1, 0));
    QTest::mouseClick(rows().viewport(), Qt::LeftButton, {},
                      {star.right() - 10, star.center().y()});
    EXPECT_TRUE(popup()->isVisible());
    EXPECT_EQ(RememberedPrinters().favorites, std::vector<std::string>{"a"});
    QTest::mouseClick(rows().viewport(), Qt::LeftButton, {}, {star.left() + 10, star.center().y()});
    EXPECT_EQ(current(), "Copies (a)");
}

}  // namespace
}  // namespace kalmo::test
