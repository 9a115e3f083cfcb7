// Documents made for a test: each page has a colour of its own, and a black mark at its upper left.
#pragma once

#include "support/qt_test.h"

namespace kalmo::test {

/// Points, as the pages stand.
inline const QSizeF kPortraitPage{595, 842}, kLandscapePage{842, 595};

/// The colour of page `number`, from 1; different for the first twelve.
[[nodiscard]] QColor PageColor(int number);
/// The sum over red, green and blue.
[[nodiscard]] inline int Distance(QColor a, QColor b) {
    return std::abs(a.red() - b.red()) + std::abs(a.green() - b.green()) +
           std::abs(a.blue() - b.blue());
}
/// The PDF file `name` in a fresh folder.
[[nodiscard]] std::filesystem::path WriteDocument(const std::vector<QSizeF>& pages,
                                                  const char* name = "report.pdf");

}  // namespace kalmo::test
