#include "print_dialog/job.h"

#include <gtest/gtest.h>

#include <map>

#include "job_ticket/attachment.h"
#include "print_dialog/hosted_pane.h"

namespace kalmo {
namespace {

using test::HostedPane;
using test::TicketFile;

class JobTest : public testing::Test {
protected:
    JobOrder order(const JobRequest& request) {
        JobOrder order;
        const auto outcome = MakeJobOrder(pane_.host, request, &order);
        EXPECT_TRUE(outcome) << outcome.error;
        return order;
    }
    static std::map<std::string, std::string> options(const JobOrder& order) {
        return {order.options.begin(), order.options.end()};
    }

    HostedPane pane_;
};

TEST_F(JobTest, ChoicesAndSettingsBecomeOptions) {
    pane_.choose(test::SamplePPD("kalmo-office-color"));
    ASSERT_TRUE(pane_.host.readTicket(
        TicketFile("<key>com.kalmo.print.JobType</key><dict><key>SecurePrintPassword</key>"
                   "<string>24680</string></dict>",
                   "<key>KLEconomode</key><string>Draft</string><key>copies</key>"
                   "<string>99</string><key>raw</key><string>true</string>")));
    ASSERT_EQ(pane_.begin(), noErr);
    auto settings = pane_.host.settings();
    settings.copies = 3;
    settings.collate = false;
    settings.pages = {{1, 3}, {5, 5}};
    settings.paper = "A3";
    settings.pagesPerSheet = 4;
    settings.orientation = Orientation::landscape;
    pane_.host.apply(settings);
    const SheetLayout layout(pane_.host.paper(), settings, {{595, 842}});
    const auto made = order({.layout = layout, .queue = "office"});
    auto sent = options(made);
    EXPECT_EQ(sent["KLEconomode"], "Draft");
    EXPECT_EQ(sent["PageSize"], "A3");
    EXPECT_EQ(sent["copies"], "3") << "not the ticket's word: it is no option of the printer";
    EXPECT_EQ(sent["multiple-document-handling"], "separate-documents-uncollated-copies");
    EXPECT_FALSE(sent.contains("page-ranges")) << "the server would count sheets";
    EXPECT_EQ(made.pages, settings.pages);
    EXPECT_EQ(sent["number-up"], "4");
    EXPECT_EQ(sent["orientation-requested"], "4");
    EXPECT_FALSE(sent.contains("raw"));
    EXPECT_EQ(sent[job_ticket::kDigestOption], job_ticket::TicketDigest(made.ticket));
    EXPECT_TRUE(made.secret);
    for (const auto& [name, value] : made.options) {
        EXPECT_EQ(value.find("24680"), std::string::npos) << name;
    }
}

TEST_F(JobTest, PlainJobsSayLittle) {
    ASSERT_EQ(pane_.beginOnSample(), noErr);
    auto settings = pane_.host.settings();
    settings.pages = {{2, 3}};
    pane_.host.apply(settings);
    const SheetLayout layout(pane_.host.paper(), settings, {{595, 842}});
    const auto made = order({.layout = layout, .queue = "office"});
    auto sent = options(made);
    for (const char* absent : {"copies", "multiple-document-handling", "number-up", "pdfAutoRotate",
                               "orientation-requested", "media"}) {
        EXPECT_FALSE(sent.contains(absent)) << absent;
    }
    EXPECT_EQ(sent["page-ranges"], "2-3");
    EXPECT_TRUE(made.pages.empty());
    EXPECT_FALSE(made.secret);
}

}  // namespace
}  // namespace kalmo
