#include "interface.h"
#include "support/pane_dialog.h"

namespace kalmo::test {
namespace {

/// A section at `y`, 40 high, that holds one row: label | control. Ids: section, + 1 label, + 2.
std::string Section(SInt32 id, int y, const std::string& type) {
    const std::string buddy =
        "<property name=\"buddy\"><cstring>w" + std::to_string(id + 2) + "</cstring></property>";
    return WidgetText(
        "UserPane", id,
        Geometry(0, y, 300, 40) + "<widget class=\"QWidget\" name=\"row\">" +
            Geometry(0, 0, 300, 28) +
            "<layout class=\"QGridLayout\" columnstretch=\"0,1\"><item row=\"0\" column=\"0\">" +
            WidgetText("QLabel", id + 1, buddy) + "</item><item row=\"0\" column=\"1\">" +
            WidgetText(type, id + 2) + "</item></layout></widget>");
}

/// Controls of the second section come first in the file and last in the tab order.
std::string Sections() {
    std::string file = WindowFile(Geometry(0, 0, 300, 120) + Section(200, 40, "QSpinBox") +
                                  Section(100, 0, "QComboBox") + Section(300, 80, "QPushButton"));
    return file.insert(file.size() - 5,
                       "<tabstops><tabstop>w102</tabstop><tabstop>w202</tabstop>"
                       "<tabstop>w302</tabstop></tabstops>");
}

/// A dialog with a button, an empty view, and a button; a pane in the view takes the sections.
struct Embedding : testing::Test {
    void SetUp() override {
        for (QWidget* widget : {static_cast<QWidget*>(before), view, static_cast<QWidget*>(after)})
            layout->addWidget(widget);
        view->resize(300, 120);
        ASSERT_EQ(CreateUserPaneControl(dialogRef, {0, 0, 120, 300}, &pane), noErr);
        ASSERT_EQ(EmbedControl(pane, ControlFromWidget(view)), noErr);
    }

    void moveSections() {
        for (const SInt32 section : {100, 200, 300}) {
            Rect bounds;
            GetControlBounds(file.control(section), &bounds);
            ASSERT_EQ(MoveSubviewsToPane(file.control(section), pane, bounds.top), noErr);
        }
    }
    [[nodiscard]] QWidget* moved(SInt32 id) { return FindControl(dialog, 'KPDE', id); }
    static void settle() {
        for (int round = 0; round < 5; ++round) QCoreApplication::processEvents();
    }
    [[nodiscard]] int top(const QWidget* widget) const {
        return widget->mapTo(&dialog, QPoint()).y();
    }

    Interface file{Sections()};
    QWidget dialog;
    QPushButton* before = new QPushButton("before", &dialog);
    QWidget* view = new QWidget(&dialog);
    QPushButton* after = new QPushButton("after", &dialog);
    QVBoxLayout* layout = new QVBoxLayout(&dialog);
    WindowRef dialogRef = WindowFromWidget(&dialog);
    ControlRef pane = nullptr;
};

TEST_F(Embedding, MovedControlsKeepTabOrderBuddiesAndVisibility) {
    EXPECT_EQ(EmbedControl(ControlFromWidget(view), pane), paramErr) << "not into its own child";
    auto* const label = file.widget<QLabel>(201);
    HideControl(file.control(202));
    moveSections();
    EXPECT_EQ(label->buddy(), moved(202));
    EXPECT_FALSE(IsControlVisible(ControlFromWidget(moved(202))));

    DisposeWindow(std::exchange(file.window, nullptr));
    moved(202)->show();
    Activate(dialog);
    before->setFocus();
    std::vector<QWidget*> visited;
    for (int step = 0; step < 4; ++step) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        visited.push_back(QApplication::focusWidget());
    }
    EXPECT_EQ(visited, (std::vector<QWidget*>{moved(102), moved(202), moved(302), after}));
}

TEST_F(Embedding, LabelsShareOneWidthAndRowsStackAnew) {
    moveSections();
    dialog.show();
    settle();
    const QWidget *first = moved(102)->parentWidget(), *second = moved(202)->parentWidget();
    EXPECT_EQ(second->y(), first->geometry().bottom() + 1 + 12) << "the gap as drawn";
    const int window = dialog.width();
    SetControlTitleWithCFString(
        ControlFromWidget(moved(201)),
        CFSTR("A label that is a good deal longer than the window is wide"));
    settle();
    EXPECT_GT(dialog.width(), window) << "the window grows";
    for (const SInt32 id : {101, 301}) EXPECT_EQ(moved(id)->width(), moved(201)->width());
    EXPECT_EQ(moved(102)->x(), moved(202)->x());

    const int start = top(moved(302));
    moved(202)->setMinimumHeight(90);
    settle();
    EXPECT_GE(top(moved(302)), start + 50);
    EXPECT_GE(top(after), top(moved(302)) + moved(302)->height());
}

}  // namespace
}  // namespace kalmo::test
