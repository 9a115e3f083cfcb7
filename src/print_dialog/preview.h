// The document as it will be printed, sheet by sheet.
#pragma once

#include <QLabel>
#include <QPushButton>
#include <QToolButton>
#include <QWidget>

#include "print_dialog/document.h"
#include "print_dialog/sheet_layout.h"
#include "print_dialog/sheet_view.h"

namespace kalmo {

class Preview final : public QWidget {
    Q_OBJECT
public:
    /// `document` is lent and outlives the preview.
    explicit Preview(Document& document, QWidget* parent = nullptr);

    /// How the sheets look. The sheet shown stays, where there still is one of its number.
    void setSheets(const PPDPaper& paper, const JobSettings& settings, bool grey);

    [[nodiscard]] int sheetCount() const { return layout_.sheetCount(); }
    /// From 0.
    [[nodiscard]] int currentSheet() const { return current_; }
    void turnTo(int sheet);

Q_SIGNALS:
    /// The user wants to choose a document.
    void openRequested();
    /// The picture of the sheet shown is there.
    void painted();

protected:
    void changeEvent(QEvent* event) override;

private:
    QWidget* createTurner();
    void pointArrows();
    void turnBy(int sheets);
    void showDocument();
    void showSheet();
    void requestPicture();
    /// What stands in the place of a sheet; empty where there are sheets, or soon will be.
    [[nodiscard]] QString message() const;
    void describe();

    Document& document_;
    PPDPaper paper_;
    JobSettings settings_;
    bool grey_ = false;
    SheetLayout layout_;
    int current_ = 0;
    int request_ = 0;

    SheetView* view_;
    QToolButton* back_ = nullptr;
    QToolButton* forward_ = nullptr;
    QLabel* position_ = nullptr;
    QPushButton* open_;
};

}  // namespace kalmo
