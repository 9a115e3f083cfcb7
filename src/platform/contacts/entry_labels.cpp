#include "contacts/entry_labels.h"

#include <algorithm>

namespace contacts {

namespace {

struct LabelRow {
    Label label;
    std::string_view bracketed;
    std::vector<std::string_view> types;  // all of them, in any order
};

/// The first row whose types are all there is the label.
const std::vector<LabelRow>& LabelRows() {
    static const std::vector<LabelRow> rows{
        {Label::workFax, "_$!<WorkFAX>!$_", {"WORK", "FAX"}},
        {Label::homeFax, "_$!<HomeFAX>!$_", {"HOME", "FAX"}},
        {Label::otherFax, "_$!<OtherFAX>!$_", {"FAX"}},
        {Label::pager, "_$!<Pager>!$_", {"PAGER"}},
        {Label::mobile, "_$!<Mobile>!$_", {"CELL"}},
        {Label::main, "_$!<Main>!$_", {"MAIN"}},
        {Label::work, "_$!<Work>!$_", {"WORK"}},
        {Label::home, "_$!<Home>!$_", {"HOME"}},
        {Label::other, "_$!<Other>!$_", {}},
    };
    return rows;
}

constexpr std::string_view kLabelTypes[] = {"WORK", "HOME",  "FAX",  "VOICE",
                                            "CELL", "PAGER", "MAIN", "OTHER"};

bool IsLabelType(std::string_view type) {
    return std::ranges::any_of(kLabelTypes,
                               [&](std::string_view it) { return EqualWithoutCase(it, type); });
}

/// The words of the list that stay, or nothing when all do.
bool DropLabelTypes(Parameter& parameter) {
    if (!parameter.name.empty() && parameter.name != "TYPE") return false;
    std::vector<std::string> kept;
    for (const std::string& list : parameter.values) {
        for (std::string& type : SplitAt(',', list)) {
            if (!IsLabelType(Trimmed(type))) kept.push_back(std::move(type));
        }
    }
    parameter.values = std::move(kept);
    return true;
}

std::vector<std::string> TypesOf(Label label, bool isPhone) {
    const auto row = std::ranges::find(LabelRows(), label, &LabelRow::label);
    if (row == LabelRows().end()) return {};
    std::vector<std::string> types(row->types.begin(), row->types.end());
    // Programs ask for a voice telephone by this word.
    const bool voice = label == Label::work || label == Label::home || label == Label::other;
    if (isPhone && voice) types.emplace_back("VOICE");
    return types;
}

}  // namespace

Label LabelOfTypes(const std::vector<std::string>& upperTypes) {
    const auto has = [&](std::string_view type) {
        return std::ranges::find(upperTypes, type) != upperTypes.end();
    };
    return std::ranges::find_if(
               LabelRows(),
               [&](const LabelRow& row) { return std::ranges::all_of(row.types, has); })
        ->label;
}

void ReadLabelText(std::string_view text, Entry& entry) {
    const auto row = std::ranges::find_if(LabelRows(), [&](const LabelRow& it) {
        // Programs turn a type that they do not know into a word of the user's.
        return EqualWithoutCase(it.bracketed, text) ||
               (it.types.size() == 1 && EqualWithoutCase(it.types[0], text));
    });
    const bool known = row != LabelRows().end();
    if (!known && text.empty()) return;
    entry.label = known ? row->label : Label::custom;
    entry.customLabel = known ? "" : text;
}

void SetLabelTypes(Property& property, Version version, Label label) {
    std::erase_if(property.parameters, [](Parameter& parameter) {
        if (!DropLabelTypes(parameter)) return false;
        parameter.rewrite();
        return parameter.values.empty();
    });
    std::vector<Parameter>& parameters = property.parameters;
    const std::vector<std::string> types = TypesOf(label, EqualWithoutCase(property.name, "TEL"));
    if (types.empty()) return;
    const std::string list = Joined(types, version == Version::v21 ? ';' : ',');
    const std::string name = version == Version::v21 ? "" : "TYPE=";
    parameters.insert(parameters.begin(), {name + list, name.empty() ? "" : "TYPE", types});
}

Entry WithStorableLabel(Entry entry) {
    if (entry.label != Label::custom) entry.customLabel.clear();
    std::erase(entry.customLabel, ',');
    entry.customLabel = Trimmed(entry.customLabel);
    if (entry.customLabel.empty() && entry.label == Label::custom) entry.label = Label::other;
    return entry;
}

}  // namespace contacts
