#include "support/pdf_documents.h"

#include <cstdio>

namespace kalmo::test {

std::string MakePdf(const std::vector<std::string>& pageTexts) {
    std::vector<std::string> objects = {"<</Type /Catalog /Pages 2 0 R>>", "",
                                        "<</Type /Font /Subtype /Type1 /BaseFont /Helvetica>>"};
    std::string kids;
    for (const std::string& text : pageTexts) {
        const std::string drawing = "BT /F 24 Tf 72 760 Td (" + text + ") Tj ET";
        objects.push_back("<</Length " + std::to_string(drawing.size()) + ">>\nstream\n" + drawing +
                          "\nendstream");
        objects.push_back(
            "<</Type /Page /Parent 2 0 R /MediaBox [0 0 595 842] /Resources <</Font <</F 3 0 R>>>> "
            "/Contents " +
            std::to_string(objects.size()) + " 0 R>>");
        kids += std::to_string(objects.size()) + " 0 R ";
    }
    objects[1] =
        "<</Type /Pages /Kids [" + kids + "] /Count " + std::to_string(pageTexts.size()) + ">>";
    std::string pdf = "%PDF-1.4\n", table = "0000000000 65535 f \n";
    int number = 0;
    for (const std::string& object : objects) {
        char entry[32];
        std::snprintf(entry, sizeof entry, "%010zu 00000 n \n", pdf.size());
        table += entry;
        pdf += std::to_string(++number) + " 0 obj\n" + object + "\nendobj\n";
    }
    const std::string size = std::to_string(objects.size() + 1);
    return pdf + "xref\n0 " + size + "\n" + table + "trailer\n<</Size " + size +
           " /Root 1 0 R>>\nstartxref\n" + std::to_string(pdf.size()) + "\n%%EOF\n";
}

}  // namespace kalmo::test
