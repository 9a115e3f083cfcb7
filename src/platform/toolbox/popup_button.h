// A popup: asks for its menu's contents before it opens, and leaves the wheel to the view behind.
#pragma once

#include <QComboBox>

namespace toolbox {

class PopupButton final : public QComboBox {
    Q_OBJECT

public:
    explicit PopupButton(QWidget* parent = nullptr);

    /// Sends kEventMenuPopulate first.
    void showPopup() override;

protected:
    void wheelEvent(QWheelEvent* event) override;
};

}  // namespace toolbox
