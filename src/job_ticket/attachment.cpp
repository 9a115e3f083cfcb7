#include "job_ticket/attachment.h"

#include <cerrno>
#include <cstring>
#include <functional>
#include <qpdf/Pipeline.hh>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFEFStreamObjectHelper.hh>
#include <qpdf/QPDFEmbeddedFileDocumentHelper.hh>
#include <qpdf/QPDFExc.hh>
#include <qpdf/QPDFFileSpecObjectHelper.hh>
#include <qpdf/QPDFWriter.hh>
#include <stdexcept>
#include <vector>

#include "job_ticket/private_file.h"

namespace kalmo::job_ticket {
namespace {

constexpr std::size_t kMaximumTicketBytes = 64u << 20;
constexpr char kDamaged[] = "It is damaged, or no PDF file.";
constexpr char kChanged[] =
    "The settings that belong to the job are missing or were changed on the way.";

FileStream OpenForReading(const std::filesystem::path& document, Result* result) {
    FileStream stream(std::fopen(document.c_str(), "rbe"));
    if (!stream) result->error = std::string("It cannot be read: ") + std::strerror(errno) + ".";
    return stream;
}

// Collects a stream's bytes and gives up on one that unpacks to more than a ticket can be.
class BoundedBuffer final : public Pipeline {
public:
    BoundedBuffer() : Pipeline("ticket", nullptr) {}
    void write(const unsigned char* data, std::size_t size) override {
        if (bytes.size() + size > kMaximumTicketBytes) throw std::length_error("ticket too large");
        bytes.append(reinterpret_cast<const char*>(data), size);
    }
    void finish() override {}

    std::string bytes;
};

// A repaired file may lack pages without anybody noticing, unless it still has its end.
bool HasEnd(std::FILE* file) {
    std::string tail(1024, '\0');
    if (std::fseek(file, -static_cast<long>(tail.size()), SEEK_END) != 0) std::rewind(file);
    tail.resize(std::fread(tail.data(), 1, tail.size(), file));
    return tail.find("%%EOF") != std::string::npos;
}

void RefuseUnlessWhole(QPDF& pdf, std::FILE* file) {
    if (!pdf.anyWarnings()) return;
    if (!HasEnd(file) || pdf.getAllPages().empty()) throw std::runtime_error("cut short");
}

std::string Describe(const QPDFExc& problem) {
    return problem.getErrorCode() == qpdf_e_password ? "It can only be opened with its password."
                                                     : kDamaged;
}

/// Calls `work` with the opened document; what qpdf throws becomes a result.
Result WithDocument(const std::filesystem::path& document,
                    const std::function<Result(QPDF&)>& work) {
    Result result;
    const FileStream file = OpenForReading(document, &result);
    if (!file) return result;
    try {
        QPDF pdf;
        pdf.setSuppressWarnings(true);
        pdf.processFile("document", file.get(), false);
        RefuseUnlessWhole(pdf, file.get());
        return work(pdf);
    } catch (const QPDFExc& problem) {
        return {Describe(problem)};
    } catch (const std::exception&) {
        return {kDamaged};
    }
}

Result WriteDocument(QPDF& pdf, const std::filesystem::path& output) {
    PrivateFile file(output);
    if (!file.stream()) return {file.error()};
    try {
        QPDFWriter writer(pdf);
        writer.setOutputFile("output", file.stream(), false);
        writer.setStreamDataMode(qpdf_s_preserve);
        writer.write();
    } catch (const std::exception&) {
        // A full disk and a damaged document end here alike.
        if (std::string reason = file.error(); !reason.empty()) return {reason};
        throw;
    }
    return file.commit();
}

std::optional<std::string> ReadAttachment(QPDF& pdf) {
    const auto fileSpec = QPDFEmbeddedFileDocumentHelper(pdf).getEmbeddedFile(kAttachmentKey);
    if (!fileSpec) return std::nullopt;
    QPDFObjectHandle stream = fileSpec->getEmbeddedFileStream();
    if (!stream.isStream()) return std::nullopt;
    BoundedBuffer buffer;
    bool attempted = false;
    if (!stream.pipeStreamData(&buffer, &attempted, 0, qpdf_dl_generalized)) return std::nullopt;
    return std::move(buffer.bytes);
}

Result CopyDocument(const std::filesystem::path& document, const std::filesystem::path& output) {
    Result result;
    const FileStream source = OpenForReading(document, &result);
    if (!source) return result;
    PrivateFile file(output);
    std::vector<char> block(1u << 16);
    while (file.stream()) {
        const std::size_t size = std::fread(block.data(), 1, block.size(), source.get());
        if (size == 0 || std::fwrite(block.data(), 1, size, file.stream()) != size) break;
    }
    if (std::ferror(source.get())) return {"It cannot be read."};
    return file.commit();
}

}  // namespace

Result AttachTicket(const std::filesystem::path& document, std::string_view ticket,
                    const std::filesystem::path& output) {
    if (ticket.size() > kMaximumTicketBytes) return {"The settings are larger than 64 MiB."};
    return WithDocument(document, [&](QPDF& pdf) {
        auto stream = QPDFEFStreamObjectHelper::createEFStream(pdf, std::string(ticket));
        stream.setSubtype("application/x-plist");
        const auto fileSpec =
            QPDFFileSpecObjectHelper::createFileSpec(pdf, kAttachmentFileName, stream);
        QPDFEmbeddedFileDocumentHelper files(pdf);
        files.removeEmbeddedFile(kAttachmentKey);
        files.replaceEmbeddedFile(kAttachmentKey, fileSpec);
        return WriteDocument(pdf, output);
    });
}

Result TakeTicketOut(const std::filesystem::path& document,
                     const std::optional<std::string>& digest, const std::filesystem::path& output,
                     TakenOut* out) {
    *out = {};
    if (!digest) return output.empty() ? Result{} : CopyDocument(document, output);
    return WithDocument(document, [&](QPDF& pdf) {
        std::optional<std::string> ticket = ReadAttachment(pdf);
        if (!ticket || TicketDigest(*ticket) != *digest) return Result{kChanged};
        QPDFEmbeddedFileDocumentHelper(pdf).removeEmbeddedFile(kAttachmentKey);
        Result written = output.empty() ? Result{} : WriteDocument(pdf, output);
        if (written) out->ticket = std::move(ticket);
        return written;
    });
}

}  // namespace kalmo::job_ticket
