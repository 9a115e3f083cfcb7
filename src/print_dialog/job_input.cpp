#include "print_dialog/job_input.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <iterator>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>
#include <string_view>

#include "foundation/property_list.h"
#include "job_ticket/private_file.h"
#include "print_dialog/private_folder.h"
#include "print_dialog/reasons.h"
#include "print_dialog/window_texts.h"

namespace kalmo {
namespace {

/// Readers look for the header in so many bytes.
constexpr std::size_t kHeaderRoom = 1024;

Outcome CheckHeader(const std::filesystem::path& file, const std::string& name) {
    errno = 0;
    std::ifstream in(file, std::ios::binary);
    std::array<char, kHeaderRoom> head = {};
    if (in) in.read(head.data(), head.size());
    if (in.bad() || (in.gcount() == 0 && errno != 0)) return {SystemReason(name, errno)};
    const std::string_view text(head.data(), static_cast<std::size_t>(in.gcount()));
    const bool pdf = text.find("%PDF-") != std::string_view::npos;
    return {pdf ? "" : name + ": " + HostText("Not a PDF file")};
}

/// As it is shown: the media box, turned by /Rotate.
PageSize SizeOf(QPDFPageObjectHelper page) {
    auto box = page.getAttribute("/MediaBox", false);
    if (!box.isRectangle()) return {};
    const auto rectangle = box.getArrayAsRectangle();
    const double width = std::abs(rectangle.urx - rectangle.llx);
    const double height = std::abs(rectangle.ury - rectangle.lly);
    auto rotate = page.getAttribute("/Rotate", false);
    const bool turned = rotate.isInteger() && rotate.getIntValue() % 180 != 0;
    return turned ? PageSize{height, width} : PageSize{width, height};
}

/// The whole of a ticket file; one byte more than is allowed tells a file that is too large.
Outcome ReadAll(const std::string& file, std::string* bytes) {
    errno = 0;
    std::ifstream in(file, std::ios::binary);
    std::array<char, 65536> buffer;
    while (in && bytes->size() <= kPropertyListMaximumBytes) {
        in.read(buffer.data(), buffer.size());
        bytes->append(buffer.data(), static_cast<std::size_t>(in.gcount()));
    }
    const bool unread = (!in.eof() && !in.good()) || (bytes->empty() && errno != 0);
    return {unread ? SystemReason(file, errno) : ""};
}

}  // namespace

Outcome InputDocument::open(const std::string& name) {
    if (name.empty()) return {};
    path_ = name_ = name;
    if (name == "-") {
        if (const auto copied = copyStandardInput(); !copied) return copied;
    }
    return CheckHeader(path_, name_);
}

Outcome InputDocument::copyStandardInput() {
    if (isatty(STDIN_FILENO)) return {HostText("Standard input typed")};
    name_ = HostText("Standard input");
    copy_ = PrivateCopy::OfStandardInput();
    if (!copy_) return {SystemReason(name_, errno)};
    path_ = copy_->path();
    return {};
}

Outcome InspectDocument(const std::filesystem::path& document, std::vector<PageSize>* sizes) {
    try {
        QPDF pdf;
        pdf.setSuppressWarnings(true);
        pdf.processFile(document.c_str());
        const auto pages = QPDFPageDocumentHelper(pdf).getAllPages();
        if (pages.empty()) return {HostText("Document without pages")};
        sizes->clear();
        for (const auto& page : pages) sizes->push_back(SizeOf(page));
        return {};
    } catch (const QPDFExc& error) {
        const bool locked = error.getErrorCode() == qpdf_e_password;
        return {locked ? HostText("Password needed") : HostText("Export anew")};
    } catch (const std::exception&) {
        return {HostText("Export anew")};
    }
}

Outcome LoadInputs(const CommandLine& commandLine, PrintJobHost& host) {
    host.setJobName(commandLine.jobName());
    if (commandLine.ticket.empty()) return {};
    std::string bytes;
    if (const auto read = ReadAll(commandLine.ticket, &bytes); !read) return read;
    const auto outcome = host.readTicket(bytes);
    return {outcome ? "" : commandLine.ticket + ": " + outcome.error};
}

Outcome WriteTicket(const std::string& file, const PrintJobHost& host) {
    const auto bytes = host.ticketFile();
    if (bytes.empty()) return {file + ": " + HostText("Ticket not written")};
    if (file != "-") {
        const auto written = job_ticket::WritePrivateFile(file, bytes);
        return {written ? "" : file + ": " + ReasonInWords(written.error)};
    }
    std::cout << bytes << std::flush;
    return {std::cout ? "" : SystemReason(HostText("Standard output"), errno)};
}

}  // namespace kalmo
