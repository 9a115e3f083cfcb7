// The Image Options panel between ticket and controls.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QImage>

#include "controls/pictures.h"
#include "image_options/image_options_panel.h"
#include "settings/ticket.h"
#include "settings/ticket_keys.h"
#include "shell/base/current_session.h"
#include "shell/base/plugin_bundle.h"
#include "support/bundles.h"
#include "support/private_home.h"
#include "toolbox/host.h"

namespace kalmo::test {
namespace {

constexpr char kPPDHead[] =
    "*PPD-Adobe: \"4.3\"\n*FormatVersion: \"4.3\"\n*FileVersion: \"1.0\"\n"
    "*LanguageVersion: English\n*LanguageEncoding: UTF-8\n*PCFileName: \"TEST.PPD\"\n"
    "*Manufacturer: \"Kalmo\"\n*Product: \"(Test)\"\n*PSVersion: \"(3010.000) 0\"\n"
    "*ModelName: \"Test\"\n*ShortNickName: \"Test\"\n*NickName: \"Test\"\n";
constexpr char kResolution[] =
    "*OpenUI *Resolution: PickOne\n*DefaultResolution: 1200x1200dpi\n"
    "*Resolution 600x600dpi: \"\"\n*Resolution 2400x2400dpi: \"\"\n"
    "*Resolution 1200x1200dpi: \"\"\n*Resolution 1800x1800dpi: \"\"\n"
    "*Resolution 200x200dpi: \"\"\n*CloseUI: *Resolution\n";
constexpr char kEconomode[] =
    "*OpenUI *KLEconomode: PickOne\n*DefaultKLEconomode: Draft\n*KLEconomode None: \"\"\n"
    "*KLEconomode Draft: \"\"\n*CloseUI: *KLEconomode\n";

Owned<CFURLRef> FileURL(const std::filesystem::path& file) {
    const auto path = Owned<CFStringRef>::Adopt(CFStringCreateFromUTF8(file.string()));
    return Owned<CFURLRef>::Adopt(CFURLCreateWithFileSystemPath(kCFAllocatorDefault, path, false));
}

/// A bundle of the plug-in's identifier with the product's own resources.
Owned<CFBundleRef> BundleWithProductResources() {
    const auto folder = WriteBundle(MakeFolder("bundle"), "Kalmo", kKalmoBundleIdentifier, {});
    std::filesystem::remove_all(folder / "Contents/Resources");
    std::filesystem::create_directory_symlink(ProductBundle() / "Contents/Resources",
                                              folder / "Contents/Resources");
    return Owned<CFBundleRef>::Adopt(OpenBundle(folder));
}

class ImageOptionsPanel : public testing::Test {
protected:
    ImageOptionsPanel() {
        gBundle = bundle_;
        GetImageOptionsPanelInterface(&interface_);
        OSType creator = 0;
        CFStringRef kind = nullptr, title = nullptr;
        UInt32 width = 1, height = 1;
        operations().Prologue(&context_, &creator, &kind, &title, &width, &height);
    }
    ~ImageOptionsPanel() override {
        if (context_) operations().Terminate(context_, noErr);
        DisposePanelInterface(interface_);
        ReleaseDrawnImages();
        PPDCloseCurrent();
        KalmoPDETerminate(nullptr, noErr);
    }

    const PDEInterfaceTable& operations() const { return *interface_->table; }
    PMTicketRef ticket() const { return PMSessionGetTicket(session_, kPMPrintSettingsTicket); }

    void initialize(const std::string& options = std::string(kResolution) + kEconomode) {
        const auto file = MakeFolder("ppd") / "printer.ppd";
        WriteFile(file, kPPDHead + options);
        printer_ = Owned<PMPrinter>::Adopt(PMPrinterCreate(CFSTR("Test"), FileURL(file)));
        PMSessionSetCurrentPrinter(session_, printer_);
        KalmoPDEInitialize(nullptr, nullptr, nullptr, nullptr, session_);
        ControlRef pane = nullptr;
        CreateUserPaneControl(WindowFromWidget(&window_), {0, 0, 500, 500}, &pane);
        UInt32 flags = 0;
        ASSERT_EQ(operations().Initialize(context_, &flags, nullptr, pane, session_), noErr);
    }
    void open() { ASSERT_EQ(operations().Open(context_), noErr); }
    OSStatus sync(Boolean direction) { return operations().Sync(context_, session_, direction); }

    void choose(CFStringRef keyword, CFStringRef choice) {
        PPDSetCurrentChoice(ticket(), keyword, choice);
    }
    std::string choice(CFStringRef keyword) const {
        return CFStringToUTF8(Owned<CFStringRef>::Adopt(PPDCopyCurrentChoice(ticket(), keyword)));
    }
    void setInvert(bool negative, bool mirror) {
        const auto dictionary = Owned<CFDictionaryRef>::Adopt(
            InvertImageCreateTicketFromOptions({true, negative, mirror}));
        PMTicketSetCFDictionary(ticket(), kTicketCreator, kInvertImageOptionsKey, dictionary,
                                false);
    }
    std::pair<bool, bool> invert() const {
        CFDictionaryRef dictionary = nullptr;
        PMTicketGetCFDictionary(ticket(), kInvertImageOptionsKey, &dictionary);
        II_Options options;
        InvertImageSetOptionsFromTicket(dictionary, &options);
        return {options.NegativeImage, options.MirrorImage};
    }

    template <typename Widget = QWidget>
    Widget* control(SInt32 id) const {
        ControlRef found = nullptr;
        GetControlByID(WindowFromWidget(const_cast<QWidget*>(&window_)), {'KPDE', id}, &found);
        return qobject_cast<Widget*>(WidgetFromControl(found));
    }
    /// As the user does it.
    void pick(const QString& text) {
        auto* popup = control<QComboBox>(1502);
        popup->setCurrentText(text);
        emit popup->activated(popup->currentIndex());
    }
    QString description(SInt32 id) const {
        return QAccessible::queryAccessibleInterface(control(id))->text(QAccessible::Description);
    }

    Owned<CFBundleRef> bundle_ = BundleWithProductResources();
    Owned<PMPrintSession> session_ = Owned<PMPrintSession>::Adopt(PMSessionCreate());
    Owned<PMPrinter> printer_;
    PDEInterfaceObject* interface_ = nullptr;
    PDEContext context_ = nullptr;
    QWidget window_;
};

TEST_F(ImageOptionsPanel, UnopenedItWritesWhatItHasRead) {
    choose(CFSTR("Resolution"), CFSTR("1800x1800dpi"));
    setInvert(true, false);
    initialize();
    choose(CFSTR("Resolution"), CFSTR("600x600dpi"));
    setInvert(false, true);
    EXPECT_EQ(sync(kSyncToTicket), noErr);
    EXPECT_EQ(choice(CFSTR("Resolution")), "1800x1800dpi");
    EXPECT_EQ(choice(CFSTR("KLEconomode")), "Draft") << "the PPD's default";
    EXPECT_EQ(invert(), std::pair(true, false));
}

TEST_F(ImageOptionsPanel, UnknownTonerValuesAreKeptUntilTheBoxExists) {
    choose(CFSTR("KLEconomode"), CFSTR("Fancy"));
    initialize();
    sync(kSyncToTicket);
    EXPECT_EQ(choice(CFSTR("KLEconomode")), "Fancy");
    open();
    sync(kSyncToUI);
    sync(kSyncToTicket);
    EXPECT_EQ(choice(CFSTR("KLEconomode")), "None");
}

TEST_F(ImageOptionsPanel, ControlsShowTheTicketAndTheTicketTheControls) {
    initialize();
    choose(CFSTR("Resolution"), CFSTR("600x600dpi"));
    choose(CFSTR("KLEconomode"), CFSTR("None"));
    open();
    sync(kSyncToUI);
    EXPECT_EQ(control<QComboBox>(1502)->currentText(), "600x600dpi");
    EXPECT_EQ(control<QComboBox>(1502)->count(), 4) << "2400x2400dpi is in no map";
    EXPECT_FALSE(control<QCheckBox>(1302)->isChecked());

    pick("200x200dpi");
    control<QCheckBox>(1302)->click();
    control<QCheckBox>(2103)->click();
    EXPECT_EQ(sync(kSyncToTicket), noErr);
    EXPECT_EQ(choice(CFSTR("Resolution")), "200x200dpi");
    EXPECT_EQ(choice(CFSTR("KLEconomode")), "Draft");
    EXPECT_EQ(invert(), std::pair(false, true));
}

TEST_F(ImageOptionsPanel, AResolutionTheMenuLacksLeavesTheSelection) {
    choose(CFSTR("Resolution"), CFSTR("2400x2400dpi"));
    initialize();
    open();
    sync(kSyncToUI);
    sync(kSyncToTicket);
    EXPECT_EQ(choice(CFSTR("Resolution")), "2400x2400dpi") << "nothing was selected yet";
    pick("600x600dpi");
    choose(CFSTR("Resolution"), CFSTR("300x300dpi"));
    sync(kSyncToUI);
    EXPECT_EQ(control<QComboBox>(1502)->currentText(), "600x600dpi");
}

TEST_F(ImageOptionsPanel, InvertedPrintSurvivesPanelSwitches) {
    initialize();
    open();
    setInvert(true, false);
    for (int times = 0; times < 3; ++times) {
        sync(kSyncToUI);
        EXPECT_TRUE(control<QCheckBox>(2102)->isChecked());
        EXPECT_FALSE(control<QCheckBox>(2103)->isChecked());
        sync(kSyncToTicket);
        EXPECT_EQ(invert(), std::pair(true, false));
    }
}

TEST_F(ImageOptionsPanel, ValuesReadBeforeTheControlsExistAreShownByOpen) {
    choose(CFSTR("Resolution"), CFSTR("600x600dpi"));
    setInvert(false, true);
    initialize();
    open();
    sync(kSyncToTicket);
    EXPECT_EQ(choice(CFSTR("Resolution")), "600x600dpi");
    EXPECT_EQ(choice(CFSTR("KLEconomode")), "Draft");
    EXPECT_EQ(invert(), std::pair(false, true));
}

TEST_F(ImageOptionsPanel, ASecondOpenBuildsNothing) {
    initialize();
    open();
    const auto widgets = window_.findChildren<QWidget*>().size();
    EXPECT_EQ(operations().Open(context_), kPMInvalidPDEContext);
    EXPECT_EQ(operations().Close(context_), noErr);
    EXPECT_EQ(operations().Open(context_), kPMInvalidPDEContext);
    EXPECT_EQ(window_.findChildren<QWidget*>().size(), widgets);
}

TEST_F(ImageOptionsPanel, APPDWithoutTheOptionsWritesNone) {
    initialize("");
    open();
    sync(kSyncToTicket);
    EXPECT_EQ(choice(CFSTR("Resolution")), "");
    EXPECT_FALSE(control(1502)->isEnabled());
}

TEST_F(ImageOptionsPanel, PicturesAndTheirDescriptionsFollowTheChoice) {
    initialize();
    open();
    window_.resize(500, 500);
    WidgetFromControl(static_cast<ImageOptionsContext*>(context_)->pane)->setVisible(true);
    const auto look = [&](SInt32 id) { return control(id)->grab().toImage(); };

    std::map<std::string, SInt32> seen;  // a description to the control that said it
    std::vector<QImage> images;
    const auto see = [&](SInt32 id) {
        const QImage image = look(id);
        EXPECT_TRUE(std::ranges::none_of(images, [&](const QImage& old) { return old == image; }));
        images.push_back(image);
        const std::string text = description(id).toStdString();
        EXPECT_FALSE(text.empty() || text == "STRING NOT FOUND");
        EXPECT_TRUE(seen.emplace(text, id).second) << text;
    };
    see(1303);
    control<QCheckBox>(1302)->click();
    see(1303);
    for (const char* resolution : {"600x600dpi", "1200x1200dpi", "1800x1800dpi", "200x200dpi"}) {
        pick(resolution);
        see(1503);
    }
    see(2104);
    for (const SInt32 box : {2102, 2103, 2102}) {
        control<QCheckBox>(box)->click();
        see(2104);
    }
}

TEST_F(ImageOptionsPanel, MissingRecordsAndSessionsAreRefused) {
    CFArrayRef titles = reinterpret_cast<CFArrayRef>(this), values = titles;
    EXPECT_EQ(operations().GetSummaryText(nullptr, &titles, &values), kPMInvalidPDEContext);
    EXPECT_TRUE(!titles && !values);
    UInt32 flags = 0;
    EXPECT_EQ(operations().Initialize(context_, &flags, nullptr, nullptr, nullptr),
              kPMInvalidPDEContext);
    EXPECT_EQ(operations().Sync(context_, nullptr, kSyncToUI), kPMInvalidPrintSession);
    EXPECT_EQ(operations().Sync(nullptr, session_, kSyncToUI), kPMInvalidPrintSession);
    EXPECT_EQ(operations().Open(nullptr), kPMInvalidPDEContext);
    EXPECT_EQ(operations().Close(nullptr), kPMInvalidPDEContext);
    EXPECT_EQ(operations().Terminate(nullptr, noErr), kPMInvalidPDEContext);
    auto& record = *static_cast<ImageOptionsContext*>(context_);
    EXPECT_EQ(SyncResolutionToUI(record, kPMNoTicket), noErr);
    EXPECT_EQ(record.resolution, 0);
}

}  // namespace
}  // namespace kalmo::test
