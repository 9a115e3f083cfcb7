// The phrases of a summary, in the user's language.
#pragma once

#include <string>
#include <vector>

#include "print_dialog/job_contents.h"
#include "print_dialog/job_settings.h"
#include "print_dialog/sheet_plan.h"

namespace kalmo {

/// With a comma between; empty ones are left out.
[[nodiscard]] std::string JoinedPhrases(const std::vector<std::string>& phrases);
/// "Paper: A4".
[[nodiscard]] std::string NamedPhrase(const std::string& name, const std::string& phrase);

/// "8 pages", "pages 1-3 of 8".
[[nodiscard]] std::string DocumentPages(const std::vector<PageRange>& chosen, int pageCount);
/// "Pages 1-3, 7"; very many ranges are cut short.
[[nodiscard]] std::string PhraseOfPages(const std::vector<PageRange>& pages);
[[nodiscard]] std::string CopiesPhrase(const JobSettings& settings);
/// "5 a copy, 15 in all".
[[nodiscard]] std::string SheetsPhrase(const SheetPlan& plan);
[[nodiscard]] std::string SidesPhrase(PrintedSides sides);
/// What is printed on it; `sheet` is null where there is no plan.
[[nodiscard]] std::string CoverPhrase(const PlanCover& cover, const PlannedSheet* sheet);
/// "2 sheets after page 3".
[[nodiscard]] std::string InsertPhrase(const PlanInsert& insert);
/// "Pages 5-8: 1-sided, Blue"; empty where nothing changes. `paper` is empty for the job's own.
[[nodiscard]] std::string ChangePhrase(const std::vector<PageRange>& pages,
                                       const PageChange& change, const std::string& paper);
/// "Secure print, passcode set". Never the passcode, nor who receives a fax.
[[nodiscard]] std::string JobTypePhrase(const JobContents& contents);
[[nodiscard]] std::string ExtraSheetsPhrase(const JobContents& contents);
/// Which notes go with the job.
[[nodiscard]] std::string NotesPhrase(const JobContents& contents);

}  // namespace kalmo
