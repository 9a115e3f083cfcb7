// The order in which Tab visits controls, kept when they move to another parent.
#pragma once

#include <QPointer>
#include <QWidget>
#include <vector>

#pragma GCC visibility push(default)

namespace toolbox {

class TabOrder final {
public:
    /// Of `branch` and everything in it.
    explicit TabOrder(QWidget& branch);
    /// Puts those that stand in the window of `parent` now, in that order, behind everything else
    /// in `parent`.
    void restoreIn(QWidget& parent) const;

private:
    std::vector<QPointer<QWidget>> order_;
};

}  // namespace toolbox

#pragma GCC visibility pop
