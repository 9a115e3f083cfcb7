#include "settings/ppd_access.h"

#include <cups/ppd.h>

#include <algorithm>
#include <array>
#include <memory>
#include <span>

#include "foundation/bundle.h"
#include "printing/ppd_file.h"
#include "printing/session.h"
#include "settings/dictionary.h"
#include "settings/ppd_choices.h"
#include "shell/base/current_session.h"
#include "shell/base/plugin_bundle.h"
#include "system/system.h"

// libcups marks its PPD calls as going away; this file is what then changes.
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"

namespace kalmo {
namespace {

struct PPDCloser {
    void operator()(PPDRef ppd) const { ppdClose(ppd); }
};
std::unique_ptr<ppd_file_t, PPDCloser> currentPPD;

using PPDLocalizer = void (*)(PPDRef);

struct EncodingRow {
    const char* languageEncoding;
    CFStringEncoding encoding;
};
constexpr EncodingRow kEncodings[] = {
    {"ISOLatin1", kCFStringEncodingISOLatin1}, {"ISOLatin2", kCFStringEncodingISOLatin2},
    {"ISOLatin5", kCFStringEncodingISOLatin5}, {"JIS83-RKSJ", kCFStringEncodingShiftJIS},
    {"UTF-8", kCFStringEncodingUTF8},          {"UTF8", kCFStringEncodingUTF8},
};

/// Empty when there is no printer, no description, or its path is too long.
std::string PathOfCurrentPPD() {
    PMPrinter printer = nullptr;
    Owned<CFURLRef> url;
    std::array<char, kMaximumPathSize> path{};
    if (PMSessionGetCurrentPrinter(GetCurrentPrintSession(), &printer) != noErr || !printer ||
        PMPrinterCopyDescriptionURL(printer, kPMPPDDescriptionType, url.adopt()) != noErr || !url ||
        !CFURLGetFileSystemRepresentation(url, true, reinterpret_cast<UInt8*>(path.data()),
                                          kMaximumPathSize))
        return {};
    return path.data();
}

/// Lets the localizer plug-in inside the bundle, where there is one, translate the PPD's texts.
void LocalizeInPlace(PPDRef ppd) {
    const CFBundleRef bundle = GetPDEBundle();
    if (GetSystemVersion() < kSystemVersion10_5 || !bundle) return;
    const auto resources = Owned<CFURLRef>::Adopt(CFBundleCopyResourcesDirectoryURL(bundle));
    if (!resources) return;
    const auto folder = Owned<CFURLRef>::Adopt(CFURLCreateCopyAppendingPathComponent(
        kCFAllocatorDefault, resources, CFSTR("OrvikCups.plugin"), true));
    const auto plugin = Owned<CFBundleRef>::Adopt(CFBundleCreate(kCFAllocatorDefault, folder));
    if (!plugin) return;
    void* function = CFBundleGetFunctionPointerForName(plugin, CFSTR("InvokeLocalizedPPD"));
    if (function) reinterpret_cast<PPDLocalizer>(function)(ppd);
}

/// The text in the PPD's encoding; empty when it has no form there.
std::string InEncodingOf(PPDRef ppd, CFStringRef text) {
    std::array<char, std::size_t{4} * PPD_MAX_NAME> bytes{};
    CFStringGetCString(text, bytes.data(), bytes.size(), PPDGetEncoding(ppd));
    return bytes.data();
}

ppd_option_t* FindOption(PPDRef ppd, CFStringRef keyword) {
    return ppd && keyword ? ppdFindOption(ppd, InEncodingOf(ppd, keyword).c_str()) : nullptr;
}

/// Null for a text that is missing, empty or not in the PPD's encoding.
CFStringRef CreateText(PPDRef ppd, const char* text) {
    return *text ? CFStringCreateWithCString(kCFAllocatorDefault, text, PPDGetEncoding(ppd))
                 : nullptr;
}

/// In pt. 200 inches is the longest page of a PDF; what is longer is a fault of the file.
bool IsRangeOfSides(double least, double most) {
    constexpr double kLongestSide = 14400;
    return least > 0 && least <= most && most <= kLongestSide;
}

const ppd_choice_t* FirstMarkedChoice(const ppd_option_t& option) {
    for (const ppd_choice_t& choice : std::span(option.choices, option.num_choices)) {
        if (choice.marked) return &choice;
    }
    return nullptr;
}

}  // namespace

PPDRef PPDGetCurrent() {
    if (currentPPD) return currentPPD.get();
    currentPPD.reset(OpenPPDFile(PathOfCurrentPPD(), nullptr));
    if (currentPPD) LocalizeInPlace(currentPPD.get());
    return currentPPD.get();
}

void PPDCloseCurrent() { currentPPD.reset(); }

CFStringRef PPDCopyCurrentChoice(PMTicketRef ticket, CFStringRef keyword) {
    CFMutableDictionaryRef choices = nullptr;
    if (!keyword || PMTicketGetPPDDict(ticket, &choices) != noErr) return nullptr;
    const CFStringRef choice = StringInDictionary(choices, keyword);
    return choice ? CFStringCreateCopy(kCFAllocatorDefault, choice) : nullptr;
}

void PPDSetCurrentChoice(PMTicketRef ticket, CFStringRef keyword, CFStringRef choice) {
    CFMutableDictionaryRef choices = nullptr;
    if (!keyword || !choice || PMTicketGetPPDDict(ticket, &choices) != noErr) return;
    CFDictionarySetValue(choices, keyword, choice);
}

CFStringEncoding PPDGetEncoding(PPDRef ppd) {
    const std::string_view name = ppd && ppd->lang_encoding ? ppd->lang_encoding : "";
    for (const EncodingRow& row : kEncodings) {
        if (name == row.languageEncoding) return row.encoding;
    }
    return kCFStringEncodingMacRoman;
}

CFStringRef PPDCopyChoiceText(PPDRef ppd, CFStringRef keyword, CFStringRef choice) {
    ppd_option_t* option = choice ? FindOption(ppd, keyword) : nullptr;
    if (!option) return nullptr;
    const ppd_choice_t* found = ppdFindChoice(option, InEncodingOf(ppd, choice).c_str());
    return found ? CreateText(ppd, found->text) : nullptr;
}

CFStringRef PPDCopyDefaultChoice(PPDRef ppd, CFStringRef keyword) {
    const ppd_option_t* option = FindOption(ppd, keyword);
    return option ? CreateText(ppd, option->defchoice) : nullptr;
}

void PPDGetTicketValueForChoiceOrDefault(PPDRef ppd, PMTicketRef ticket, CFStringRef keyword,
                                         SInt32* value) {
    auto choice = Owned<CFStringRef>::Adopt(PPDCopyCurrentChoice(ticket, keyword));
    if (!choice) choice = Owned<CFStringRef>::Adopt(PPDCopyDefaultChoice(ppd, keyword));
    if (choice && value) *value = PPDTicketValueForChoice(keyword, choice);
}

std::optional<PPDCustomSizes> PPDGetCustomSizes(PPDRef ppd) {
    if (!ppd || !ppd->variable_sizes) return std::nullopt;
    const PPDCustomSizes sizes{.minimumWidth = ppd->custom_min[0],
                               .maximumWidth = ppd->custom_max[0],
                               .minimumLength = ppd->custom_min[1],
                               .maximumLength = ppd->custom_max[1]};
    if (!IsRangeOfSides(sizes.minimumWidth, sizes.maximumWidth) ||
        !IsRangeOfSides(sizes.minimumLength, sizes.maximumLength))
        return std::nullopt;
    return sizes;
}

std::optional<PPDPaperSize> PPDGetPaperSize(PPDRef ppd, CFStringRef choice) {
    if (!ppd || !choice) return std::nullopt;
    const std::string name = InEncodingOf(ppd, choice);
    for (const ppd_size_t& size : std::span(ppd->sizes, static_cast<std::size_t>(ppd->num_sizes)))
        if (name == size.name) return PPDPaperSize{size.width, size.length};
    return std::nullopt;
}

std::string PPDManufacturer(PPDRef ppd) {
    return ppd && ppd->manufacturer ? ppd->manufacturer : "";
}

void PPDMarkDefaults(PPDRef ppd) {
    if (ppd) ppdMarkDefaults(ppd);
}

int PPDMarkChoice(PPDRef ppd, const char* keyword, const char* choice) {
    return ppd ? ppdMarkOption(ppd, keyword, choice) : 0;
}

bool PPDOffersChoices(PPDRef ppd, CFStringRef keyword) {
    const ppd_option_t* option = FindOption(ppd, keyword);
    return option && option->num_choices > 0;
}

bool PPDForEachChoice(PPDRef ppd, CFStringRef keyword,
                      const std::function<void(const char*, const char*, const char*)>& visit) {
    const ppd_option_t* option = FindOption(ppd, keyword);
    if (!option) return false;
    for (const ppd_choice_t& choice : std::span(option->choices, option->num_choices))
        visit(option->keyword, choice.choice, choice.text);
    return true;
}

bool PPDForEachMarkedChoiceOfGroup(PPDRef ppd, const char* group,
                                   const std::function<void(const char*, const char*)>& visit) {
    if (!ppd) return false;
    const std::span groups(ppd->groups, ppd->num_groups);
    const auto found = std::ranges::find_if(
        groups, [&](const ppd_group_t& each) { return std::string_view(each.name) == group; });
    if (found == groups.end()) return false;
    for (const ppd_option_t& option : std::span(found->options, found->num_options)) {
        if (const ppd_choice_t* choice = FirstMarkedChoice(option))
            visit(option.keyword, choice->choice);
    }
    return true;
}

}  // namespace kalmo
