#include "print_dialog/pane_survey.h"

#include <QTimer>

#include "print_dialog/print_server.h"
#include "printing/ppd_papers.h"
#include "settings/manufacturer.h"

namespace kalmo {
namespace {

constexpr const char* kUnknown = "unknown, ";

bool IsDecided(const std::string& pane) { return !pane.starts_with(kUnknown); }

}  // namespace

std::string PaneOf(const PrinterDescription& queue) {
    if (!queue.error.empty()) return kUnknown + queue.error;
    if (!queue.note.empty()) return "no, " + queue.note;
    if (queue.ppdPath.empty()) return "no, it has no PPD file";
    std::string reason;
    const auto ppd = ReadPPDDescription(queue.ppdPath, &reason);
    if (!ppd) return "no, its PPD file cannot be read: " + reason;
    return ppd->manufacturer == kManufacturer ? "yes" : "no, not a Kalmo printer";
}

std::vector<std::string> PaneSurvey::run(int milliseconds) {
    QTimer::singleShot(milliseconds, &loop_, &QEventLoop::quit);
    busy_ = kAskers;
    // From the loop: whoever has nothing to ask may end it.
    for (Printers& asker : askers_) {
        QTimer::singleShot(0, &loop_, [this, &asker] { askNext(asker); });
    }
    loop_.exec();
    std::vector<std::string> answers;
    for (const PrinterEntry& queue : queues_) answers.push_back(answerFor(queue));
    return answers;
}

void PaneSurvey::askNext(Printers& asker) {
    while (next_ < queues_.size() && isKnown(queues_[next_])) ++next_;
    if (next_ == queues_.size()) {
        if (--busy_ == 0) loop_.quit();
        return;
    }
    const PrinterEntry& queue = queues_[next_++];
    asker.describe(queue.name, [this, &queue, &asker](const PrinterDescription& description) {
        take(queue, description);
        askNext(asker);
    });
}

void PaneSurvey::take(const PrinterEntry& queue, const PrinterDescription& description) {
    const std::string pane = PaneOf(description);
    byName_[queue.name] = pane;
    // The server names no model where it cannot read the PPD file.
    const bool speaksForModel =
        !queue.makeAndModel.empty() && !queue.isElsewhere && description.note.empty();
    if (IsDecided(pane) && speaksForModel) byModel_[queue.makeAndModel] = pane;
}

bool PaneSurvey::isKnown(const PrinterEntry& queue) const {
    return !queue.isElsewhere && byModel_.contains(queue.makeAndModel);
}

std::string PaneSurvey::answerFor(const PrinterEntry& queue) const {
    const auto own = byName_.find(queue.name);
    const bool decided = own != byName_.end() && IsDecided(own->second);
    if (!decided && isKnown(queue)) return byModel_.at(queue.makeAndModel);
    return own != byName_.end() ? own->second : kUnknown + SilentServerLine();
}

}  // namespace kalmo
