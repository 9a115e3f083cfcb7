// What kalmo-print tells about the queues of a real CUPS server, and how long a thousand take.
#include <regex>

#include "print_dialog/destination_choice.h"
#include "print_dialog/printer_requests.h"
#include "programs/private_cupsd.h"

namespace kalmo::test {
namespace {

std::string Listed() {
    const auto end =
        RunProgram({.program = BuiltProgram("kalmo-print"), .arguments = {"--list-printers"}});
    EXPECT_EQ(end.exitCode, 0) << end.errors;
    return end.output;
}

TEST(ManyPrintersTest, EachQueueIsListedWithItsPaneOrWhyItHasNone) {
    PrivateCupsd server;
    ASSERT_EQ(server.problem(), "");
    struct {
        const char* queue;
        std::filesystem::path ppd;
        const char* pane;
    } const rows[] = {
        {"bad", SamplePPD("kalmo-office-mono"), "no, its PPD file cannot be read: "},
        {"c7030", SamplePPD("kalmo-office-color"), "yes\n"},
        {"lookalike", WritePPD("KALMO"), "no, not a Kalmo printer\n"},
        {"raw", {}, "no, it has no PPD file\n"},
        {"twin", SamplePPD("kalmo-office-color"), "yes\n"},
    };
    for (const auto& row : rows) ASSERT_EQ(server.addQueue(row.queue, row.ppd).exitCode, 0);
    server.damagePPD("bad", "no description at all");
    setenv("PRINTER", "c7030", 1);
    const std::string listed = Listed();
    for (const auto& [queue, ppd, pane] : rows) {
        const std::regex line(std::string(" ") + queue + "(\t[^\t\n]*){2}\tpane: " + pane);
        EXPECT_TRUE(std::regex_search(listed, line)) << queue << '\n' << listed;
    }
    EXPECT_EQ(std::ranges::count(listed, '*'), 1);
    EXPECT_TRUE(Contains(listed, "* c7030\tKalmo Tolvane C7030\t")) << "the default";
}

TEST(ManyPrintersTest, AThousandQueuesAreReadySoonAndReadOnce) {
    std::string printers;
    for (int i = 0; i < 1000; ++i) {
        const std::string number = std::to_string(i);
        printers += "<Printer q" + number + ">\nInfo Room " + number +
                    "\nDeviceURI file:/dev/null\nState Idle\nAccepting Yes\n</Printer>\n";
    }
    PrivateCupsd server(Reach::socket, printers);
    ASSERT_EQ(server.problem(), "");
    const PrinterList list = FetchPrinterList();
    ASSERT_EQ(list.destinations.size(), 1000u) << list.error;
    EXPECT_EQ(list.destinations[10].text, "Room 10") << "numbers as numbers";
    QWidget window;
    DestinationChoice choice(&window);
    window.show();
    choice.list()->showPopup();
    QElapsedTimer time;
    time.start();
    choice.setQueues(list.destinations, {});
    const QPixmap rows = window.findChild<QListView*>("printers")->grab();
    EXPECT_LT(time.elapsed(), 100) << "six frames: other programs may have kept the processor";
    EXPECT_EQ(std::ranges::count(Listed(), '\n'), 1000);
    const std::string log = server.log();
    int fetched = 0;
    for (auto at = log.find(".ppd HTTP"); at != std::string::npos;
         at = log.find(".ppd HTTP", at + 1))
        ++fetched;
    EXPECT_TRUE(fetched > 0 && fetched < 10) << fetched << ": one of a kind tells for all";
}

}  // namespace
}  // namespace kalmo::test
