// A user without any plan: clicks, keys and texts by chance, in whatever window is in front.
#pragma once

#include <fstream>
#include <functional>
#include <random>
#include <vector>

#include "support/qt_test.h"

namespace kalmo::test {

/// The same seed does the same as long as the program does. File choosers are never walked in: they
/// can delete what is not the test's.
class Walker final {
public:
    /// `open` brings a window back when none is left. Each action is written to `log` before it is
    /// done, so that the last line tells what a program that died was about to do.
    Walker(unsigned seed, std::function<void()> open, const std::filesystem::path& log);

    /// Returns after so many actions, with all windows closed that had come.
    void walk(int actions);
    /// How often each kind of window was in front.
    [[nodiscard]] const std::map<std::string, int>& visits() const { return visits_; }

private:
    void step();
    void act(QWidget& front);
    void leave();

    void click(QWidget& front);
    void press(QWidget& front);
    void type(QWidget& front);
    void choose(QWidget& front);
    void shape(QWidget& front);
    void close(QWidget& front);

    int below(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }
    template <typename Item>
    const Item& any(const std::vector<Item>& items) {
        return items[static_cast<std::size_t>(below(static_cast<int>(items.size())))];
    }
    void note(const QString& action, const QWidget& on);

    std::mt19937 random_;
    std::function<void()> open_;
    std::ofstream log_;
    std::map<std::string, int> visits_;
    int left_ = 0;
    QEventLoop* end_ = nullptr;
};

}  // namespace kalmo::test
