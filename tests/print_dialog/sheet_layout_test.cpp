// The sheets that are shown are the sheets that come out of the print server's own filter.
#include "print_dialog/sheet_layout.h"

#include <QPdfDocument>

#include "print_dialog/sample_documents.h"
#include "support/programs.h"

namespace kalmo::test {
namespace {

const std::string kPPD = PPDText(PPDOption("PageSize", "A4", {"A4"}) +
                                 "*ImageableArea A4: \"10 20 565 802\"\n"
                                 "*PaperDimension A4: \"595 842\"\n"
                                 "*cupsFilter: \"application/vnd.cups-pdf 0 -\"\n");
const PPDPaper kA4{"A4", "A4", 595, 842, 10, 20, 565, 802};

const QSizeF kSmallPage{300, 400}, kLargePage{842, 1191};

std::vector<PageSize> Sizes(const std::vector<QSizeF>& pages) {
    std::vector<PageSize> sizes;
    for (const QSizeF& page : pages) sizes.push_back({page.width(), page.height()});
    return sizes;
}

/// The sheets as the filter makes them, one pixel per point, paper upright.
std::vector<QImage> PrintedSheets(const std::filesystem::path& document,
                                  const SheetLayout& layout) {
    const auto ppd = MakeFolder("ppd") / "test.ppd";
    WriteFile(ppd, kPPD);
    std::string options = "PageSize=A4";
    for (const auto& [name, value] : layout.jobOptions()) options += " " + name + "=" + value;
    const auto filter =
        RunProgram({.program = "/usr/lib/cups/filter/pdftopdf",
                    .arguments = {"1", "user", "title", "1", options, document},
                    .environment = {{"PPD", ppd},
                                    {"CONTENT_TYPE", "application/pdf"},
                                    {"FINAL_CONTENT_TYPE", "application/vnd.cups-pdf"}}});
    EXPECT_EQ(filter.exitCode, 0) << filter.errors;
    QByteArray bytes = QByteArray::fromStdString(filter.output);
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    QPdfDocument pdf;
    pdf.load(&buffer);
    std::vector<QImage> sheets;
    for (int page = 0; page < pdf.pageCount(); ++page) {
        QImage sheet(595, 842, QImage::Format_RGB32);
        sheet.fill(Qt::white);
        QPainter(&sheet).drawImage(0, 0, pdf.render(page, sheet.size()));
        sheets.push_back(sheet);
    }
    return sheets;
}

void ExpectPageAt(const QImage& sheet, const PlacedPage& placed) {
    const QRectF box(placed.box.x, placed.box.y, placed.box.width, placed.box.height);
    const auto differs = [&](QPointF at, QColor color) {
        const QPoint pixel(static_cast<int>(at.x()), static_cast<int>(at.y()));
        return !sheet.rect().contains(pixel) || Distance(sheet.pixelColor(pixel), color) > 60;
    };
    const QColor color = PageColor(placed.page);
    const QRectF inside = box.adjusted(4, 4, -4, -4);
    const QRectF outside = box.adjusted(-4, -4, 4, 4);
    EXPECT_FALSE(differs(placed.turned ? inside.topRight() : inside.topLeft(), Qt::black));
    EXPECT_FALSE(differs(placed.turned ? inside.topLeft() : inside.topRight(), color));
    EXPECT_FALSE(differs(inside.bottomLeft(), color));
    EXPECT_FALSE(differs(inside.bottomRight(), color));
    for (const QPointF at :
         {QPointF(outside.left(), box.center().y()), QPointF(outside.right(), box.center().y()),
          QPointF(box.center().x(), outside.top()), QPointF(box.center().x(), outside.bottom())}) {
        EXPECT_TRUE(differs(at, color)) << "the page is larger than shown";
    }
}

TEST(SheetLayout, MatchesThePrintServersFilter) {
    const std::pair<const char*, std::vector<QSizeF>> documents[] = {
        {"portrait", std::vector(7, kPortraitPage)},
        {"landscape", std::vector(7, kLandscapePage)},
        {"one across", {kPortraitPage, kLandscapePage, kPortraitPage}},
        {"one upright", {kLandscapePage, kPortraitPage, kLandscapePage}},
        {"small", std::vector(3, kSmallPage)},
        {"large", std::vector(3, kLargePage)},
    };
    for (const auto& [name, pages] : documents) {
        const auto file = WriteDocument(pages);
        for (const Orientation orientation : {Orientation::portrait, Orientation::landscape}) {
            for (const int count : kPagesPerSheet) {
                const bool landscape = orientation == Orientation::landscape;
                SCOPED_TRACE(testing::Message()
                             << name << ", " << count << " on a sheet, landscape " << landscape);
                JobSettings settings;
                settings.orientation = orientation;
                settings.pagesPerSheet = count;
                const SheetLayout layout(kA4, settings, Sizes(pages));
                const auto printed = PrintedSheets(file, layout);
                ASSERT_EQ(static_cast<int>(printed.size()), layout.sheetCount());
                const bool across = count == 2 || count == 6;
                const double turn = landscape ? (across ? 180 : 90) : (across ? -90 : 0);
                for (int index = 0; index < layout.sheetCount(); ++index) {
                    const Sheet sheet = layout.sheet(index);
                    const QImage read = printed[static_cast<std::size_t>(index)].transformed(
                        QTransform().rotate(turn));
                    ASSERT_EQ(read.size(), QSize(int(sheet.width), int(sheet.height)));
                    for (const PlacedPage& page : sheet.pages) ExpectPageAt(read, page);
                }
            }
        }
    }
}

}  // namespace
}  // namespace kalmo::test
