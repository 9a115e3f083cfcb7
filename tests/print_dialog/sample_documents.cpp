#include "print_dialog/sample_documents.h"

#include <QPdfWriter>

#include "support/qt_test.h"

namespace kalmo::test {

QColor PageColor(int number) { return QColor::fromHsv((number - 1) * 30 % 360, 200, 230); }

std::filesystem::path WriteDocument(const std::vector<QSizeF>& pages, const char* name) {
    const auto file = MakeFolder("document") / name;
    QPdfWriter writer(QString::fromStdString(file.string()));
    writer.setResolution(72);
    writer.setPageMargins({});
    QPainter painter;
    int number = 0;
    for (const QSizeF& page : pages) {
        writer.setPageSize(QPageSize(page, QPageSize::Point, {}, QPageSize::ExactMatch));
        if (number++ == 0) {
            painter.begin(&writer);
        } else {
            writer.newPage();
        }
        painter.fillRect(QRectF({}, page), PageColor(number));
        painter.fillRect(QRectF({}, page / 4), Qt::black);
    }
    painter.end();
    return file;
}

}  // namespace kalmo::test
