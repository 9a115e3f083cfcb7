#include <gtest/gtest.h>

#include <set>

#include "print_dialog/job_delivery.h"
#include "support/pdf_documents.h"
#include "support/private_home.h"

namespace kalmo {
namespace {

namespace fs = std::filesystem;

constexpr char kTicket[] = "<plist>a ticket with a secret</plist>";

class FolderDeliveryTest : public testing::Test {
protected:
    FolderDeliveryTest() { test::WriteFile(document_, test::MakePdf({"One", "Two"})); }

    JobResult deliver(const std::string& title) {
        return DeliverToFolder(
            {.document = document_, .ticket = kTicket, .title = title, .folder = output_},
            {state_, [](JobStage, int) {}});
    }
    std::set<std::string> files() const {
        std::set<std::string> names;
        for (const auto& entry : fs::directory_iterator(output_)) {
            names.insert(entry.path().filename());
        }
        return names;
    }

    fs::path document_ = test::MakeFolder("in") / "report.pdf";
    fs::path output_ = test::MakeFolder("out");
    DeliveryState state_;
};

TEST_F(FolderDeliveryTest, LeavesWhatLiesThereAlone) {
    test::WriteFile(output_ / "report.pdf", "somebody's");
    test::WriteFile(output_ / "report 2.ticket.plist", "somebody's too");
    const auto result = deliver("report.pdf");
    ASSERT_EQ(result.end, JobResult::End::printed) << result.message;
    EXPECT_EQ(result.document.filename(), "report 3.pdf");
    EXPECT_EQ(result.ticket.filename(), "report 3.ticket.plist");
    EXPECT_EQ(test::ReadFile(output_ / "report.pdf"), "somebody's");
    EXPECT_EQ(test::ReadFile(output_ / "report 2.ticket.plist"), "somebody's too");
    EXPECT_EQ(files().size(), 4u);
}

TEST_F(FolderDeliveryTest, NamesStayInTheFolder) {
    struct Row {
        const char* why;
        std::string title;
        const char* expected;
    };
    const Row rows[] = {
        {"a path", "../../etc/passwd", "_.._etc_passwd.pdf"},
        {"a hidden file", ".profile", "profile.pdf"},
        {"nothing but dots", "..", "document.pdf"},
        {"a line end", "a\nb", "a_b.pdf"},
        {"other letters", "Übersicht é.pdf", "Übersicht é.pdf"},
    };
    for (const auto& [why, title, expected] : rows) {
        SCOPED_TRACE(why);
        EXPECT_EQ(deliver(title).document, output_ / expected);
    }
    const auto longest = deliver(std::string(199, 'x') + "ééé");
    EXPECT_EQ(longest.document.filename(), std::string(199, 'x') + ".pdf");
}

TEST_F(FolderDeliveryTest, CancelledOrFailedItLeavesNothing) {
    state_.cancel();
    EXPECT_EQ(deliver("report").end, JobResult::End::cancelled);
    test::WriteFile(document_, "%PDF-1.7 and then nothing");
    const auto damaged = deliver("report");
    EXPECT_EQ(damaged.end, JobResult::End::failed);
    EXPECT_NE(damaged.message.find("report.pdf"), std::string::npos) << damaged.message;
    EXPECT_TRUE(files().empty());

    output_ /= "missing";
    EXPECT_NE(deliver("report").message.find("missing"), std::string::npos);
}

}  // namespace
}  // namespace kalmo
