// The papers of a job in the printer's words, read from tickets that may hold anything.
#pragma once

#include <compare>
#include <map>
#include <string>
#include <vector>

#include "foundation/collections.h"
#include "print_dialog/print_job_host.h"

namespace kalmo {

/// What a window can show in a line.
inline constexpr int kLongestText = 120;
/// One line without control characters, cut where it is longer.
[[nodiscard]] std::string ShownText(CFStringRef text);
[[nodiscard]] std::string ShownText(const std::string& text, int longest = kLongestText);

/// The printer's text for a choice, in the user's language; the keyword where it has none. Empty
/// for a choice that leaves it to the printer.
[[nodiscard]] std::string ShownChoice(const PrintJobHost& host, const std::string& option,
                                      const std::string& choice);
/// What prints of an option: the ticket's choice, else the PPD file's default; empty where the
/// printer has no such option.
[[nodiscard]] std::string EffectiveChoice(const PrintJobHost& host, const std::string& option);

struct JobPaper {
    std::string name, size, type, color, source;  // as shown; empty: nothing to say
    std::vector<SInt32> further;                  // not shown, and still another paper
    auto operator<=>(const JobPaper&) const = default;
    [[nodiscard]] std::string text() const;
};

/// The papers that a job needs, by numbers; 0 is the job's own.
class JobPapers final {
public:
    explicit JobPapers(const PrintJobHost& host);
    /// The number of a special page's paper; what `page` (may be null) leaves open is as the job's.
    [[nodiscard]] int numberOf(CFDictionaryRef page);
    [[nodiscard]] const std::vector<JobPaper>& papers() const { return papers_; }

private:
    const PrintJobHost& host_;
    std::vector<JobPaper> papers_;
    std::map<JobPaper, int> numbers_;
};

}  // namespace kalmo
