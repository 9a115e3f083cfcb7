// The list of printers as it drops down: a field to search in, and the rows below it.
#pragma once

#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QListView>

#include "print_dialog/destination_model.h"

namespace kalmo {

/// Up and Down move in the list, Return chooses, Escape closes, Ctrl+D marks a favorite. What is
/// typed goes into the field, which a short list hides until then.
class DestinationPopup final : public QFrame {
    Q_OBJECT
public:
    /// Lent; it must outlive this.
    DestinationPopup(DestinationModel& model, QWidget* parent);

    /// Below `control`, or above it where there is more room. `current`: as in destinations().
    void open(const QWidget& control, int current);
    /// Takes the size that the rows need now.
    void adjust();

Q_SIGNALS:
    /// An index in destinations(). The popup has closed.
    void chosen(int destination);
    /// The user has marked a printer or taken the mark away.
    void marked(const std::string& queue, bool isFavorite);

protected:
    bool eventFilter(QObject* object, QEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    [[nodiscard]] bool pressed(QObject* object, QKeyEvent& key);
    [[nodiscard]] bool pressedInList(QKeyEvent& key);
    [[nodiscard]] bool pressedStar(const QMouseEvent& mouse);
    void search(const QString& typed);
    void moveBy(int rows);
    void standOn(int row);
    void choose(const QModelIndex& index);
    void toggleFavorite(const QModelIndex& index);
    void showMenu(const QContextMenuEvent& event);
    [[nodiscard]] QSize wantedSize() const;

    DestinationModel& model_;
    QLineEdit* search_;
    QLabel* nothing_;
    QListView* list_;
    QRect control_;  // on the screen
};

}  // namespace kalmo
