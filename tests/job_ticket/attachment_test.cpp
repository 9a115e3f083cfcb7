// What the printer's side gets back is what the print dialog put in, or nothing.
#include "job_ticket/attachment.h"

#include <sys/stat.h>

#include <qpdf/QPDF.hh>
#include <qpdf/QPDFEFStreamObjectHelper.hh>
#include <qpdf/QPDFEmbeddedFileDocumentHelper.hh>
#include <qpdf/QPDFFileSpecObjectHelper.hh>
#include <qpdf/QPDFWriter.hh>

#include "support/pdf_documents.h"
#include "support/test.h"

namespace kalmo::job_ticket {
namespace {

using std::filesystem::path;
using namespace test;

std::string NastyTicket() {
    using namespace std::string_literals;
    std::string ticket =
        "<plist>\r\n{x}\"'\\ \xF0\x9F\x96\xA8 endstream endobj %%EOF\0 passcode 4711"s;
    for (int i = 0; i < 20'000; ++i) ticket += "<key>" + std::to_string(i) + "</key>\r";
    return ticket;
}

struct Attachment : testing::Test {
    Attachment() { WriteFile(document, MakePdf(3)); }

    path attach(const std::string& ticket) {
        const Result attached = AttachTicket(document, ticket, folder / "sent.pdf");
        EXPECT_TRUE(attached) << attached.error;
        return folder / "sent.pdf";
    }
    path rewritten(const std::function<void(QPDF&, QPDFWriter&)>& change) {
        QPDF pdf;
        pdf.processFile(document.c_str());
        const path output = folder / "changed.pdf";  // the writer keeps a pointer to the name
        QPDFWriter writer(pdf, output.c_str());
        change(pdf, writer);
        writer.write();
        return output;
    }

    const path folder = MakeFolder("attachment");
    const path document = folder / "document.pdf";
    TakenOut taken;
};

TEST_F(Attachment, ComesBackExactAndLeavesNoTrace) {
    const std::string ticket = NastyTicket();
    const path sent = attach(ticket);
    const Result result = TakeTicketOut(sent, TicketDigest(ticket), folder / "clean.pdf", &taken);
    ASSERT_TRUE(result) << result.error;
    EXPECT_EQ(taken.ticket, ticket);

    ASSERT_TRUE(Contains(ReadFile(sent), "passcode 4711"));
    const std::string clean = ReadFile(folder / "clean.pdf");
    EXPECT_FALSE(Contains(clean, "passcode 4711"));
    EXPECT_FALSE(Contains(clean, kAttachmentFileName));
    QPDF pdf;
    pdf.processFile((folder / "clean.pdf").c_str());
    EXPECT_EQ(pdf.getAllPages().size(), 3u);
}

TEST_F(Attachment, SecondTicketReplacesTheFirst) {
    attach("first");
    const Result again = AttachTicket(folder / "sent.pdf", "second", folder / "again.pdf");
    ASSERT_TRUE(again) << again.error;
    EXPECT_EQ(ReadFile(folder / "again.pdf").find("first"), std::string::npos);
    EXPECT_TRUE(TakeTicketOut(folder / "again.pdf", TicketDigest("second"), {}, &taken));
    EXPECT_EQ(taken.ticket, "second");
}

TEST_F(Attachment, ThatUnpacksWithoutEndIsRefused) {
    const path bomb = rewritten([](QPDF& pdf, QPDFWriter& writer) {
        auto stream =
            QPDFEFStreamObjectHelper::createEFStream(pdf, std::string((64u << 20) + 1, '\0'));
        QPDFEmbeddedFileDocumentHelper(pdf).replaceEmbeddedFile(
            kAttachmentKey,
            QPDFFileSpecObjectHelper::createFileSpec(pdf, kAttachmentFileName, stream));
        writer.setCompressStreams(true);
    });
    ASSERT_LT(file_size(bomb), 1u << 20);
    EXPECT_FALSE(TakeTicketOut(bomb, TicketDigest(std::string((64u << 20) + 1, '\0')), {}, &taken));
    EXPECT_FALSE(AttachTicket(document, std::string((64u << 20) + 1, ' '), folder / "out.pdf"));
}

TEST_F(Attachment, DocumentsThatCannotBeReadAreRefusedWithAReason) {
    const std::string whole = MakePdf(2);
    const auto file = [this](const char* name, const std::string& bytes) {
        WriteFile(folder / name, bytes);
        return folder / name;
    };
    // A linearized file begins with a usable table: cut short, it opens with pages missing.
    const path early = rewritten([](QPDF&, QPDFWriter& writer) { writer.setLinearization(true); });
    const std::string linear = ReadFile(early);
    const std::tuple<const char*, path, const char*> rows[] = {
        {"missing", folder / "nowhere.pdf", "No such file"},
        {"a folder", folder, "damaged"},
        {"empty", file("empty.pdf", ""), "damaged"},
        {"a letter", file("letter.pdf", "Dear reader,\n%PDF is what this is not."), "damaged"},
        {"cut short", file("half.pdf", whole.substr(0, whole.size() / 2)), "damaged"},
        {"linearized, cut short", file("early.pdf", linear.substr(0, linear.size() - 300)),
         "damaged"},
    };
    for (const auto& [why, input, reason] : rows) {
        SCOPED_TRACE(why);
        const Result result = AttachTicket(input, "ticket", folder / "out.pdf");
        EXPECT_TRUE(Contains(result.error, reason)) << result.error;
        EXPECT_FALSE(Contains(result.error, "\n"));
        EXPECT_FALSE(exists(folder / "out.pdf"));
    }
}

TEST_F(Attachment, ProtectedDocumentsThatOpenAreKeptProtected) {
    const auto protect = [this](const char* user) {
        return rewritten([user](QPDF&, QPDFWriter& writer) {
            writer.setR6EncryptionParameters(user, "owner", true, true, true, true, true, true,
                                             qpdf_r3p_full, true);
        });
    };
    EXPECT_NE(AttachTicket(protect("user"), "ticket", folder / "out.pdf").error.find("password"),
              std::string::npos);
    ASSERT_TRUE(AttachTicket(protect(""), "ticket", folder / "out.pdf"));
    ASSERT_TRUE(
        TakeTicketOut(folder / "out.pdf", TicketDigest("ticket"), folder / "clean.pdf", &taken));
    QPDF pdf;
    pdf.processFile((folder / "clean.pdf").c_str());
    EXPECT_TRUE(pdf.isEncrypted());
}

TEST_F(Attachment, OutputIsPrivateAndWholeOrNotThere) {
    umask(0);
    attach("ticket");
    ASSERT_TRUE(TakeTicketOut(document, std::nullopt, folder / "copy.pdf", &taken));
    for (const char* name : {"sent.pdf", "copy.pdf"})
        EXPECT_EQ(status(folder / name).permissions(), std::filesystem::perms(0600)) << name;
    // A failure leaves what was there, and no half file beside it.
    WriteFile(folder / "copy.pdf", "earlier");
    EXPECT_FALSE(TakeTicketOut(document, TicketDigest("x"), folder / "copy.pdf", &taken));
    EXPECT_EQ(ReadFile(folder / "copy.pdf"), "earlier");
    EXPECT_FALSE(AttachTicket(document, "ticket", folder / "nowhere" / "out.pdf"));
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    EXPECT_FALSE(AttachTicket(document, "ticket", folder / "pipe"));
    EXPECT_TRUE(is_fifo(folder / "pipe"));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder), {}), 4);
}

TEST(Digest, IsTheOneEverybodyElseComputes) {
    EXPECT_EQ(TicketDigest("abc"),
              "sha256-ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
    EXPECT_EQ(MakeNonce().size(), 16u);
    EXPECT_NE(MakeNonce(), MakeNonce());
}

}  // namespace
}  // namespace kalmo::job_ticket
