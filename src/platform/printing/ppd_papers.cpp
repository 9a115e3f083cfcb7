#include "printing/ppd_papers.h"

#include <cups/ppd.h>
#include <strings.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <map>
#include <memory>
#include <span>
#include <sstream>

#include "foundation/bundle.h"
#include "printing/ppd_constraints_text.h"
#include "printing/ppd_file.h"
#include "printing/ppd_source.h"

// libcups' PPD calls are marked as deprecated since PPD files are to go; printers still bring them.
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"

namespace {

struct ClosePPD {
    void operator()(ppd_file_t* ppd) const { ppdClose(ppd); }
};
using PPDFile = std::unique_ptr<ppd_file_t, ClosePPD>;

/// Longer sheets are a fault of the file: 200 inches, the longest page of a PDF.
constexpr double kLongestSide = 14400;

std::string WhyRefused() {
    int line = 0;
    const ppd_status_t status = ppdLastError(&line);
    return "line " + std::to_string(line) + ": " + ppdErrorString(status);
}

/// libcups reads from descriptors only: the text goes through a file in memory.
PPDFile ParsePPD(const std::string& text, std::string* reason) {
    const int memory = memfd_create("ppd", MFD_CLOEXEC);
    const auto size = static_cast<ssize_t>(text.size());
    if (memory < 0 || write(memory, text.data(), text.size()) != size ||
        lseek(memory, 0, SEEK_SET) != 0) {
        if (memory >= 0) close(memory);
        if (reason) *reason = "there is not enough memory to read it";
        return nullptr;
    }
    PPDFile ppd(ppdOpenFd(memory));  // closes the descriptor
    if (!ppd && reason) *reason = WhyRefused();
    return ppd;
}

/// "Custom" stands for values that are typed, not for a choice.
bool IsTyped(ppd_file_t* ppd, const char* option, const ppd_choice_t& choice) {
    return std::string_view(choice.choice) == "Custom" && ppdFindCustomOption(ppd, option);
}

/// Texts in the language that comes first in the user's order and is in the file.
class Texts final {
public:
    explicit Texts(ppd_file_t* ppd)
        : ppd_(ppd), languages_(std::min(PreferredLanguages().size(), kPPDMaximumLanguages)) {}

    [[nodiscard]] std::string ofOption(const ppd_option_t& option) const {
        return translation("Translation", option.keyword, option.text);
    }
    [[nodiscard]] std::string ofGroup(const ppd_group_t& group) const {
        return translation("Translation", group.name, group.text);
    }
    [[nodiscard]] std::string ofChoice(const char* option, const ppd_choice_t& choice) const {
        if (!IsTyped(ppd_, option, choice)) return translation(option, choice.choice, choice.text);
        return translation(std::string("Custom") + option, "True", choice.text);
    }

private:
    [[nodiscard]] std::string translation(const std::string& keyword, const char* name,
                                          const char* original) const {
        for (std::size_t i = 0; i < languages_; ++i) {
            const std::string marked = static_cast<char>('a' + i) + ("." + keyword);
            const ppd_attr_t* found = ppdFindAttr(ppd_, marked.c_str(), name);
            if (found && *found->text) return found->text;
        }
        return *original ? original : name;
    }

    ppd_file_t* ppd_;
    std::size_t languages_;
};

std::span<ppd_choice_t> ChoicesOf(const ppd_option_t& option) {
    return {option.choices, static_cast<std::size_t>(option.num_choices)};
}

bool IsLength(double value) { return std::isfinite(value) && value > 0 && value <= kLongestSide; }

/// An area that is empty or outside the sheet is taken for the whole sheet.
void SetImageableArea(PPDPaper* paper, const ppd_size_t& size) {
    const auto within = [](double value, double most) {
        return std::isfinite(value) ? std::clamp(value, 0.0, most) : -1.0;
    };
    paper->left = within(size.left, paper->width);
    paper->right = within(size.right, paper->width);
    paper->bottom = within(size.bottom, paper->height);
    paper->top = within(size.top, paper->height);
    if (paper->left >= 0 && paper->bottom >= 0 && paper->left < paper->right &&
        paper->bottom < paper->top) {
        return;
    }
    paper->left = paper->bottom = 0;
    paper->right = paper->width;
    paper->top = paper->height;
}

/// Every choice of the option that has a size.
std::vector<PPDPaper> PapersOf(ppd_file_t* ppd, const ppd_option_t& pageSize, const Texts& texts) {
    std::vector<PPDPaper> papers;
    for (const ppd_choice_t& choice : ChoicesOf(pageSize)) {
        if (IsTyped(ppd, pageSize.keyword, choice)) continue;
        const ppd_size_t* size = ppdPageSize(ppd, choice.choice);
        if (!size || !IsLength(size->width) || !IsLength(size->length)) continue;
        PPDPaper paper{.keyword = choice.choice,
                       .text = texts.ofChoice(pageSize.keyword, choice),
                       .width = size->width,
                       .height = size->length};
        SetImageableArea(&paper, *size);
        papers.push_back(std::move(paper));
    }
    return papers;
}

std::string DefaultPaper(const ppd_option_t& pageSize, const std::vector<PPDPaper>& papers) {
    const std::string named = pageSize.defchoice;
    if (papers.empty() || std::ranges::find(papers, named, &PPDPaper::keyword) != papers.end()) {
        return papers.empty() ? "" : named;
    }
    return papers.front().keyword;
}

PPDOptionTexts DescribeOption(ppd_file_t* ppd, const ppd_option_t& option, const Texts& texts) {
    PPDOptionTexts described{.keyword = option.keyword,
                             .text = texts.ofOption(option),
                             .defaultChoice = option.defchoice};
    for (const ppd_choice_t& choice : ChoicesOf(option)) {
        if (IsTyped(ppd, option.keyword, choice)) continue;
        described.choices.push_back({choice.choice, texts.ofChoice(option.keyword, choice)});
    }
    return described;
}

void DescribeGroup(ppd_file_t* ppd, const ppd_group_t& group, const Texts& texts,
                   PPDDescription* description) {
    for (const ppd_option_t& option :
         std::span(group.options, static_cast<std::size_t>(group.num_options))) {
        if (std::string_view(option.keyword) == "PageSize") {
            description->papers = PapersOf(ppd, option, texts);
            description->defaultPaper = DefaultPaper(option, description->papers);
        } else {
            description->options.push_back(DescribeOption(ppd, option, texts));
        }
    }
    for (const ppd_group_t& inner :
         std::span(group.subgroups, static_cast<std::size_t>(group.num_subgroups))) {
        DescribeGroup(ppd, inner, texts, description);
    }
}

std::string FirstText(std::initializer_list<const char*> texts) {
    const auto text = std::ranges::find_if(texts, [](const char* t) { return t && *t; });
    return text == texts.end() ? "" : *text;
}

/// The longest part of the text that fits and cuts no character.
template <std::size_t Size>
void Replace(char (&place)[Size], const std::string& text) {
    std::size_t length = std::min(text.size(), Size - 1);
    const auto isInside = [&](std::size_t at) {
        return at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80;
    };
    while (length > 0 && isInside(length)) --length;
    place[text.copy(place, length)] = '\0';
}

void LocalizeGroup(const Texts& texts, ppd_group_t& group) {
    Replace(group.text, texts.ofGroup(group));
    for (ppd_option_t& option :
         std::span(group.options, static_cast<std::size_t>(group.num_options))) {
        Replace(option.text, texts.ofOption(option));
        for (ppd_choice_t& choice : ChoicesOf(option)) {
            Replace(choice.text, texts.ofChoice(option.keyword, choice));
        }
    }
    for (ppd_group_t& inner :
         std::span(group.subgroups, static_cast<std::size_t>(group.num_subgroups))) {
        LocalizeGroup(texts, inner);
    }
}

/// "*Duplex *InputSlot Tray1": keywords with the choice behind them, or none.
std::vector<PPDSelection> ReadWords(const char* text) {
    std::vector<PPDSelection> words;
    std::istringstream stream(text ? text : "");
    for (std::string word; stream >> word;) {
        if (word.starts_with('*')) {
            words.push_back({word.substr(1), ""});
        } else if (!words.empty() && words.back().choice.empty()) {
            words.back().choice = word;
        }
    }
    return words;
}

void WriteOptions(const ppd_group_t& group, bool isInstalled, std::vector<WrittenOption>& options) {
    for (const ppd_option_t& option :
         std::span(group.options, static_cast<std::size_t>(group.num_options))) {
        WrittenOption written{.keyword = option.keyword,
                              .defaultChoice = option.defchoice,
                              .isInstalled = isInstalled};
        for (const ppd_choice_t& choice : ChoicesOf(option))
            written.choices.emplace_back(choice.choice);
        options.push_back(std::move(written));
    }
    for (const ppd_group_t& inner :
         std::span(group.subgroups, static_cast<std::size_t>(group.num_subgroups))) {
        WriteOptions(inner, isInstalled, options);
    }
}

/// Constraints of three options and more, with what the printer would rather change.
std::vector<WrittenConstraint> WrittenSets(ppd_file_t* ppd) {
    std::vector<const ppd_attr_t*> sets;
    for (const auto* set = ppdFindAttr(ppd, "cupsUIConstraints", nullptr); set;
         set = ppdFindNextAttr(ppd, "cupsUIConstraints", nullptr)) {
        sets.push_back(set);
    }
    // libcups keeps one place in the file: it is asked for the next thing after the last one.
    std::map<std::string, std::vector<PPDSelection>> resolvers;
    std::vector<WrittenConstraint> constraints;
    for (const ppd_attr_t* set : sets) {
        auto [resolver, isNew] = resolvers.try_emplace(set->spec);
        if (isNew && *set->spec) {
            const auto* found = ppdFindAttr(ppd, "cupsUIResolver", set->spec);
            resolver->second = ReadWords(found ? found->value : nullptr);
        }
        constraints.push_back({ReadWords(set->value), resolver->second});
    }
    return constraints;
}

}  // namespace

ppd_file_s* OpenPPDFile(const std::string& path, std::string* reason) {
    const auto text = ReadPPDText(path, reason);
    return text ? ParsePPD(MarkTranslations(*text, PreferredLanguages()), reason).release()
                : nullptr;
}

void LocalizePPDFile(ppd_file_s* ppd) {
    if (!ppd) return;
    const Texts texts(ppd);
    for (ppd_group_t& group : std::span(ppd->groups, static_cast<std::size_t>(ppd->num_groups))) {
        LocalizeGroup(texts, group);
    }
}

std::optional<PPDDescription> ReadPPDDescription(const std::string& path, std::string* reason) {
    const PPDFile ppd(OpenPPDFile(path, reason));
    if (!ppd) return std::nullopt;

    PPDDescription description;
    description.manufacturer = FirstText({ppd->manufacturer});
    description.makeAndModel = FirstText({ppd->nickname, ppd->shortnickname, ppd->modelname});
    description.customSizes = ppd->variable_sizes != 0;
    const Texts texts(ppd.get());
    for (const ppd_group_t& group :
         std::span(ppd->groups, static_cast<std::size_t>(ppd->num_groups))) {
        DescribeGroup(ppd.get(), group, texts, &description);
    }
    return description;
}

std::optional<WrittenConstraints> ReadWrittenConstraints(const std::string& path,
                                                         std::string* reason) {
    const PPDFile ppd(OpenPPDFile(path, reason));
    if (!ppd) return std::nullopt;
    WrittenConstraints written;
    for (const ppd_group_t& group :
         std::span(ppd->groups, static_cast<std::size_t>(ppd->num_groups))) {
        WriteOptions(group, strcasecmp(group.name, "InstallableOptions") == 0, written.options);
    }
    for (const ppd_const_t& pair :
         std::span(ppd->consts, static_cast<std::size_t>(ppd->num_consts))) {
        written.constraints.push_back(
            {{{pair.option1, pair.choice1}, {pair.option2, pair.choice2}}, {}});
    }
    std::ranges::move(WrittenSets(ppd.get()), std::back_inserter(written.constraints));
    return written;
}
