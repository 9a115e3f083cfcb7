// Conflicts of a job's choices, through the pane that holds them and in the window.
#include "print_dialog/conflicts.h"

#include "print_dialog/hosted_pane.h"
#include "print_dialog/shown_window.h"
#include "settings/ticket.h"
#include "support/ticket_files.h"

namespace kalmo::test {
namespace {

#define kRotateKey CFSTR("com.kalmo.print.AdvancedRotateImage180")

/// As it stands in a ticket, turned by 180 degrees.
constexpr char kTurned[] = "<key>com.kalmo.print.AdvancedRotateImage180</key><integer>3</integer>";

/// A ticket with choices that the constraint forbids; empty when it is about what is installed.
std::string TicketWith(const std::vector<std::pair<std::string, std::string>>& constraint,
                       const PPDDescription& printer) {
    std::string choices;
    for (auto [option, choice] : constraint) {
        if (option.starts_with("Option")) return {};
        for (const PPDOptionTexts& each : printer.options) {
            if (each.keyword != option || !choice.empty()) continue;
            const auto on = std::ranges::find_if(each.choices, [](const PPDChoiceText& any) {
                return any.keyword != "None" && any.keyword != "False";
            });
            choice = on->keyword;
        }
        choices += option + "=" + choice + " ";
    }
    return TicketFile(kTurned, choices);
}

/// All choices in the ticket, and the rotation as the printer hears it.
std::map<std::string, std::string> SettingsOf(const PrintJobHost& host) {
    std::map<std::string, std::string> settings = {{"PageSize", host.ppdChoice("PageSize")}};
    for (const auto& option : host.description()->options)
        settings[option.keyword] = host.ppdChoice(option.keyword);
    settings["turned"] = std::to_string(SInt32InTicket(host.printSettings(), kRotateKey, 0));
    return settings;
}

/// Changes, and undoes that, as the band in the window does.
void ChangeAndUndo(PrintJobHost& host) {
    host.sync(kSyncToTicket);
    const auto before = SettingsOf(host);
    const auto report = CheckConflicts(host);
    EXPECT_FALSE(report.conflicts.empty());
    auto expected = before;
    std::vector<PPDSelection> changes;
    for (const NamedSelection& each : report.changes) {
        changes.push_back(each.keywords);
        expected[each.keywords.option] = each.keywords.choice;
    }
    const auto back = host.writeChoices(changes);
    host.sync(kSyncToTicket);
    EXPECT_TRUE(CheckConflicts(host).conflicts.empty());
    EXPECT_EQ(SettingsOf(host), expected);
    host.writeChoices(back);
    host.sync(kSyncToTicket);
    EXPECT_EQ(SettingsOf(host), before);
}

TEST(Conflicts, EndInThePaneWithoutAnotherChange) {
    for (const char* printer : {"kalmo-office-color", "kalmo-production"}) {
        HostedPane pane;
        ASSERT_EQ(pane.beginOn(printer), noErr);
        int seen = 0, met = 0;
        for (const auto& constraint : ConstraintsIn(SamplePPD(printer))) {
            const auto ticket = TicketWith(constraint, *pane.host.description());
            // Some of them: each takes the pane through four Syncs.
            if (ticket.empty() || ++seen % 4 != 0) continue;
            SCOPED_TRACE(printer + ticket);
            ASSERT_TRUE(pane.host.readTicket(ticket));
            ChangeAndUndo(pane.host);
            ++met;
        }
        EXPECT_GT(met, 40);
    }
}

TEST(Conflicts, EndWithoutTakingABookletItsTwoSides) {
    HostedPane pane;
    ASSERT_EQ(pane.beginOn("kalmo-production"), noErr);
    for (const char* booklet : {"<false/>", "<true/>"}) {
        ASSERT_TRUE(pane.host.readTicket(
            TicketFile(std::string("<key>com.kalmo.print.BookletLayout</key>") + booklet,
                       "Duplex=DuplexTumble MediaType=Labels")));
        pane.host.sync(kSyncToTicket);
        const auto report = CheckConflicts(pane.host);
        ASSERT_FALSE(report.conflicts.empty() || report.changes.empty());
        const bool givesUpTwoSides = report.changes.front().keywords.option == "Duplex";
        EXPECT_EQ(givesUpTwoSides, booklet == std::string("<false/>"));
    }
}

TEST(TheDialogsOwnChoices, LeaveTheRotationAsItIs) {
    HostedPane pane;
    ASSERT_EQ(pane.beginOn(), noErr);
    ASSERT_TRUE(pane.host.readTicket(TicketFile(kTurned, {})));
    pane.host.sync(kSyncToTicket);
    const std::string turned = SettingsOf(pane.host)["turned"];
    for (const Orientation orientation : {Orientation::landscape, Orientation::portrait}) {
        JobSettings settings = pane.host.settings();
        settings.orientation = orientation;
        pane.host.apply(settings);
        pane.host.sync(kSyncToTicket);
        EXPECT_EQ(SettingsOf(pane.host)["turned"], turned);
    }
}

struct ConflictsInWindow : testing::Test, WindowInFront {
    /// On the sample printer, with one staple through labels.
    void open(const std::string& settings = {}) {
        CommandLine commandLine = SampleJob();
        out_ = commandLine.output;
        commandLine.ticket = MakeFolder("ticket") / "stapled.plist";
        WriteFile(commandLine.ticket,
                  TicketFile(settings, "StapleLocation=SinglePortrait MediaType=Labels"));
        WindowInFront::open(commandLine);
    }
    [[nodiscard]] ConflictNotice* band() const { return window_->findChild<ConflictNotice*>(); }
    [[nodiscard]] bool offers(const std::vector<const char*>& buttons) const {
        return std::ranges::all_of(std::array{"Change", "Undo", "Print anyway"}, [&](auto* text) {
            const bool expected = std::ranges::find(buttons, std::string(text)) != buttons.end();
            return button(text)->isVisible() == expected;
        });
    }
    void expectPrinted(const std::string& staples) const {
        WindowInFront::expectPrinted();
        const WrittenTicket ticket(ReadFile(out_ / "report.ticket.plist"));
        EXPECT_EQ(ticket.text("PPDChoices", "StapleLocation"), staples);
    }

    std::filesystem::path out_;
};

TEST_F(ConflictsInWindow, EndByOneButtonAndComeBackByOne) {
    open();
    EXPECT_FALSE(band()->isVisible());
    print()->click();
    EXPECT_TRUE(offers({"Change", "Print anyway"}));
    EXPECT_EQ(window_->focusWidget(), button("Change"));
    EXPECT_EQ(band()->accessibleDescription(),
              "“Staples: 1 staple” does not go with “Paper type: Labels”\n"
              "Suggestion: Set “Staples” to “No staples”");
    EXPECT_TRUE(FilesIn(out_).empty());

    button("Change")->click();
    EXPECT_TRUE(offers({"Undo"}));
    EXPECT_EQ(window_->focusWidget(), print());
    button("Undo")->click();
    EXPECT_TRUE(offers({"Change", "Print anyway"}));
    EXPECT_EQ(window_->focusWidget(), button("Change"));
    print()->click();
    EXPECT_TRUE(offers({"Change", "Print anyway"})) << "still asked";
    button("Change")->click();
    print()->click();
    expectPrinted("None");
}

TEST_F(ConflictsInWindow, GoWithOtherSettingsAndArePrintedAnywayOnRequest) {
    open();
    print()->click();
    choose("Tray 2");
    EXPECT_FALSE(band()->isVisible()) << "it told of other settings";
    print()->click();
    choose("3 holes");
    button("Print anyway")->click();
    EXPECT_TRUE(band()->accessibleDescription().contains("3 holes")) << "not told of before";
    EXPECT_TRUE(FilesIn(out_).empty());
    button("Print anyway")->click();
    EXPECT_FALSE(band()->isVisible());
    expectPrinted("SinglePortrait");
}

TEST_F(ConflictsInWindow, ComeAfterThePrintCheck) {
    open(JobTypeEntry(5));
    ModalDriver setup;
    setup.expectPress("Cancel");
    print()->click();
    EXPECT_TRUE(setup.done()) << "the fax has no recipient yet";
    EXPECT_FALSE(band()->isVisible());
}

TEST_F(ConflictsInWindow, ChangesReachTheForm) {
    open();
    choose("Tray 1");
    choose("Envelope C5");
    print()->click();
    button("Change")->click();
    EXPECT_EQ(popup("Tray 2")->currentText(), "Automatic");
    EXPECT_EQ(popup("Envelope C5")->currentText(), "Envelope C5");
    button("Undo")->click();
    EXPECT_EQ(popup("Tray 2")->currentText(), "Tray 1");
    EXPECT_TRUE(offers({"Change", "Print anyway"}));
}

}  // namespace
}  // namespace kalmo::test
