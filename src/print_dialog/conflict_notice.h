// The band that says, before a job is sent, which choices the printer cannot do together.
#pragma once

#include <QFrame>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <functional>
#include <vector>

#include "print_dialog/conflicts.h"

namespace kalmo {

/// Hidden while there is nothing to say. Its first button ends the conflict, and then undoes that.
class ConflictNotice final : public QFrame {
    Q_OBJECT
public:
    /// `whenFree` runs what it is given once the pane may be changed.
    ConflictNotice(PrintJobHost& host, std::function<void(const std::function<void()>&)> whenFree,
                   QWidget* parent);

    /// Looks at the tickets, after a Sync towards them. False: the band is shown, with the focus on
    /// its first button.
    [[nodiscard]] bool approve() { return approve(ConflictReport()); }
    /// The same, but for what `accepted` told of.
    [[nodiscard]] bool approve(const ConflictReport& accepted);
    void clear();

Q_SIGNALS:
    /// The window's own settings are to follow the tickets.
    void ticketsChanged();
    /// The conflict has ended.
    void solved();
    /// In spite of what `told` says.
    void printAnyway(const kalmo::ConflictReport& told);

private:
    void change();
    void undo();
    void showReport();
    void showChanged();
    using Buttons = QList<QPushButton*>;
    struct Message {
        QStyle::StandardPixmap icon;
        QString heading;
        QStringList lines;
        Buttons buttons;  // the first gets the focus
    };
    void show(const Message& message);

    PrintJobHost& host_;
    ConflictReport report_;
    std::vector<PPDSelection> before_;  // not empty: changed, and can be undone

    QLabel* icon_;
    QLabel* heading_;
    QLabel* lines_;
    QPushButton* change_;
    QPushButton* undo_;
    QPushButton* anyway_;
};

}  // namespace kalmo
