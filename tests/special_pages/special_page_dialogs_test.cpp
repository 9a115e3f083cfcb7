// The dialogs for covers, inserts and exceptions, through their controls.
#include "special_pages/special_page_dialogs.h"

#include "paper_output/dialog_test.h"
#include "settings/ppd_file.h"

namespace kalmo::test {
namespace {

constexpr SInt32 kPicture = 100;
constexpr SInt32 kCovers = 201, kFrontSides = 302, kBack = 400;
constexpr SInt32 kPosition = 201, kInsertPages = 203, kQuantity = 206;
constexpr SInt32 kPages = 202, kSides = 205, kLightness = 207, kShift = 502, kUnit = 504, kX1 = 511,
                 kY1 = 513;

struct SpecialPageDialogs : DialogTest {
    SpecialPageDialogs() {
        model.bundle = bundle;
        printer.useFile(SamplePPD("kalmo-office-color"));
        model.ppd = printer.ppd();
        model.changed = [this] { ++changes; };
    }
    /// OK shows a notice with these words and leads back into the field.
    void expectRefusal(QWidget& window, SInt32 field, const char* text, const char* notice) {
        SCOPED_TRACE(text);
        Type(window, field, text);
        Control(window, kOK).setFocus();
        Press(window, kOK);
        ASSERT_FALSE(notices.empty());
        EXPECT_NE(notices.back().find(notice), std::string::npos) << notices.back();
        EXPECT_EQ(window.focusWidget(), &Control(window, field));
        EXPECT_EQ(Control<QLineEdit>(window, field).selectedText().toStdString(), text);
    }
    static std::string Chosen(QWidget& window, SInt32 id) {
        return Control<QComboBox>(window, id).currentText().toStdString();
    }
    static std::string Description(QWidget& window) {
        return Control(window, kPicture).accessibleDescription().toStdString();
    }

    PrinterWithPPD printer{""};
    SpecialPagesModel model;
    int changes = 0;
};

/// Null for 0.
std::unique_ptr<Cover> CoverOf(SInt32 sides) {
    auto cover = std::make_unique<Cover>();
    cover->setSidesImaged(sides);
    return sides == 0 ? nullptr : std::move(cover);
}
SInt32 SidesOf(const std::unique_ptr<Cover>& cover) { return cover ? cover->sidesImaged() : 0; }

TEST_F(SpecialPageDialogs, CoversOfATicketAreShownAndKept) {
    struct {
        SInt32 front, back;
        const char *option, *frontSides;
    } const rows[] = {
        {1, 0, "Front cover only", "Blank or preprinted"},
        {0, 4, "Back cover only", "Blank or preprinted"},
        {2, 1, "Different front and back covers", "Printed on one side"},
        {7, 1, "Different front and back covers", "Other (7)"},
    };
    model.isTwoSided = true;
    for (const auto& row : rows) {
        SCOPED_TRACE(row.option);
        model.now.front = CoverOf(row.front);
        model.now.back = CoverOf(row.back);
        driver.expect([&](QWidget& window) {
            EXPECT_EQ(Chosen(window, kCovers), row.option);
            EXPECT_EQ(Chosen(window, kFrontSides), row.frontSides);
            Press(window, kOK);
        });
        EXPECT_EQ(RunModalCoversDialog(&model, DialogMode::edit), kModalOK);
        EXPECT_EQ(std::pair(SidesOf(model.now.front), SidesOf(model.now.back)),
                  std::pair(row.front, row.back));
    }
}

TEST_F(SpecialPageDialogs, CoversAlikeFollowTheFrontCoverAndABookletHasNoOthers) {
    model.isBooklet = true;
    driver.expect([](QWidget& window) {
        EXPECT_EQ(Control<QComboBox>(window, kCovers).count(), 2);
        Choose(window, kCovers, "Same front and back cover");
        Choose(window, kFrontSides, "Printed");
        EXPECT_FALSE(Enabled(window, kBack));
        Press(window, kOK);
    });
    EXPECT_EQ(RunModalCoversDialog(&model, DialogMode::add), kModalOK);
    EXPECT_EQ(SidesOf(model.now.front), 2) << "a one-sided job's";
    EXPECT_TRUE(*model.now.back == *model.now.front);
}

TEST_F(SpecialPageDialogs, AnInsertGivesWayToOneForEachPage) {
    Insert before1;
    before1.stock().setWeight(90);
    const auto& list = model.now.inserts;
    list->add(ArrayOfPages({&before1}));
    driver.expect([&](QWidget& window) {
        EXPECT_EQ(Chosen(window, kPosition), "Before page 1");
        Choose(window, kPosition, "After page");
        expectRefusal(window, kInsertPages, "", "page numbers and ranges");
        expectRefusal(window, kInsertPages, "7-5", "lower page number");
        expectRefusal(window, kInsertPages, "100000", "at most 5 digits");
        Type(window, kInsertPages, "x7-9");
        Type(window, kQuantity, "334");
        agrees = true;
        Press(window, kOK);
        EXPECT_EQ(changes, 0) << "1002 sheets are not meant";
        agrees = false;
        Press(window, kOK);
    });
    EXPECT_EQ(RunModalInsertsDialog(&model, DialogMode::edit, list->pageAtIndex(0)), kModalOK);
    ASSERT_EQ(list->count(), 3);
    const Insert& last = *list->pageAtIndex(2);
    EXPECT_EQ(std::tuple(last.startPage(), last.quantity(), last.stock().weight()),
              std::tuple(9, 334, 90));
    EXPECT_EQ(model.before.inserts->count(), 1) << "for undo";
}

TEST_F(SpecialPageDialogs, ExceptionsTakeTheirPlacesInTheOrderTyped) {
    driver.expect([&](QWidget& window) {
        expectRefusal(window, kPages, "2, 0-3", "counted from 1");
        Type(window, kPages, "1-9, 3");
        Choose(window, kSides, "Two-sided, long edge");
        Choose(window, kLightness, "Lighter 1");
        Choose(window, kShift, "Same on both sides");
        Choose(window, kUnit, "Inches");
        Type(window, kX1, "-1.00");
        Choose(window, kUnit, "Millimeters");
        EXPECT_EQ(Text(window, kX1), "-25.4") << "as far in the other unit";
        Type(window, kY1, "50.9");
        Press(window, kOK);
        EXPECT_EQ(Text(window, kY1), "50.8") << "put right, and looked at";
        EXPECT_EQ(Description(window),
                  "Printed on both sides, turned like a book, the image moved alike on both sides, "
                  "lighter");
        Press(window, kOK);
    });
    EXPECT_EQ(RunModalExceptionsDialog(&model, DialogMode::add, nullptr), kModalOK);
    ASSERT_EQ(model.now.exceptions->count(), 3) << "page 3 is cut out of the range before";
    const ExceptionPage& page = *model.now.exceptions->pageAtIndex(1);
    EXPECT_EQ(std::tuple(page.startPage(), page.endPage(), page.plex(), page.lightenDarken()),
              std::tuple(3, 3, 2, -1));
    const _IS_Options& shift = page.imageShift();
    EXPECT_EQ(std::tuple(shift.Option, shift.Inches, shift.X2, shift.Y2),
              std::tuple(1, false, -254, 508));
}

TEST_F(SpecialPageDialogs, WhatAnExceptionsDialogCannotAskForStays) {
    model.ppd = nullptr;
    ExceptionPage exception;
    exception.setStartPage(3);
    exception.setEndPage(4);
    exception.setPlex(9);
    exception.setLightenDarken(4);
    const auto& list = model.now.exceptions;
    list->add(ArrayOfPages({&exception}));
    driver.expect([](QWidget& window) {
        EXPECT_TRUE(Control(window, kLightness).isHidden());
        Press(window, kOK);
    });
    EXPECT_EQ(RunModalExceptionsDialog(&model, DialogMode::edit, list->pageAtIndex(0)), kModalOK);
    const ExceptionPage& kept = *list->pageAtIndex(0);
    EXPECT_EQ(std::tuple(kept.startPage(), kept.endPage(), kept.plex(), kept.lightenDarken()),
              std::tuple(3, 4, 9, 4));
}

}  // namespace
}  // namespace kalmo::test
