// In a made-up language, whose texts are longer than ours, no text stands outside the tables and
// none is cut.
#include "support/pseudo_text.h"

#include <QTranslator>

#include "fax/card_folder.h"
#include "house/resource_files.h"
#include "print_dialog/address_book_dialog.h"
#include "print_dialog/shown_window.h"
#include "print_dialog/widgets.h"
#include "print_dialog/window_texts.h"
#include "pseudo_language/explorer.h"
#include "support/bundles.h"
#include "support/shown_texts.h"
#include "support/window_walk.h"

namespace kalmo::test {
namespace {

/// Qt's own texts have tables of their own.
class QtInPseudo final : public QTranslator {
public:
    QString translate(const char*, const char* text, const char*, int) const override {
        return QString::fromStdString(PseudoText(text));
    }
    bool isEmpty() const override { return false; }
};

/// What the printer's file says is translated there.
std::string InPseudo(const std::string& ppd) {
    static const std::regex choices(R"(^(\*\w+ [^/:\n]+/)([^:\n]+)(:))", std::regex::multiline);
    static const std::regex groups(R"(^(\*OpenGroup: \w+/)(.+)()$)", std::regex::multiline);
    std::string text = ppd;
    for (const std::regex& pattern : {choices, groups}) {
        std::string made;
        auto from = text.cbegin();
        for (std::sregex_iterator match(text.begin(), text.end(), pattern), end; match != end;
             ++match) {
            made += std::string(from, (*match)[2].first) + PseudoText((*match)[2]);
            from = (*match)[2].second;
        }
        text = made.append(from, text.cend());
    }
    return std::regex_replace(text, std::regex("ISOLatin1"), "UTF-8");
}

/// What these say comes from the fonts, or the user.
const std::set<std::string> kOfData = {"toolbox::PopupButton family", "toolbox::PopupButton style",
                                       "toolbox::ColorWell color",
                                       "toolbox::PictureControl coverPreview"};

struct PseudoLanguage : testing::Test {
    PseudoLanguage() {
        setenv("LANGUAGE", kPseudoLanguage, 1);
        QCoreApplication::installTranslator(&qt_);
        QApplication::setApplicationName("kalmo-print");
        InstallPresence(WindowPresence({.title = WindowText("Help window title"),
                                        .page = WindowText("Help window page"),
                                        .back = WindowText("Help window back"),
                                        .forward = WindowText("Help window forward"),
                                        .contents = WindowText("Help window contents")}));
        cards_.add("a1", "FN:Zoe\nN:Zoe;;;;\nTEL;TYPE=fax:12\n");
        cards_.addGroup("Zoe", {"a1"});
    }
    void TearDown() override {
        for (const std::string& fault : faults_) ADD_FAILURE() << fault;
    }
    /// A fault is told once.
    void check(QWidget& window) {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
        ++looks_;
        const std::string title = window.windowTitle().toStdString() + ": ";
        // Qt's own windows have data of their own and are laid out by Qt.
        if (window.inherits("QFileDialog") || window.inherits("QColorDialog")) return;
        for (const ShownText& shown : ShownTexts(window)) {
            if (kOfData.contains(shown.where)) continue;
            const std::string words = WordsOutsideTables(shown.text.toStdString(), data_);
            if (!words.empty()) faults_.insert(title + shown.where + " says " + words);
        }
        if (!window.isVisible() && window.isWindow()) return;
        for (const std::string& cut : CutTexts(window)) faults_.insert(title + cut);
    }

    const CardFolder cards_;
    QtInPseudo qt_;
    std::vector<std::string> data_{"kalmo-print", "Zoe"};
    std::set<std::string> faults_;
    int looks_ = 0;
};

TEST_F(PseudoLanguage, EveryWindowOfAnInterfaceFile) {
    const auto bundle = Owned<CFBundleRef>::Adopt(OpenExtensionBundle());
    ForEachFile(kResources, {".ui"}, [&](const std::filesystem::path& file) {
        const auto text = [](const QString& name) {
            return CFStringMakeConstant(qUtf8Printable(name));
        };
        IBNibRef nib = nullptr;
        const auto name = QString::fromStdString(file.stem().string());
        ASSERT_EQ(CreateNibReferenceWithCFBundle(bundle, text(name), &nib), noErr) << file;
        for (const QString& windowName : WindowNames(file)) {
            WindowRef window = nullptr;
            ASSERT_EQ(CreateWindowFromNib(nib, text(windowName), &window), noErr);
            WidgetFromWindow(window)->show();
            check(*WidgetFromWindow(window));
            DisposeWindow(window);
        }
        DisposeNibReference(nib);
    });
    EXPECT_GT(looks_, 20);
}

TEST_F(PseudoLanguage, EveryWindowThatPrintingLeadsTo) {
    CommandLine commandLine = SampleJob(5);
    commandLine.ppd = (MakeFolder("ppd") / "office.ppd").string();
    commandLine.panels = {"special-pages", "job-notes"};
    WriteFile(commandLine.ppd, InPseudo(ReadFile(SamplePPD("kalmo-office-color"))));
    data_.insert(data_.begin(),
                 {"report.pdf", "Kalmo", "Tolvane C7030",
                  "~/" + std::filesystem::path(commandLine.output).filename().string(),
                  ShownPath(contacts::DefaultFolder()).toStdString()});
    Explorer explorer(
        {WindowText("Print"), WindowText("Extras"), WindowText("Cancel"), "panelSelector"},
        [this](QWidget& shown) {
            check(shown);
            for (const std::string& jump : TabJumps(shown)) faults_.insert(jump);
        });
    // What is chosen in one panel can switch off others.
    for (int panel = 0, panels = 1; panel < panels; ++panel) {
        PrintWindow window(commandLine);
        ASSERT_EQ(window.prepare(), kExitDone);
        Activate(window);
        ASSERT_TRUE(Wait([&] { return window.windowTitle().contains("report"); }));
        window.findChild<DestinationChoice*>()->list()->showPopup();
        QWidget* const printers = QApplication::activePopupWidget();
        ASSERT_NE(printers, nullptr);
        check(*printers);
        printers->close();
        auto* const selector = window.findChild<QComboBox*>("panelSelector");
        panels = selector->count();
        Pick(*selector, selector->itemText(panel));
        explorer.explore(window);
    }
    for (const char* title : {"Save preset title", "Choose folder title"})
        EXPECT_TRUE(explorer.found().contains(WindowText(title).toStdString())) << title;
    EXPECT_GT(explorer.found().size(), 15u) << "the buttons no longer lead anywhere";
    // From the menu of extras, which also takes panels away.
    AddressBookDialog addressBook;
    Activate(addressBook);
    ASSERT_TRUE(Wait([&] { return addressBook.findChild<QListView*>()->model()->rowCount() > 1; }));
    explorer.explore(addressBook);
}

}  // namespace
}  // namespace kalmo::test
