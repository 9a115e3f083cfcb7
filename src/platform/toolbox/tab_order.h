// The order in which Tab visits controls, kept when they move to another parent.
#pragma once

#include <QPointer>
#include <QWidget>
#include <vector>

namespace toolbox {

class TabOrder final {
public:
    /// What Tab visits in `branch`, and `branch` itself.
    explicit TabOrder(QWidget& branch);
    /// Puts them, in that order, behind everything else that Tab visits in `parent`.
    void restoreIn(QWidget& parent) const;

private:
    std::vector<QPointer<QWidget>> order_;
};

}  // namespace toolbox
