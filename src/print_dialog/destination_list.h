// The control in the form that shows the chosen printer. Its own list, for the keyboard, holds the
// few that people use; pressed, it drops down all of them.
#pragma once

#include <QComboBox>
#include <memory>

#include "print_dialog/destination_popup.h"

namespace kalmo {

class DestinationList final : public QComboBox {
    Q_OBJECT
public:
    explicit DestinationList(QWidget* parent);

    /// As DestinationModel::setQueues; then the folder is chosen.
    void setQueues(std::vector<Destination> queues, const PrinterMarks& marks);
    [[nodiscard]] const std::vector<Destination>& destinations() const {
        return model_.destinations();
    }
    /// An index in destinations().
    [[nodiscard]] int current() const { return currentData().toInt(); }
    /// Tells nobody.
    void setCurrent(int destination);

    void showPopup() override;
    void hidePopup() override;

Q_SIGNALS:
    /// All printers are shown.
    void opened();
    void marked(const std::string& queue, bool isFavorite);

private:
    void fill(int current);
    void createPopup();

    DestinationModel model_;
    std::unique_ptr<DestinationPopup> popup_;  // made when it is first needed
};

}  // namespace kalmo
