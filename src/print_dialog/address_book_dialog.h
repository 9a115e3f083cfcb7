// Where the user's address book is, what is found there, and which card in it is the user's own.
#pragma once

#include <QBoxLayout>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <array>
#include <memory>
#include <stop_token>

#include "print_dialog/background.h"
#include "print_dialog/my_card_choice.h"

namespace kalmo {

/// OK marks the card, keeps the settings for later starts and lets them hold at once; where one of
/// that fails the dialog says so and stays. Address books are read and written on workers.
class AddressBookDialog final : public QDialog {
    Q_OBJECT
public:
    explicit AddressBookDialog(QWidget* parent = nullptr);
    ~AddressBookDialog() override;

    void accept() override;

private:
    QWidget* createPlace();
    QLayout* createFolderRow();
    QWidget* createCard();
    void addSource(QBoxLayout* column, contacts::Source source, const QString& text,
                   const QString& note);
    void showSettings(const contacts::Settings& settings);

    [[nodiscard]] contacts::Settings settings() const;
    void settingsChanged();
    void askForFolder();
    void load();
    void showContents(const std::shared_ptr<const AddressBookContents>& contents);
    /// Lines that wrap are known to the layout only once they are there.
    void makeRoom();
    void finish(const contacts::Settings& stored);
    /// Of what OK did; `about` is where the user can do something about it.
    void showFault(const std::string& fault, QWidget& about);
    void clearFault();

    std::array<QRadioButton*, 3> sources_{};  // by contacts::Source
    QLineEdit* folder_ = nullptr;
    QPushButton* browse_ = nullptr;
    QLabel* found_ = nullptr;
    MyCardChoice* card_ = nullptr;
    QLabel* fault_ = nullptr;
    QPushButton* ok_ = nullptr;

    QTimer pause_;  // between a change and the loading: each letter of a folder's name is one
    std::stop_source loading_;
    std::shared_ptr<const AddressBookContents> contents_;  // null until they are loaded
    AnswerBox answers_;  // last: goes first, so that no answer meets half an object
};

}  // namespace kalmo
