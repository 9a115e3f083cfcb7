#include "support/pdf_documents.h"

#include <cstdio>

namespace kalmo::test {
namespace {

/// Numbers the objects from 1 and keeps where each begins.
class PdfText {
public:
    int add(const std::string& object) {
        offsets_.push_back(text_.size());
        const int number = static_cast<int>(offsets_.size());
        text_ += std::to_string(number) + " 0 obj\n" + object + "\nendobj\n";
        return number;
    }

    std::string finish(int catalog) {
        const std::size_t start = text_.size();
        text_ += "xref\n0 " + std::to_string(offsets_.size() + 1) + "\n0000000000 65535 f \n";
        for (const std::size_t offset : offsets_) {
            char entry[32];
            std::snprintf(entry, sizeof entry, "%010zu 00000 n \n", offset);
            text_ += entry;
        }
        text_ += "trailer\n<</Size " + std::to_string(offsets_.size() + 1) + " /Root " +
                 std::to_string(catalog) + " 0 R>>\nstartxref\n" + std::to_string(start) +
                 "\n%%EOF\n";
        return text_;
    }

private:
    std::string text_ = "%PDF-1.4\n";
    std::vector<std::size_t> offsets_;
};

}  // namespace

std::string MakePdf(const std::vector<std::string>& pageTexts) {
    PdfText pdf;
    const int font = pdf.add("<</Type /Font /Subtype /Type1 /BaseFont /Helvetica>>");
    // Contents and page follow in pairs; the page tree comes after them.
    const int tree = font + 2 * static_cast<int>(pageTexts.size()) + 1;
    std::string kids;
    for (const std::string& text : pageTexts) {
        const std::string drawing = "BT /F 24 Tf 72 760 Td (" + text + ") Tj ET";
        const int contents = pdf.add("<</Length " + std::to_string(drawing.size()) +
                                     ">>\nstream\n" + drawing + "\nendstream");
        const int page =
            pdf.add("<</Type /Page /Parent " + std::to_string(tree) +
                    " 0 R /MediaBox [0 0 595 842] /Resources <</Font <</F " + std::to_string(font) +
                    " 0 R>>>> /Contents " + std::to_string(contents) + " 0 R>>");
        kids += std::to_string(page) + " 0 R ";
    }
    pdf.add("<</Type /Pages /Kids [" + kids + "] /Count " + std::to_string(pageTexts.size()) +
            ">>");
    return pdf.finish(pdf.add("<</Type /Catalog /Pages " + std::to_string(tree) + " 0 R>>"));
}

}  // namespace kalmo::test
