// Documents made for a test: each page has a colour of its own, and a black mark at its upper left.
#pragma once

#include <QPdfWriter>

#include "support/qt_test.h"

namespace kalmo::test {

/// Points, as the pages stand.
inline const QSizeF kPortraitPage{595, 842}, kLandscapePage{842, 595};

/// The colour of page `number`, from 1; different for the first twelve.
inline QColor PageColor(int number) { return QColor::fromHsv((number - 1) * 30 % 360, 200, 230); }
/// The sum over red, green and blue.
inline int Distance(QColor a, QColor b) {
    return std::abs(a.red() - b.red()) + std::abs(a.green() - b.green()) +
           std::abs(a.blue() - b.blue());
}
/// The PDF file `name` in a fresh folder.
inline std::filesystem::path WriteDocument(const std::vector<QSizeF>& pages,
                                           const char* name = "report.pdf") {
    const auto file = MakeFolder("document") / name;
    QPdfWriter writer(QString::fromStdString(file.string()));
    writer.setResolution(72);
    writer.setPageMargins({});
    QPainter painter;
    int number = 0;
    for (const QSizeF& page : pages) {
        writer.setPageSize(QPageSize(page, QPageSize::Point, {}, QPageSize::ExactMatch));
        number++ == 0 ? painter.begin(&writer) : writer.newPage();
        painter.fillRect(QRectF({}, page), PageColor(number));
        painter.fillRect(QRectF({}, page / 4), Qt::black);
    }
    return file;
}
/// The names of what lies there.
inline std::set<std::string> FilesIn(const std::filesystem::path& folder) {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        names.insert(entry.path().filename());
    return names;
}

}  // namespace kalmo::test
