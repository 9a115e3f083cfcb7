// For runs without a window, which have nothing else to do until an answer comes.
#pragma once

#include <QEventLoop>

namespace kalmo {

/// Calls `ask` with a function that takes the answer, and waits until that is called, which must be
/// through the event loop.
template <typename Result, typename Ask>
Result WaitForAnswer(Ask&& ask) {
    QEventLoop loop;
    Result result;
    ask([&](const Result& answer) {
        result = answer;
        loop.quit();
    });
    loop.exec();
    return result;
}

}  // namespace kalmo
