#include "paper_output/saved_job_dialog.h"

#include <iterator>

#include "controls/custom_value_dialog.h"
#include "controls/input_limits.h"
#include "controls/modal_dialog.h"
#include "paper_output/paper_output_panel.h"
#include "paper_output/passcode.h"
#include "paper_output/saved_folder.h"
#include "settings/setting_maps.h"
#include "settings/setting_menus.h"
#include "shell/base/texts.h"

namespace kalmo {
namespace {

constexpr SInt32 kNameID = 202, kUseDocumentNameID = 203, kFolderID = 205, kFormatID = 207,
                 kSaveOnlyID = 209, kSaveAndPrintID = 210, kProtectID = 211, kOKButtonID = 901;
constexpr SInt32 kLongestName = 64;

/// Values of the folder popup: the public folder, the one named in the job, and the wish to name
/// one.
constexpr SInt32 kPublicFolder = 1, kNamedFolder = 2, kOtherFolder = 3;

const SettingMap kFormats[] = {
    {CFSTR("JobFormatTIFF"), 1}, {CFSTR("JobFormatMTIFF"), 2},  {CFSTR("JobFormatPDF"), 3},
    {CFSTR("JobFormatFRF"), 4},  {CFSTR("JobFormatFRFDRI"), 5}, {},
};
static_assert(std::size(kFormats) == kLastJobFormat - kFirstJobFormat + 2);

constexpr struct {
    const char* picture;
    const char* descriptionKey;
} kFormatPictures[] = {
    {"JobType_JobFormat_TIFF.gif", "JobFormatTIFFDescription"},
    {"JobType_JobFormat_MTIFF.gif", "JobFormatMTIFFDescription"},
    {"JobType_JobFormat_PDF.gif", "JobFormatPDFDescription"},
    {"JobType_JobFormat_FRF.gif", "JobFormatFRFDescription"},
    {"JobType_JobFormat_FRFDRI.gif", "JobFormatFRFDRIDescription"},
};
static_assert(std::size(kFormatPictures) == kLastJobFormat - kFirstJobFormat + 1);

/// In the order of the map, and so of the dispositions.
constexpr SInt32 kActionIDs[] = {kSaveOnlyID, kSaveAndPrintID};

/// What a menu shows of a text that a ticket may have made as long as it liked.
constexpr CFIndex kLongestShown = 64;

/// Without the blanks at its ends.
Owned<CFStringRef> Trimmed(CFStringRef text) {
    auto trimmed =
        Owned<CFMutableStringRef>::Adopt(CFStringCreateMutableCopy(kCFAllocatorDefault, 0, text));
    CFStringTrim(trimmed, CFSTR(" "));
    return trimmed;
}

void AppendItem(MenuRef menu, CFStringRef text, SInt32 value) {
    UInt16 item = 0;
    AppendMenuItemTextWithCFString(menu, text, kMenuItemPlain, 0, &item);
    SetMenuItemRefCon(menu, item, value);
}

class SavedJobDialog final : public ModalDialog {
public:
    SavedJobDialog(CFBundleRef bundle, JobType* job)
        : ModalDialog(bundle, {.file = CFSTR("SavedJob"),
                               .window = CFSTR("withPasscode"),
                               .helpPage = CFSTR("Paper_Output/Job_Type/saved_job_e.htm"),
                               .picture = 100}),
          job_(job),
          location_(job->savedJobLocation),
          inPublicFolder_(job->useDefaultLocation || !location_) {}

private:
    void prepare() override {
        prepareName();
        fillFolders();
        prepareFormatAndAction();
        preparePasscode();
    }

    bool accept() override {
        if (!settlePasscode()) return false;
        job_->useJobName = isOn(kUseDocumentNameID);
        if (!job_->useJobName) job_->savedJobName = name();
        job_->useDefaultLocation = inPublicFolder_;
        job_->savedJobLocation = location_;
        job_->mediaType = GetPopupButtonTicketValue(control(kFormatID));
        job_->saveDisposition = isOn(kSaveAndPrintID) ? kSaveAndPrint : kSaveOnly;
        return true;
    }

    void controlWasHit(SInt32 id) override {
        if (id == kUseDocumentNameID) enableName();
        if (id == kFolderID) folderWasChosen();
        if (id == kFormatID) updatePicture();
        if (id == kProtectID) protectionWasChosen();
    }

    void inputWasChecked(SInt32 id, UInt32) override {
        if (id == kNameID) enableName();
        if (id == kPasscodeFieldID) enablePasscode();
    }

    [[nodiscard]] Illustration illustration() const override {
        const SInt32 format = GetPopupButtonTicketValue(control(kFormatID));
        if (format < kFirstJobFormat || format > kLastJobFormat) return {};
        const auto& row = kFormatPictures[format - kFirstJobFormat];
        return {row.picture, row.descriptionKey};
    }

    void prepareName() {
        LimitInputLengthAndCharacters(control(kNameID), 1, kLongestName, nullptr);
        if (job_->savedJobName) {
            SetControlTitleWithCFString(control(kNameID),
                                        CopyShortened(job_->savedJobName, kLongestShown));
        }
        SetControl32BitValue(control(kUseDocumentNameID), job_->useJobName || !job_->savedJobName);
        enableName();
    }

    /// A name of one's own has to be there before OK can be pressed.
    void enableName() {
        const bool own = !isOn(kUseDocumentNameID);
        enable(kNameID, own);
        enable(kOKButtonID, !own || CFStringGetLength(name()) > 0);
    }

    void prepareFormatAndAction() {
        PopulatePopupButtonFromMap(bundle(), control(kFormatID), kFormats, JobContext::job, 0);
        SetPopupButtonToTicketValue(control(kFormatID), job_->mediaType);
        for (std::size_t i = 0; i < std::size(kActionIDs); ++i)
            SetControlTitleWithCFString(control(kActionIDs[i]),
                                        CopyText(bundle(), _SavedJobSaveOptionRadioMap[i].key));
        const bool print = job_->saveDisposition == kSaveAndPrint;
        SetControl32BitValue(control(print ? kSaveAndPrintID : kSaveOnlyID), 1);
    }

    void fillFolders() {
        const ControlRef popup = control(kFolderID);
        PopulatePopupButtonFromMap(bundle(), popup, _FolderNameMap, JobContext::job, 0);
        const MenuRef menu = GetControlPopupMenu(popup);
        if (location_)
            AppendItem(menu, CopyShortened(FolderOfLocation(location_), kLongestShown),
                       kNamedFolder);
        AppendMenuItemTextWithCFString(menu, CFSTR("-"), kMenuItemSeparator, 0, nullptr);
        AppendItem(menu, CopyText(bundle(), CFSTR("SavedJobOtherFolder")), kOtherFolder);
        SetControl32BitMaximum(popup, CountMenuItems(menu));
        SetPopupButtonToTicketValue(popup, inPublicFolder_ ? kPublicFolder : kNamedFolder);
    }

    void folderWasChosen() {
        const SInt32 chosen = GetPopupButtonTicketValue(control(kFolderID));
        if (chosen != kOtherFolder) {
            inPublicFolder_ = chosen == kPublicFolder;
            return;
        }
        askForFolder();
        fillFolders();
    }

    void askForFolder() {
        Owned<CFStringRef> folder;
        SInt32 button = kCustomValueCancel;
        const CustomValueTexts texts{.titleKey = CFSTR("SavedJobFolderTitle"),
                                     .labelKey = CFSTR("SavedJobFolderName:")};
        if (RunModalCustomValueDialog(bundle(), 1, kLongestName, folder.adopt(), &button, texts) !=
                noErr ||
            button != kCustomValueOK)
            return;
        folder = Trimmed(folder);
        if (CFStringGetLength(folder) == 0) return;
        location_ = LocationOfFolder(folder);
        inPublicFolder_ = false;
    }

    void preparePasscode() {
        pair_ = PasscodePair(bundle(), window());
        pair_.show(job_->hasSecurePassword ? job_->securePassword.get() : nullptr);
        SetControl32BitValue(control(kProtectID), job_->hasSecurePassword);
        enablePasscode();
    }

    void protectionWasChosen() {
        enablePasscode();
        if (isOn(kProtectID)) pair_.focus();
    }

    void enablePasscode() {
        const bool on = isOn(kProtectID);
        pair_.enable(on ? pair_.useByLength() : PasscodePair::Use::none);
    }

    /// What is there is kept, even when it is short; only nothing is made good for.
    bool settlePasscode() {
        if (!isOn(kProtectID)) {
            job_->setPasscode(nullptr);
            return true;
        }
        if (pair_.length() == 0)
            pair_.generate();
        else if (!pair_.agrees())
            return false;
        job_->setPasscode(pair_.copy());
        return true;
    }

    [[nodiscard]] Owned<CFStringRef> name() const {
        return Trimmed(Owned<CFStringRef>::Adopt(CopyControlTitleAsCFString(control(kNameID))));
    }

    JobType* job_;
    Owned<CFStringRef> location_;  // as it is stored; null: no folder was ever named
    bool inPublicFolder_;
    PasscodePair pair_;
};

}  // namespace

const SettingMap _FolderNameMap[] = {
    {CFSTR("PublicFolder"), kPublicFolder},
    {},
};

SInt32 RunModalSavedJobDialog(_PaperOutputContext* context) {
    return SavedJobDialog(context->bundle, &context->record.job).run();
}

}  // namespace kalmo
