// Where the job goes: a queue of the print server, or a folder.
#pragma once

#include <QLabel>
#include <QPushButton>
#include <QWidget>
#include <filesystem>
#include <string>
#include <vector>

#include "print_dialog/destination_list.h"

namespace kalmo {

/// The list of printers, and below it what belongs to the choice. The list ends with "Save to
/// folder", which is always there.
class DestinationChoice final : public QWidget {
    Q_OBJECT
public:
    explicit DestinationChoice(QWidget* parent = nullptr);

    /// As ArrangedDestinations has them. The choice stays when it is still among them, else it is
    /// the folder. `notice` (why there are no queues) shows below when it does not say anything
    /// about the choice itself.
    void setQueues(std::vector<Destination> queues, const QString& notice);
    /// No effect when there is no such queue; empty: "Save to folder".
    void chooseQueue(const std::string& queue);
    void setFolder(const std::filesystem::path& folder);
    /// Whose settings a document in the folder gets.
    void setFolderNote(const QString& note);
    /// What is going on with the chosen one; empty: its own status.
    void setStatus(const QString& status);

    [[nodiscard]] const Destination& current() const;
    [[nodiscard]] const std::vector<Destination>& destinations() const {
        return list_->destinations();
    }
    [[nodiscard]] const std::filesystem::path& folder() const { return folder_; }
    /// Stands beside this widget, in its parent, where a label can name it.
    [[nodiscard]] QComboBox* list() const { return list_; }

Q_SIGNALS:
    /// The user has chosen another one.
    void chosen();
    /// The user looks at all there are.
    void opened();

private:
    void remember(const std::string& queue, bool isFavorite);
    void showCurrent();
    void askForFolder();

    QString notice_, status_, folderNote_;
    std::filesystem::path folder_;
    DestinationList* list_;
    QLabel* note_;
    QWidget* folderRow_;
    QLabel* folderName_;
    QPushButton* chooseFolder_;
};

}  // namespace kalmo
