// The document is read and drawn by a worker, and the preview shows it as it will be printed.
#include "print_dialog/preview.h"

#include "print_dialog/sample_documents.h"

namespace kalmo::test {
namespace {

const PPDPaper kA4{"A4", "A4", 595, 842, 12, 12, 583, 830};

void Open(Document& document, const std::filesystem::path& file) {
    document.open(file);
    ASSERT_TRUE(Wait([&] { return document.state() != Document::State::loading; }));
}

/// The first sheet.
QImage Drawn(Document& document, const PPDPaper& paper, double scale) {
    QSignalSpy drawn(&document, &Document::drawn);
    document.draw({SheetLayout(paper, {}, document.pages()).sheet(0), scale, false});
    EXPECT_TRUE(Wait([&] { return !drawn.isEmpty(); }));
    return drawn.isEmpty() ? QImage() : drawn.front().front().value<QImage>();
}

TEST(Document, SaysWhatIsWrongWithAFile) {
    const auto folder = MakeFolder("bad");
    const auto good = WriteDocument({kPortraitPage});
    QProcess::execute("qpdf", {"--encrypt", "secret", "owner", "256", "--", good.c_str(),
                               (folder / "locked.pdf").c_str()});
    WriteFile(folder / "text.pdf", "Not a document at all");
    WriteFile(folder / "cut.pdf", ReadFile(good).substr(0, 300));
    const std::pair<std::filesystem::path, DocumentFault> rows[] = {
        {good, DocumentFault::none},
        {folder / "locked.pdf", DocumentFault::locked},
        {folder / "text.pdf", DocumentFault::damaged},
        {folder / "cut.pdf", DocumentFault::damaged},
        {folder / "missing.pdf", DocumentFault::unreadable},
        {folder, DocumentFault::unreadable},
        {"/dev/zero", DocumentFault::unreadable},
    };
    Document document;
    for (const auto& [file, fault] : rows) {
        SCOPED_TRACE(file);
        Open(document, file);
        EXPECT_EQ(document.fault(), fault);
        EXPECT_EQ(document.pages().empty(), fault != DocumentFault::none);
    }
}

TEST(Document, KeepsItsBytesWhenTheFileChanges) {
    const auto file = WriteDocument({kPortraitPage, kLandscapePage});
    const std::string bytes = ReadFile(file);
    Document document;
    Open(document, file);
    WriteFile(file, "overwritten");
    EXPECT_EQ(ReadFile(document.copy()->path()), bytes);
    EXPECT_LT(Distance(Drawn(document, kA4, 1).pixelColor(300, 600), PageColor(1)), 30);
}

TEST(Document, DrawsHugeSheetsWithinBounds) {
    Document document;
    Open(document, WriteDocument({{14000, 14000}}));
    const PPDPaper poster{"Poster", "Poster", 14400, 14400, 0, 0, 0, 0};
    const QImage picture = Drawn(document, poster, 4);
    EXPECT_LT(picture.width() * picture.height(), 16'100'000);
    EXPECT_LT(Distance(picture.pixelColor(2000, 3000), PageColor(1)), 30);
}

struct PreviewTest : testing::Test {
    PreviewTest() {
        preview_.resize(420, 560);
        preview_.show();
    }
    void show(const JobSettings& settings, bool grey = false) {
        QSignalSpy painted(&preview_, &Preview::painted);
        preview_.setSheets(kA4, settings, grey);
        EXPECT_TRUE(Wait([&] { return !painted.isEmpty(); }));
    }
    /// As shares of the sheet's width and height.
    QColor colorAt(double x, double y) {
        const QRectF sheet = view().sheetRect();
        return view().grab().toImage().pixelColor(
            QPointF(sheet.x() + x * sheet.width(), sheet.y() + y * sheet.height()).toPoint());
    }
    SheetView& view() { return *preview_.findChild<SheetView*>(); }

    Document document_;
    Preview preview_{document_};
};

TEST_F(PreviewTest, SaysWhyThereIsNoSheetWhateverIsChosen) {
    const auto damaged = MakeFolder("bad") / "text.pdf";
    WriteFile(damaged, "Not a document at all");
    for (const auto& [file, words] :
         {std::pair<std::filesystem::path, const char*>{"", "Drop a PDF"}, {damaged, "text.pdf"}}) {
        if (!file.empty()) Open(document_, file);
        const QImage told = view().grab().toImage();
        preview_.setSheets(kA4, {}, false);
        EXPECT_EQ(view().grab().toImage(), told) << words;
        EXPECT_TRUE(view().accessibleDescription().contains(words)) << words;
    }
    auto* const seen = QAccessible::queryAccessibleInterface(&view());
    EXPECT_EQ(seen->role(), QAccessible::Graphic);
}

TEST_F(PreviewTest, ShowsTheChosenPagesInTheirPlacesAndInGrey) {
    Open(document_, WriteDocument(std::vector(9, kPortraitPage)));
    JobSettings settings;
    settings.pages = {{3, 3}, {5, 6}};
    show(settings);
    EXPECT_EQ(preview_.sheetCount(), 3);
    EXPECT_LT(Distance(colorAt(0.5, 0.6), PageColor(3)), 30);
    EXPECT_LT(Distance(colorAt(0.1, 0.1), Qt::black), 30) << "the mark is at the upper left";

    settings.pagesPerSheet = 2;
    show(settings);
    EXPECT_EQ(preview_.sheetCount(), 2);
    EXPECT_GT(view().sheetRect().width(), view().sheetRect().height());
    EXPECT_LT(Distance(colorAt(0.25, 0.6), PageColor(3)), 30);
    EXPECT_LT(Distance(colorAt(0.75, 0.6), PageColor(5)), 30);
    show(settings, true);
    EXPECT_EQ(colorAt(0.25, 0.6).saturation(), 0);
    EXPECT_GT(colorAt(0.25, 0.6).value(), 60);
}

TEST_F(PreviewTest, TurnsByKeysAndStaysInsideTheDocument) {
    Open(document_, WriteDocument(std::vector(4, kPortraitPage)));
    show({});
    for (const auto& [key, sheet] : {std::pair{Qt::Key_PageUp, 0},
                                     {Qt::Key_PageDown, 1},
                                     {Qt::Key_Home, 0},
                                     {Qt::Key_End, 3},
                                     {Qt::Key_Down, 3}}) {
        QTest::keyClick(&view(), key);
        EXPECT_EQ(preview_.currentSheet(), sheet) << key;
    }
    EXPECT_TRUE(view().accessibleDescription().contains('4'));
    JobSettings one;
    one.pages = {{2, 2}};
    show(one);
    EXPECT_EQ(preview_.currentSheet(), 0) << "the fourth sheet is gone";
}

}  // namespace
}  // namespace kalmo::test
