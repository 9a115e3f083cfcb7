// A menu of what stands beside the print settings: which further panels the printer's pane offers,
// and the user's address book.
#pragma once

#include <QAction>
#include <QPushButton>
#include <string>
#include <vector>

namespace kalmo {

class ExtrasButton final : public QPushButton {
    Q_OBJECT
public:
    explicit ExtrasButton(QWidget* parent = nullptr);

    /// Names as in --panels; the others are not chosen.
    void setPanels(const std::vector<std::string>& panels);
    /// In the menu's order.
    [[nodiscard]] std::vector<std::string> panels() const;
    [[nodiscard]] QSize sizeHint() const override;

Q_SIGNALS:
    /// The user has chosen other panels.
    void chosen();

private:
    void addPanel(const std::string& panel, const QString& text);

    struct Item {
        std::string panel;
        QAction* action;
    };
    std::vector<Item> items_;
};

}  // namespace kalmo
