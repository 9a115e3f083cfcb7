// Choices that a PPD file forbids together, and the least that ends it. Any thread; plain values
// only.
#pragma once

#include <compare>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#pragma GCC visibility push(default)

/// One option's choice, both as keywords.
struct PPDSelection {
    std::string option, choice;
    auto operator<=>(const PPDSelection&) const = default;
};
/// What is forbidden together: two selections or more, of different options.
using PPDConflict = std::vector<PPDSelection>;

/// The constraints of one PPD file. Reads the file once; an object is for one thread at a time.
class PPDConstraints {
public:
    /// Null, with a one-line reason, when the file is no PPD file.
    [[nodiscard]] static std::unique_ptr<PPDConstraints> Open(const std::string& path,
                                                              std::string* reason);
    virtual ~PPDConstraints() = default;

    /// Every conflict, each once, of what prints with these choices: the last of each option, and
    /// for one that is not among them the file's default. Options and choices that the file does
    /// not know are passed over, and so are conflicts of installed parts alone, which no job ends.
    [[nodiscard]] virtual std::vector<PPDConflict> conflicts(
        const std::vector<PPDSelection>& chosen) const = 0;
    /// The fewest changes after which there is no conflict; none of an option that is in no
    /// conflict, none of what is installed in the printer, none of the options `kept`. Empty
    /// without a conflict; nothing when no changes end them all.
    [[nodiscard]] virtual std::optional<std::vector<PPDSelection>> resolution(
        const std::vector<PPDSelection>& chosen, const std::vector<std::string>& kept) const = 0;
    [[nodiscard]] std::optional<std::vector<PPDSelection>> resolution(
        const std::vector<PPDSelection>& chosen) const {
        return resolution(chosen, {});
    }
};

#pragma GCC visibility pop
