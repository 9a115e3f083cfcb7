// Where the printer's own pane stands, or a line that says why there is none.
#pragma once

#include <QLabel>
#include <QWidget>

#include "kalmo/types.h"
#include "print_dialog/screen_scroll.h"

namespace kalmo {

class PaneView final : public QWidget {
    Q_OBJECT
public:
    explicit PaneView(QWidget* parent = nullptr);

    /// An empty embedder in place of the one before, for the next pane. The pane before must have
    /// ended.
    [[nodiscard]] ControlRef createEmbedder();
    /// Shows the embedder, at least so large.
    void showPane(int width, int height);
    void showReason(const QString& reason);

private:
    ScreenScroll* scroll_;
    QWidget* embedder_ = nullptr;
    QLabel* reason_;
};

}  // namespace kalmo
