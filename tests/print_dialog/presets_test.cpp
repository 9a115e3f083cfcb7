// What is kept of a job's settings, where, and what comes back.
#include "print_dialog/presets.h"

#include <sys/stat.h>

#include "print_dialog/hosted_pane.h"
#include "settings/ticket.h"
#include "settings/ticket_keys.h"
#include "support/ticket_files.h"
#include "system/clock.h"

namespace kalmo::test {
namespace {

namespace fs = std::filesystem;
using Words = std::vector<std::string>;

struct PresetsTest : testing::Test {
    PresetsTest() {
        setenv("XDG_CONFIG_HOME", MakeFolder("config").c_str(), 1);
        setenv("XDG_CONFIG_DIRS", site_.c_str(), 1);
        pane_.beginOn();
    }
    ~PresetsTest() override { SetNowForTests({}); }

    /// As somebody might have put it there.
    Preset handMade(const std::string& bytes) const {
        const Preset preset{.file = site_ / "made.plist"};
        WriteFile(preset.file, bytes);
        return preset;
    }
    Words apply(const Preset& preset) {
        Words notApplied;
        const auto outcome = ApplyPreset(pane_.host, preset, &notApplied);
        EXPECT_TRUE(outcome) << outcome.error;
        return notApplied;
    }
    /// All that would print, in a comparable form.
    static std::string keptOf(HostedPane& pane) {
        pane.host.sync(kSyncToTicket);
        return SettingsFingerprint(pane.host);
    }

    fs::path site_ = MakeFolder("site");
    HostedPane pane_{{"special-pages", "job-notes"}};
};

TEST_F(PresetsTest, SavedSettingsComeBackIntoAFreshPane) {
    HostedPane fresh({"special-pages", "job-notes"});
    fresh.beginOn();
    fresh.host.apply(fresh.host.settings());
    PMTicketReleaseItem(fresh.host.printSettings(), kBookletLayoutKey);  // false, as when absent
    const std::string untouched = keptOf(fresh);
    ASSERT_TRUE(pane_.host.readTicket(TicketFile(
        "<key>com.kalmo.print.BookletLayout</key><true/><key>com.kalmo.print.Gutter</key>"
        "<integer>31</integer><key>com.kalmo.print.AdvancedRotateImage180</key>"
        "<integer>4</integer>",
        "KLEconomode=Draft PageSize=A3")));
    auto settings = pane_.host.settings();
    settings.copies = 7, settings.collate = false, settings.pagesPerSheet = 4;
    settings.orientation = Orientation::landscape, settings.orientationChosen = true;
    pane_.host.apply(settings);
    pane_.host.sync(kSyncToTicket);
    const auto before = PresetBytes(pane_.host);
    ASSERT_TRUE(SavePreset("Mine", before));
    Words notApplied;
    ASSERT_TRUE(ApplyPreset(fresh.host, ListPresets().front(), &notApplied));
    EXPECT_EQ(notApplied, Words()) << "the printer is the same";
    EXPECT_EQ(fresh.host.settings(), settings);
    fresh.host.sync(kSyncToTicket);
    EXPECT_TRUE(CFEqual(ReadPlist(PresetBytes(fresh.host)), ReadPlist(before)))
        << "a booklet and a rotation, too\n"
        << before << PresetBytes(fresh.host);
    ApplyPrintersDefaults(fresh.host);
    fresh.host.apply(fresh.host.settings());
    EXPECT_TRUE(CFEqual(ReadPlist(keptOf(fresh)), ReadPlist(untouched))) << keptOf(fresh);
    const WrittenTicket last(LastSettingsBytes(pane_.host));
    EXPECT_EQ(CFDictionaryGetCount(last.dictionary("PageFormat")), 0) << "the next document's own";
}

TEST_F(PresetsTest, WhatIsSecretOrOfOneJobIsNeitherWrittenNorRead) {
    const auto marked = [](const char* key) { return TextEntry(key, "marker"); };
    std::string entries =
        JobTypeEntry(6, marked("SecurePrintPassword") + "<key>UseJobName</key><false/>" +
                            marked("SavedJobName")) +
        DictionaryEntry("com.kalmo.print.FaxOptions",
                        marked("DialingPrefix") + marked("CreditCard") +
                            marked("CustomRecipientText") + marked("CoverSheetNotes")) +
        "<key>com.kalmo.print.FaxRecipientList</key><array><dict>" + marked("FaxNumber") +
        "</dict></array>";
    for (const char* key :
         {"com.kalmo.print.nonce", "com.kalmo.print.ClientInformation.UserName",
          "com.kalmo.print.ClientInformation.Later", "com.apple.print.JobInfo.PMJobName",
          "com.kalmo.print.JobNotesJobName", "com.kalmo.print.JobNotesRecipient",
          "com.kalmo.print.JobNotesSenderName"})
        entries += marked(key);
    const Preset preset = handMade(TicketFile(entries));
    ASSERT_TRUE(pane_.host.readTicket(ReadFile(preset.file)));
    for (const bool last : {false, true}) {
        const auto bytes = last ? LastSettingsBytes(pane_.host) : PresetBytes(pane_.host);
        EXPECT_EQ(Contains(bytes, "JobType"), !last) << "a preset of secure print asks for a code";
        EXPECT_FALSE(Contains(bytes, "<false/>")) << "a stored job has the document's name";
        EXPECT_FALSE(Contains(bytes, "marker") || Contains(bytes, "ClientInf")) << bytes;
    }
    pane_.host.setJobName("report.pdf");
    ASSERT_TRUE(pane_.host.readTicket(TicketFile("")));
    apply(preset);
    pane_.host.sync(kSyncToTicket);
    const std::string ticket = pane_.host.ticketFile();
    EXPECT_FALSE(Contains(ticket, "marker")) << ticket;
    EXPECT_TRUE(Contains(ticket, "report.pdf") && Contains(ticket, "ClientInformation"));
}

TEST_F(PresetsTest, AnyNameIsAFileOfTheUserAlone) {
    const std::string names[] = {"Two-sided, staple", "two-sided, staple", "../../etc/passwd",
                                 ".hidden", "100%\n"};
    const fs::path folder = fs::path(getenv("XDG_CONFIG_HOME")) / "kalmo-print/presets";
    Preset found;
    for (const std::string& name : names) {
        SCOPED_TRACE(name);
        ASSERT_TRUE(SavePreset(name, TicketFile("")));
        ASSERT_TRUE(FindPreset(name, &found));
        EXPECT_EQ(found.file.parent_path(), folder);
        EXPECT_EQ(fs::status(found.file).permissions(), fs::perms(0600));
        EXPECT_EQ(fs::status(folder).permissions(), fs::perms(0700));
    }
    for (const std::string& name : {std::string(" \t"), std::string(250, 'x')})
        EXPECT_FALSE(SavePreset(name, TicketFile("")));
    EXPECT_FALSE(RenamePreset(found, ".hidden")) << "that one stays";
    EXPECT_TRUE(RenamePreset(found, "Zuletzt"));
    EXPECT_EQ(ListPresets().back().name, "Zuletzt");
    EXPECT_TRUE(DeletePreset(ListPresets().back()));
    EXPECT_EQ(ListPresets().size(), std::size(names) - 1);
}

TEST_F(PresetsTest, WhatIsNoPresetIsRefusedInOneLineAndChangesNothing) {
    const std::string before = keptOf(pane_);
    const auto pipe = site_ / "pipe.plist";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    std::vector<Preset> presets = {{.file = pipe}, {.file = site_}, {.file = site_ / "missing"}};
    for (const std::string& bytes :
         {std::string(), std::string("bplist00\xff"), Plist("<array/>"),
          Plist("<dict><key>PPDChoices</key><string/></dict>"), TicketFile("").substr(0, 150)}) {
        presets.push_back({.file = site_ / std::to_string(presets.size())});
        WriteFile(presets.back().file, bytes);
    }
    for (const Preset& preset : presets) {
        Words ignored;
        const auto outcome = ApplyPreset(pane_.host, preset, &ignored);
        EXPECT_TRUE(Contains(outcome.error, preset.file)) << outcome.error;
        EXPECT_EQ(std::ranges::count(outcome.error, '\n'), 0);
        EXPECT_EQ(keptOf(pane_), before);
    }
    apply(handMade(TicketFile(TextEntry("com.kalmo.print.JobType", "marker") +
                              "<key>com.kalmo.print.DialogSettings</key><dict><key>Copies</key>"
                              "<integer>-4</integer><key>PagesPerSheet</key><integer>7</integer>"
                              "<key>Collate</key><string>no</string></dict>")));
    EXPECT_EQ(pane_.host.settings().copies, 1);
    EXPECT_EQ(pane_.host.settings().pagesPerSheet, 1);
    EXPECT_TRUE(pane_.host.settings().collate);
}

TEST_F(PresetsTest, AnotherModelTellsWhatItDoesNotHave) {
    ASSERT_TRUE(
        pane_.host.readTicket(TicketFile("", "KLMColor=Color KLEconomode=Draft KLPunch=None")));
    ASSERT_TRUE(SavePreset("Color", PresetBytes(pane_.host)));
    ASSERT_EQ(pane_.beginOn("kalmo-office-mono"), noErr);
    EXPECT_EQ(apply(ListPresets().front()), Words{"Output color: Color"});
    EXPECT_EQ(pane_.host.ppdChoice("KLMColor"), "");
    EXPECT_EQ(pane_.host.ppdChoice("KLEconomode"), "Draft");
    EXPECT_EQ(apply(handMade(TicketFile("", "KLEconomode=Mo\x1B[2Jre XStaple=Two XFold=None"))),
              (Words{"Toner saver: Mo\uFFFD[2Jre", "XStaple: Two"}));
}

TEST_F(PresetsTest, APrinterWithoutOptionsTakesNoJobsThatNeedThem) {
    ASSERT_EQ(pane_.beginOn("kalmo-basic"), noErr);
    const std::pair<std::string, Words> rows[] = {
        {JobTypeEntry(3), {"Job type: Saved job"}},
        {JobTypeEntry(5), {"Job type: Fax"}},
        {JobTypeEntry(6), {}},
        {"<key>com.kalmo.print.FinishingSlipSheet</key><integer>2</integer>", {"Slip sheets"}},
    };
    for (const auto& [entry, told] : rows) EXPECT_EQ(apply(handMade(TicketFile(entry))), told);
    for (const auto& [size, isTaken] :
         {std::pair{"Custom.10x20cm", true}, {"Custom.0x20", false}, {"CustomNonsense", false}}) {
        const auto told = apply(handMade(TicketFile("", std::string("PageSize=") + size)));
        EXPECT_EQ(told.empty(), isTaken) << size;
    }
}

TEST_F(PresetsTest, TheSiteComesAfterTheUser) {
    const auto second = MakeFolder("site");
    setenv("XDG_CONFIG_DIRS", (site_.string() + ":relative:" + second.string()).c_str(), 1);
    for (const auto& folder : {second, site_}) {
        fs::create_directories(folder / "kalmo-print/presets");
        WriteFile(folder / "kalmo-print/start.plist", TicketFile(""));
        EXPECT_TRUE(StartSettings()->file.string().starts_with(folder.string()));
        for (const char* file : {"Draft.plist", "draft.plist", "Draft.plist.a1b2c3", ".x.plist"})
            WriteFile(folder / "kalmo-print/presets" / file, TicketFile(""));
    }
    ASSERT_TRUE(SavePreset("draft", TicketFile("")));
    ASSERT_EQ(ListPresets().size(), 2u);
    for (const Preset& preset : ListPresets())
        EXPECT_EQ(preset.readOnly, preset.name == "Draft") << preset.file;
}

TEST_F(PresetsTest, ADelayedJobWaitsForTheNextSuchTime) {
    const SInt64 noon = LongDateToSeconds({.year = 2030, .month = 5, .day = 17, .hour = 12});
    SetNowForTests(noon);
    for (const auto& [hour, day] : {std::pair{22, 17}, {7, 18}}) {
        const SInt64 stored =
            LongDateToSeconds({.year = 2026, .month = 2, .day = 3, .hour = hour, .minute = 30});
        apply(handMade(TicketFile(JobTypeEntry(
            7, "<key>DelayedPrintTime</key><integer>" + std::to_string(stored) + "</integer>"))));
        const auto* job = DictionaryInTicket(pane_.host.printSettings(), kJobTypeKey);
        CFIndex moment = 0;
        GetCFIndexFromCFDictionary(job, CFSTR("DelayedPrintTime"), &moment);
        EXPECT_EQ(moment, LongDateToSeconds(
                              {.year = 2030, .month = 5, .day = day, .hour = hour, .minute = 30}));
    }
}

}  // namespace
}  // namespace kalmo::test
