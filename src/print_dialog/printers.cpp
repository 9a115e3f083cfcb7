#include "print_dialog/printers.h"

#include <utility>

#include "print_dialog/print_server.h"
#include "print_dialog/printer_requests.h"

namespace kalmo {

template <typename Result>
void Printers::ask(Waiting<Result>& waiting, std::function<Result()> work,
                   std::function<void(const Result&)> answer) {
    const auto generation = ++waiting.generation;
    waiting.answer = std::move(answer);
    StartWorker([this, &waiting, generation, work = std::move(work), post = answers_.post()] {
        post([this, &waiting, generation, result = work()] {
            deliver(waiting, generation, result);
        });
    });
    answers_.later(kServerDeadlineMs, [this, &waiting, generation] {
        Result late;
        late.error = SilentServerLine();
        deliver(waiting, generation, late);
    });
}

template <typename Result>
void Printers::deliver(Waiting<Result>& waiting, std::uint64_t generation, const Result& result) {
    if (generation != waiting.generation || !waiting.answer) return;
    // Taken out first: the answer may ask anew.
    std::exchange(waiting.answer, nullptr)(result);
}

void Printers::list(ListAnswer answer) {
    ask<PrinterList>(list_, FetchPrinterList, std::move(answer));
}

void Printers::describe(const std::string& queue, DescriptionAnswer answer) {
    ask<PrinterDescription>(
        description_, [queue] { return FetchPrinterDescription(queue); }, std::move(answer));
}

}  // namespace kalmo
