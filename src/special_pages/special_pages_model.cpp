#include "special_pages/special_pages_model.h"

#include <utility>

namespace kalmo {
namespace {

template <typename Record>
std::unique_ptr<Record> CloneOf(const std::unique_ptr<Record>& record) {
    return std::unique_ptr<Record>(record ? record->clone() : nullptr);
}

}  // namespace

bool SpecialPagesModel::canUndo() const {
    return before.front || before.back || before.inserts || before.exceptions;
}

void SaveUndoState(SpecialPagesModel* model) {
    const SpecialPages& now = model->now;
    model->before = {CloneOf(now.front), CloneOf(now.back), CloneOf(now.inserts),
                     CloneOf(now.exceptions)};
}

void PerformUndo(SpecialPagesModel* model) {
    // Both lists are kept whenever anything is.
    if (!model->before.inserts || !model->before.exceptions) return;
    model->now = std::exchange(model->before, {});
}

}  // namespace kalmo
