// A view whose owner draws it, in answer to its draw event.
#pragma once

#include <QWidget>

namespace toolbox {

class PictureControl final : public QWidget {
    Q_OBJECT

public:
    explicit PictureControl(QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace toolbox
