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
    /// Keys that go from item to item, letters too, do so in the opened list: to pass over an item
    /// must not choose it, for a choice may open a dialog.
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
};

}  // namespace toolbox
