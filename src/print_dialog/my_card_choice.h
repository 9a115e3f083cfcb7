// Which person of the address book the user is: a field that narrows a list of names.
#pragma once

#include <QAbstractListModel>
#include <QLineEdit>
#include <QListView>
#include <QWidget>
#include <memory>
#include <string>
#include <vector>

#include "print_dialog/address_book_contents.h"

namespace kalmo {

/// "None", then the people whose name holds the searched text, regardless of case.
class PeopleModel final : public QAbstractListModel {
    Q_OBJECT
public:
    using QAbstractListModel::QAbstractListModel;

    /// Null: nobody.
    void setContents(std::shared_ptr<const AddressBookContents> contents);
    void search(const QString& text);
    /// Empty for None.
    [[nodiscard]] std::string uidAt(int row) const;
    /// -1 while that person is not listed.
    [[nodiscard]] int rowOf(const std::string& uid) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

private:
    [[nodiscard]] const ListedPerson& personAt(int row) const;
    void fill();

    std::shared_ptr<const AddressBookContents> contents_;
    std::string searched_;
    std::vector<std::size_t> shown_;  // of the contents' people
};

class MyCardChoice final : public QWidget {
    Q_OBJECT
public:
    explicit MyCardChoice(QWidget* parent = nullptr);

    /// Shows the card that is marked there as the user's own; null: disabled.
    void setContents(std::shared_ptr<const AddressBookContents> contents);
    /// uid of the chosen person; empty for None.
    [[nodiscard]] const std::string& chosen() const { return chosen_; }
    [[nodiscard]] QWidget* list() const { return list_; }

private:
    void search(const QString& text);
    void takeSelection();
    void showChosen();

    QLineEdit* field_;
    PeopleModel* model_;
    QListView* list_;
    std::string chosen_;
};

}  // namespace kalmo
