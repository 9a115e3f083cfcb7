// A view whose owner draws it, in answer to its draw event, and may let it be dragged.
#pragma once

#include <QWidget>

#include "toolbox/events.h"

namespace toolbox {

class PictureControl final : public QWidget {
    Q_OBJECT

public:
    explicit PictureControl(QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    /// What has become of the last press. Lost: it ended while its event was still on the way.
    enum class Hold { none, asked, lost, held };

    void letGo();
    OSStatus send(UInt32 kind);

    Hold hold_ = Hold::none;
    QPoint place_;  // of the pointer
};

}  // namespace toolbox
