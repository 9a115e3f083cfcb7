#include "print_dialog/page_selection.h"

#include <algorithm>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>
#include <qpdf/QPDFSystemError.hh>
#include <qpdf/QPDFWriter.hh>
#include <system_error>

#include "print_dialog/window_texts.h"

namespace kalmo {
namespace {

bool Holds(const std::vector<PageRange>& ranges, int page) {
    return std::ranges::any_of(ranges, [page](const PageRange& range) {
        return range.first <= page && page <= range.last;
    });
}

void RemoveOtherPages(QPDF& pdf, const std::vector<PageRange>& ranges) {
    QPDFPageDocumentHelper document(pdf);
    int number = 0;
    for (const QPDFPageObjectHelper& page : document.getAllPages()) {
        if (!Holds(ranges, ++number)) document.removePage(page);
    }
}

}  // namespace

Outcome CopyPages(const std::filesystem::path& document, const std::vector<PageRange>& ranges,
                  const std::filesystem::path& output) {
    try {
        QPDF pdf;
        pdf.setSuppressWarnings(true);
        pdf.processFile(document.c_str());
        RemoveOtherPages(pdf, ranges);
        QPDFWriter writer(pdf, output.c_str());
        writer.setStreamDataMode(qpdf_s_preserve);
        writer.write();
    } catch (const QPDFSystemError& error) {
        const auto why = std::generic_category().message(error.getErrno());
        return {HostText("Pages not taken out", {why})};
    } catch (const std::exception&) {
        return {HostText("Export anew")};
    }
    std::error_code error;
    std::filesystem::permissions(output, std::filesystem::perms(0600), error);
    return {error ? error.message() : ""};
}

}  // namespace kalmo
