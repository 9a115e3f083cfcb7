// kalmo-print without a window, as a script runs it: no display, no session bus, no print server.
#include "support/dead_servers.h"
#include "support/pdf_documents.h"
#include "support/programs.h"
#include "support/qt_test.h"
#include "support/ticket_files.h"

namespace kalmo::test {
namespace {

namespace fs = std::filesystem;
using Arguments = std::vector<std::string>;

constexpr char kSettings[] = "PrintSettings";
constexpr char kChoices[] = "PPDChoices";
constexpr char kJobName[] = "com.apple.print.JobInfo.PMJobName";

bool IsOneLine(const std::string& text) {
    return text.size() > 1 && std::ranges::count(text, '\n') == 1 && text.back() == '\n';
}

struct KalmoPrintTest : testing::Test {
    KalmoPrintTest() { WriteFile(document_, MakePdf(2)); }

    ProgramEnd run(Arguments arguments, std::map<std::string, std::string> environment = {},
                   const fs::path& input = "/dev/null") {
        environment.insert({{"QT_QPA_PLATFORM", ""}, {"HOME", ""}, {"TMPDIR", temporary_}});
        return RunProgram({.program = BuiltProgram("kalmo-print"),
                           .arguments = std::move(arguments),
                           .environment = std::move(environment),
                           .input = input});
    }
    ProgramEnd runOnSample(Arguments arguments, const fs::path& input = "/dev/null") {
        const Arguments sample = {"--no-dialog", "--ppd", SamplePPD("kalmo-office-color")};
        arguments.insert(arguments.begin(), sample.begin(), sample.end());
        return run(arguments, {}, input);
    }
    fs::path ticketWith(const std::string& settings, const std::string& choices = {}) {
        WriteFile(ticket_, TicketFile(settings, choices));
        return ticket_;
    }

    fs::path folder_ = MakeFolder("run");
    fs::path document_ = folder_ / "report.pdf";
    fs::path ticket_ = folder_ / "in.plist";
    fs::path output_ = MakeFolder("out");
    fs::path temporary_ = MakeFolder("tmp");
};

constexpr char kForeign[] = "com.example.foreign";
constexpr char kForeignSettings[] =
    "<key>com.example.foreign</key><array><dict><key>a\xC3\xA4</key><string>&lt;{x}</string>"
    "<key>int</key><integer>9007199254740993</integer><key>real</key><real>2.0</real></dict></"
    "array>";

TEST_F(KalmoPrintTest, TheLifeOfAPaneKeepsWhatItDoesNotKnow) {
    const std::string rotated =
        "<key>com.kalmo.print.RotateBooklet180Degrees</key><true/>"
        "<key>com.kalmo.print.nonce</key><data>AAAA</data>";
    const auto before = ticketWith(kForeignSettings + rotated, "Unknown=Choice KLEconomode=Draft");
    const WrittenTicket expected(ReadFile(before));
    for (const fs::path& ppd :
         {SamplePPD("kalmo-office-color"), SamplePPD("kalmo-office-mono"),
          SamplePPD("kalmo-production"), SamplePPD("kalmo-basic"), WritePPD("Kalmo")}) {
        for (const char* phase : {"initialize", "open"}) {
            SCOPED_TRACE(ppd.string() + " " + phase);
            const auto end = run({"--no-dialog", "--ppd", ppd, "--ticket", before, "--phase", phase,
                                  "--write-ticket", "-"});
            ASSERT_EQ(end.exitCode, 0) << end.errors;
            const WrittenTicket written(end.output);
            EXPECT_TRUE(
                CFEqual(written.value(kSettings, kForeign), expected.value(kSettings, kForeign)));
            EXPECT_TRUE(Contains(end.output, "<real>"));
            EXPECT_EQ(written.text(kChoices, "Unknown"), "Choice");
            EXPECT_EQ(written.text(kChoices, "KLEconomode"), "Draft");
            for (const char* gone :
                 {"com.kalmo.print.RotateBooklet180Degrees", "com.kalmo.print.nonce", kJobName})
                EXPECT_FALSE(written.value(kSettings, gone)) << gone;
            EXPECT_TRUE(written.value(kSettings, "com.kalmo.print.ClientInformation.UserName"));
        }
    }
}

TEST_F(KalmoPrintTest, AnotherMakersPrinterIsRefused) {
    for (const char* maker : {"Other", "Kalmo Imaging", "kalmo", ""}) {
        SCOPED_TRACE(maker);
        const auto written = folder_ / "written.plist";
        const auto end = run({"--no-dialog", "--ppd", WritePPD(maker), "--write-ticket", written,
                              "--output", output_, document_});
        EXPECT_EQ(end.exitCode, 1);
        EXPECT_EQ(end.errors,
                  "Initialize()::GetTicketFromSession() failed.\n"
                  "kalmo-print: “printer” is not a Kalmo printer; print on it from the "
                  "window, without --no-dialog\n");
        EXPECT_FALSE(exists(written));
        EXPECT_TRUE(fs::is_empty(output_));
    }
}

TEST_F(KalmoPrintTest, UnreadableInputEndsInOneLineThatNamesIt) {
    const auto bad = folder_ / "bad", large = folder_ / "large";
    WriteFile(bad, "<plist><dict><key>PrintSettings</key>\n<real>x</real>");
    WriteFile(large, "*PPD-Adobe: \"4.3\"\n" + std::string(9u << 20, ' '));
    const auto damaged = folder_ / "damaged.pdf";
    WriteFile(damaged, "%PDF-1.7\n1 0 obj\n<<");
    const std::string ppd = SamplePPD("kalmo-office-color"), missing = folder_ / "missing";
    const std::tuple<const char*, std::string, const char*, Arguments> rows[] = {
        {"no such ticket", missing, "", {"--ppd", ppd, "--ticket", missing}},
        {"malformed ticket", bad, ": Zeile 2: keine reelle Zahl", {"--ppd", ppd, "--ticket", bad}},
        {"malformed PPD", bad, ": Das ist keine PPD-Datei", {"--ppd", bad}},
        {"large PPD", large, "keine PPD-Datei: größer als 8 MiB", {"--ppd", large}},
        {"document that is no PDF", bad, "keine PDF", {"--ppd", ppd, "--output", output_, bad}},
        {"damaged document", damaged, "neu", {"--ppd", ppd, "--output", output_, damaged}},
        {"folder as document", folder_, "", {"--ppd", ppd, "--output", output_, folder_}},
        {"nowhere to print", "--output", "nennen Sie", {"--ppd", ppd, document_}},
        {"no such panel", "menu", "Den Bereich „menu“ gibt es nicht", {"--panels", "menu"}},
    };
    for (auto [why, named, german, arguments] : rows) {
        SCOPED_TRACE(why);
        arguments.insert(arguments.begin(), "--no-dialog");
        const auto end = run(arguments, {{"LANGUAGE", "de"}});
        EXPECT_EQ(end.exitCode, 2);
        EXPECT_TRUE(IsOneLine(end.errors)) << end.errors;
        EXPECT_TRUE(Contains(end.errors, named)) << end.errors;
        EXPECT_TRUE(Contains(end.errors, german)) << end.errors;
        EXPECT_EQ(end.output, "");
    }
    EXPECT_TRUE(fs::is_empty(output_));
}

TEST_F(KalmoPrintTest, PrintsIntoAFolder) {
    const auto ticket = ticketWith(kForeignSettings), other = output_ / "report 2.ticket.plist";
    WriteFile(other, "somebody's");
    for (const std::string stem : {"report", "report 3"}) {
        SCOPED_TRACE(stem);
        const auto end = runOnSample({"--ticket", ticket, "--output", output_, document_});
        ASSERT_EQ(end.exitCode, 0) << end.errors;
        EXPECT_EQ(end.output + end.errors, "");
        const auto printed = output_ / (stem + ".pdf"), copy = output_ / (stem + ".ticket.plist");
        for (const auto& file : {printed, copy}) {
            EXPECT_EQ(fs::status(file).permissions(), fs::perms(0600)) << file;
        }
        const WrittenTicket written(ReadFile(copy));
        EXPECT_TRUE(written.value(kSettings, "com.kalmo.print.nonce"));
        EXPECT_EQ(written.text(kSettings, kJobName), "report.pdf");
        const auto detached = temporary_ / "detached";
        RunProgram(
            {.program = "/usr/bin/pdfdetach",
             .arguments = {"-savefile", "com.kalmo.print.ticket.plist", "-o", detached, printed}});
        EXPECT_EQ(ReadFile(detached), ReadFile(copy));
        fs::remove(detached);
    }
    EXPECT_NE(ReadFile(output_ / "report.ticket.plist"),
              ReadFile(output_ / "report 3.ticket.plist"))
        << "each job has a nonce of its own";
    EXPECT_EQ(ReadFile(other), "somebody's");
    EXPECT_TRUE(fs::is_empty(temporary_));
}

TEST_F(KalmoPrintTest, ReadsTheDocumentFromStandardInput) {
    const auto end = runOnSample({"--title", "Piped", "--output", output_, "-"}, document_);
    EXPECT_EQ(end.exitCode, 0) << end.errors;
    EXPECT_TRUE(exists(output_ / "Piped.pdf"));
    const WrittenTicket written(ReadFile(output_ / "Piped.ticket.plist"));
    EXPECT_EQ(written.text(kSettings, kJobName), "Piped");
    EXPECT_TRUE(fs::is_empty(temporary_)) << "the spooled copy is gone";
    const auto empty = runOnSample({"--output", output_, "-"});
    EXPECT_EQ(empty.exitCode, 2);
    EXPECT_TRUE(IsOneLine(empty.errors)) << empty.errors;
    const DeadServer server(Silence::silent);
    Program stopped({.program = BuiltProgram("kalmo-print"),
                     .arguments = {"--no-dialog", "-d", "office", "-"},
                     .environment = {{"TMPDIR", temporary_}},
                     .input = document_});
    for (int i = 0; i < 20; ++i) {
        QTest::qWait(50);
        EXPECT_TRUE(fs::is_empty(temporary_)) << "whenever it is stopped";
    }
    stopped.signal(SIGTERM);
    const auto dead = stopped.wait();
    EXPECT_EQ(dead.exitCode, 128 + SIGTERM) << dead.errors;
}

TEST_F(KalmoPrintTest, WritesTheTicketForTheUserAlone) {
    const auto written = folder_ / "written.plist";
    WriteFile(written, "older");
    fs::permissions(written, fs::perms(0644));
    const auto end = runOnSample({"--write-ticket", written});
    EXPECT_EQ(end.exitCode, 0) << end.errors;
    EXPECT_EQ(fs::status(written).permissions(), fs::perms(0600));
    EXPECT_TRUE(ReadPlist(ReadFile(written)));
}

TEST_F(KalmoPrintTest, DeadServersCostSecondsAndALine) {
    for (const auto silence : kSilences) {
        SCOPED_TRACE(static_cast<int>(silence));
        const DeadServer server(silence);
        for (const Arguments& arguments : {Arguments{"--list-printers"},
                                           {"--no-dialog", "-d", "office", document_},
                                           {"--no-dialog", document_}}) {
            const auto start = std::chrono::steady_clock::now();
            const auto end = run(arguments);
            EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(6));
            EXPECT_EQ(end.exitCode, 1);
            EXPECT_TRUE(IsOneLine(end.errors)) << end.errors;
            EXPECT_TRUE(Contains(end.errors, "does not answer")) << end.errors;
        }
    }
}

TEST_F(KalmoPrintTest, APresetByNameAndWhatTheSiteStartsWith) {
    const fs::path config = MakeFolder("config"), site = MakeFolder("site") / "kalmo-print";
    fs::create_directories(config / "kalmo-print/presets");
    fs::create_directories(site);
    WriteFile(config / "kalmo-print/presets/Mine.plist",
              TicketFile("<key>com.kalmo.print.BookletLayout</key><true/>", "XFold=Letter"));
    WriteFile(site / "start.plist", TicketFile("", "Duplex=DuplexTumble"));
    const auto ticket = ticketWith("").string();
    const struct {
        Arguments arguments;
        int exitCode;
        const char *errors, *duplex;
        bool booklet;
    } rows[] = {
        {{}, 0, "", "DuplexTumble", false},
        {{"--ticket", ticket}, 0, "", "None", false},
        {{"--preset", "Mine"}, 0, "not have: XFold: Letter\n", "None", true},
        {{"--preset", "mine"}, 2, "there are: Mine\n", nullptr, false},
        {{"--preset", "Mine", "--ticket", ticket}, 2, "--help\n", nullptr, false},
    };
    for (const auto& row : rows) {
        Arguments arguments = {"--no-dialog", "--ppd", SamplePPD("kalmo-office-color"),
                               "--write-ticket", "-"};
        arguments.insert(arguments.end(), row.arguments.begin(), row.arguments.end());
        const auto end =
            run(arguments, {{"XDG_CONFIG_HOME", config}, {"XDG_CONFIG_DIRS", site.parent_path()}});
        SCOPED_TRACE(end.errors);
        ASSERT_EQ(end.exitCode, row.exitCode);
        EXPECT_TRUE(end.errors.ends_with(row.errors));
        EXPECT_EQ(IsOneLine(end.errors), *row.errors != 0);
        if (row.exitCode != 0) continue;
        const WrittenTicket written(end.output);
        EXPECT_EQ(written.text(kChoices, "Duplex"), row.duplex);
        EXPECT_EQ(written.value(kSettings, "com.kalmo.print.BookletLayout") == kCFBooleanTrue,
                  row.booklet);
    }
}

TEST_F(KalmoPrintTest, WithoutADisplayItNamesTheWayWithoutOne) {
    for (const char* display : {"", ":9999"}) {
        SCOPED_TRACE(display);
        const auto end = run({document_}, {{"DISPLAY", display}});
        EXPECT_EQ(end.exitCode, 2);
        EXPECT_TRUE(IsOneLine(end.errors)) << end.errors;
        EXPECT_TRUE(Contains(end.errors, "--no-dialog"));
    }
}

}  // namespace
}  // namespace kalmo::test
