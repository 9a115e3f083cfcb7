#include "watermark/watermark_editor.h"

#include <cstring>
#include <iterator>
#include <optional>
#include <string_view>

#include "controls/input_limits.h"
#include "controls/modal_dialog.h"
#include "graphics/fonts.h"
#include "shell/base/panel_interface.h"
#include "shell/base/texts.h"
#include "toolbox/menus.h"
#include "watermark/watermark_fonts.h"
#include "watermark/watermark_limits.h"
#include "watermark/watermark_naming.h"
#include "watermark/watermark_numbers.h"
#include "watermark/watermark_offsets.h"
#include "watermark/watermark_picture_choice.h"
#include "watermark/watermark_preview.h"

namespace kalmo {
namespace {

constexpr SInt32 kPreviewID = 100, kMessageID = 101, kTextKindID = 201, kPictureKindID = 202,
                 kTextRowsID = 300, kTextID = 302, kFamilyID = 304, kStyleID = 306, kColorID = 311,
                 kUnitsID = 321, kPictureRowsID = 400, kFileID = 402, kChooseID = 403,
                 kOKButtonID = 901;

/// UTF-16 units: as many as surely fit into the record, three bytes each.
constexpr SInt32 kLongestText = 170;
static_assert(kLongestText * 3 < sizeof(_WatermarkData::textString));
constexpr double kPointsPerInch = 72;

using Kind = WatermarkKind;

bool IsBlank(std::string_view text) {
    return text.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

/// With numbers in their ranges, and without glyphs: those stay the record's own.
_WatermarkData WorkingCopy(const _WatermarkData& record) {
    _WatermarkData copy = record;
    copy.glyphs = nullptr;
    copy.glyphCount = 0;
    SettleWatermark(copy);
    return copy;
}

class WatermarkEditor final : public ModalDialog {
public:
    WatermarkEditor(CFBundleRef bundle, CFStringRef titleKey, CFArrayRef takenNames,
                    _WatermarkData* record)
        : ModalDialog(bundle, {.file = CFSTR("WatermarkEditor"),
                               .window = CFSTR("WatermarkEditor"),
                               .helpPage = CFSTR("booklet_watermark/watermark_editor.htm"),
                               .titleKey = titleKey}),
          takenNames_(takenNames),
          record_(record),
          edited_(WorkingCopy(*record)),
          page_(PageOf(edited_)),
          picture_(bundle, &edited_) {}

private:
    void prepare() override {
        preview_.setControl(control(kPreviewID));
        prepareText();
        fillUnits();
        numbers_ = WatermarkNumbers(window(), &edited_);
        offsets_ = WatermarkOffsets(window(), &edited_, page_);
        showFile();
        const bool isPicture = !edited_.textString[0] && edited_.filename[0];
        SetControl32BitValue(control(isPicture ? kPictureKindID : kTextKindID), 1);
        kindWasChosen();
        show();
        SetKeyboardFocus(control(isPicture ? kChooseID : kTextID));
    }

    bool accept() override {
        if (!isComplete() || !numbersAreRight()) return false;
        const _WatermarkData result = chosen();
        if (!MayNameWatermark(bundle(), takenNames_, CopyWatermarkName(result))) return false;
        handBack(result);
        return true;
    }

    void controlWasHit(SInt32 id) override {
        if (id == kTextKindID || id == kPictureKindID) kindWasChosen();
        if (id == kChooseID) picture_.choose(window());
        if (id == kFamilyID) fonts_.familyWasChosen();
        if (id == kFamilyID || id == kStyleID) takeFont();
        if (id == kColorID) takeColor();
        offsets_.controlWasHit(id);
        show();
    }

    void inputWasChecked(SInt32 id, UInt32) override {
        if (id != kTextID) return;
        const auto typed = Owned<CFStringRef>::Adopt(CopyControlTitleAsCFString(control(id)));
        SetWatermarkText(edited_.textString, typed);
        show();
    }

    void numberWasChanged(SInt32 arrows) override {
        numbers_.numberWasChanged(arrows);
        offsets_.numberWasChanged(arrows);
        show();
    }

    OSStatus draw(SInt32 id, EventRef event) override {
        return id == kPreviewID ? preview_.draw(event) : eventNotHandledErr;
    }

    OSStatus mouseWasUsed(SInt32 id, EventRef event) override {
        WatermarkOffsets::Place place{};
        if (id != kPreviewID || !GetEventMousePlace(event, &place[0], &place[1]))
            return eventNotHandledErr;
        if (GetEventKind(event) == kEventMouseDown) return beginDrag(place);
        dragTo(place);
        if (GetEventKind(event) == kEventMouseUp) offsets_.endDrag();
        showPointer();
        return noErr;
    }

    void prepareText() {
        SetControlTitleWithCFString(control(kTextID), CopyWatermarkText(edited_.textString));
        LimitInputLengthAndCharacters(control(kTextID), 1, kLongestText, nullptr);
        fonts_ = FontMenus(control(kFamilyID), control(kStyleID));
        fonts_.show(CopyWatermarkText(edited_.fontName));
        SetControlColor(control(kColorID), {edited_.wellColorRed, edited_.wellColorGreen,
                                            edited_.wellColorBlue, edited_.wellColorAlpha});
    }

    void fillUnits() {
        const MenuRef menu = GetControlPopupMenu(control(kUnitsID));
        const Owned<CFStringRef> texts[] = {CopyText(bundle(), CFSTR("Inches")),
                                            CopyText(bundle(), CFSTR("Millimeters"))};
        static_assert(std::size(texts) == kOffsetUnitsCount);
        for (const auto& text : texts)
            AppendMenuItemTextWithCFString(menu, text, kMenuItemPlain, 0, nullptr);
        SetControl32BitMaximum(control(kUnitsID), kOffsetUnitsCount);
    }

    OSStatus beginDrag(const WatermarkOffsets::Place& place) {
        if (kind() == Kind::picture || IsBlank(edited_.textString)) return eventNotHandledErr;
        offsets_.beginDrag(place);
        showPointer();
        return noErr;
    }

    void dragTo(const WatermarkOffsets::Place& place) {
        const Rect paper = preview_.pagePlace();
        const SInt32 pixels = paper.right - paper.left;
        if (pixels <= 0) return;
        offsets_.dragTo(place, page_.width / pixels / kPointsPerInch);
        show();
    }

    void showPointer() {
        const bool isText = kind() == Kind::text;
        const auto hand = offsets_.isDragged() ? PointerShape::closedHand : PointerShape::openHand;
        SetControlPointer(control(kPreviewID), isText ? hand : PointerShape::arrow);
    }

    /// A font that is not installed stays until another is chosen than the one in its place.
    void takeFont() {
        const CFStringRef face = fonts_.chosen();
        const auto used = Owned<CFStringRef>::Adopt(ATSFontCopyPostScriptName(
            ATSFontFindFromPostScriptName(CopyWatermarkText(edited_.fontName), 0)));
        if (face && !(used && CFEqual(face, used))) SetWatermarkText(edited_.fontName, face);
    }

    void takeColor() {
        const ControlColor color = GetControlColor(control(kColorID));
        edited_.wellColorRed = edited_.fontColorRed = color.red;
        edited_.wellColorGreen = edited_.fontColorGreen = color.green;
        edited_.wellColorBlue = edited_.fontColorBlue = color.blue;
        edited_.wellColorAlpha = edited_.fontColorAlpha = color.alpha;
    }

    void showFile() {
        const auto name = CopyWatermarkText(edited_.filename);
        SetControlTitleWithCFString(control(kFileID), CopyShortened(name, CFStringGetLength(name)));
        SetControlTextSelection(control(kFileID), {0, 0});
        SetControlHelpTag(control(kFileID), CopyWatermarkText(edited_.filePath));
    }

    void wasDrawn(const _WatermarkData& drawn, OSStatus status) {
        const bool wasReadable = picture_.isReadable();
        const Owned<CFStringRef> refused = picture_.wasDrawn(drawn, status);
        if (refused) show();
        if (picture_.isReadable() && !wasReadable) showFile();
        update();
        if (refused) TellUnreadablePicture(bundle(), refused);
    }

    void kindWasChosen() {
        const bool isText = kind() == Kind::text;
        (isText ? ShowControl : HideControl)(control(kTextRowsID));
        (isText ? HideControl : ShowControl)(control(kPictureRowsID));
        picture_.dropTrial();
        offsets_.endDrag();
        showPointer();
    }

    [[nodiscard]] Kind kind() const { return isOn(kPictureKindID) ? Kind::picture : Kind::text; }

    /// The record as the controls say, of one kind alone.
    [[nodiscard]] _WatermarkData chosen() const {
        _WatermarkData result = edited_;
        result.textMode = kind() == Kind::text;
        if (result.textMode) {
            SetWatermarkPicture(result, nullptr, nullptr);
        } else {
            SetWatermarkText(result.textString, nullptr);
            picture_.showIn(result);
        }
        return result;
    }

    void show() {
        preview_.show(chosen(), page_);
        update();
    }

    void update() {
        enable(kOKButtonID, isComplete());
        const auto message = kind() == Kind::text ? CopyWatermarkText("") : picture_.message();
        SetControlTitleWithCFString(control(kMessageID), message);
        SetControlAccessibleDescription(control(kPreviewID), description());
    }

    [[nodiscard]] bool isComplete() const {
        return kind() == Kind::text ? !IsBlank(edited_.textString) : picture_.isReadable();
    }

    [[nodiscard]] Owned<CFStringRef> description() const {
        if (!isComplete()) return CopyText(bundle(), CFSTR("WatermarkNothingDescription"));
        const auto name = CopyWatermarkName(chosen());
        return CopySentence(kind() == Kind::text
                                ? CopyText(bundle(), CFSTR("WatermarkTextDescription"))
                                : CopyText(bundle(), CFSTR("WatermarkPictureDescription")),
                            name);
    }

    /// A number out of its range is put right where the user sees it.
    [[nodiscard]] bool numbersAreRight() const {
        return numbers_.settle(kind()) && (kind() == Kind::picture || offsets_.settle());
    }

    /// Glyphs are those of a text in a font, whatever else changes.
    void handBack(const _WatermarkData& result) {
        const bool sameGlyphs = std::strcmp(result.textString, record_->textString) == 0 &&
                                std::strcmp(result.fontName, record_->fontName) == 0;
        UInt16* const glyphs = record_->glyphs;
        const SInt32 count = record_->glyphCount;
        *record_ = result;
        record_->glyphs = glyphs;
        record_->glyphCount = count;
        if (!sameGlyphs) SetWatermarkGlyphs(*record_, {});
    }

    CFArrayRef takenNames_;  // lent; may be null
    _WatermarkData* record_;
    _WatermarkData edited_;  // what belongs to either kind, whichever is chosen
    CGSize page_;
    FontMenus fonts_;
    WatermarkNumbers numbers_;
    WatermarkOffsets offsets_;
    WatermarkPictureChoice picture_;
    WatermarkPreview preview_{[this](const _WatermarkData& drawn, OSStatus status) {
        WithoutExceptions(noErr, [&] { return wasDrawn(drawn, status), noErr; });
    }};
};

}  // namespace

SInt32 RunModalWatermarkEditor(CFBundleRef bundle, CFStringRef titleKey, CFArrayRef takenNames,
                               _WatermarkData* record) {
    return WatermarkEditor(bundle, titleKey, takenNames, record).run();
}

}  // namespace kalmo
