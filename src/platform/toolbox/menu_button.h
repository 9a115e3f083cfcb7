// A button that opens a menu; the menu's items send commands.
#pragma once

#include <QMenu>
#include <QPushButton>
#include <QStyleOptionComboBox>

#include "toolbox/menu_model.h"

namespace toolbox {

class MenuButton final : public QPushButton {
    Q_OBJECT

public:
    explicit MenuButton(QWidget* parent = nullptr);

    /// What opens, as the button's owner keeps it.
    [[nodiscard]] Menu& items() const { return *items_; }
    /// Sends the item's command, if it has one.
    void choose(const QModelIndex& item);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    /// It looks like the popups that it stands among.
    [[nodiscard]] QStyleOptionComboBox look() const;
    /// Asks for the contents, then shows them as they stand.
    void fill();

    Menu* const items_;
    QMenu* const shown_;  // made anew from the items at each opening
};

}  // namespace toolbox
