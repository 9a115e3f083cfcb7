#include "print_dialog/option_words.h"

#include <strings.h>

#include <algorithm>

#include "print_dialog/window_texts.h"

namespace kalmo {
namespace {

struct WordsRow {
    const char* option;
    const char* choice;  // null: the option itself
    const char* text;    // key
};
constexpr WordsRow kWords[] = {
    {"copies", nullptr, "Sent copies"},
    {"media", nullptr, "Sent paper"},
    {"multiple-document-handling", nullptr, "Sent order"},
    {"multiple-document-handling", "separate-documents-collated-copies", "Sent collated"},
    {"multiple-document-handling", "separate-documents-uncollated-copies", "Sent uncollated"},
    {"number-up", nullptr, "Sent pages per sheet"},
    {"orientation-requested", nullptr, "Sent orientation"},
    {"orientation-requested", "3", "Sent portrait"},
    {"orientation-requested", "4", "Sent landscape"},
    {"page-ranges", nullptr, "Sent pages"},
    {"pdfAutoRotate", nullptr, "Sent turning"},
    {"pdfAutoRotate", "no", "Sent never"},
    {"print-scaling", nullptr, "Sent scaling"},
    {"print-scaling", "fit", "Sent fitted"},
    {"print-scaling", "none", "Sent never"},
};

std::string OwnWords(const std::string& option, const std::string* choice) {
    for (const auto& row : kWords) {
        const bool sameChoice = choice ? row.choice && *choice == row.choice : !row.choice;
        if (option == row.option && sameChoice) return HostText(row.text);
    }
    return choice ? *choice : option;
}

std::string ChoiceWord(const std::vector<PPDOptionTexts>& printer, const std::string& option,
                       const std::string& choice) {
    const auto known = std::ranges::find(printer, option, &PPDOptionTexts::keyword);
    if (known == printer.end()) return OwnWords(option, &choice);
    // "True" crosses the protocol as a truth value, "true".
    const auto named = std::ranges::find_if(known->choices, [&](const PPDChoiceText& one) {
        return strcasecmp(one.keyword.c_str(), choice.c_str()) == 0;
    });
    return named == known->choices.end() ? choice : named->text;
}

}  // namespace

std::string OptionWords(const std::vector<PPDOptionTexts>& printer, const std::string& option) {
    const auto known = std::ranges::find(printer, option, &PPDOptionTexts::keyword);
    return known == printer.end() ? OwnWords(option, nullptr) : known->text;
}

std::string ChoiceWords(const std::vector<PPDOptionTexts>& printer, const std::string& option,
                        const std::vector<std::string>& choices) {
    std::string words;
    for (const auto& choice : choices) {
        words += (words.empty() ? "" : ", ") + ChoiceWord(printer, option, choice);
    }
    return words;
}

}  // namespace kalmo
