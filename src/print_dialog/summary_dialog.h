// The window that tells what will come out of the printer.
#pragma once

#include <QDialog>
#include <QTextEdit>

#include "print_dialog/job_summary.h"

namespace kalmo {

class SummaryDialog final : public QDialog {
    Q_OBJECT
public:
    /// `note` stands above the rows, for what cannot be known; may be empty.
    SummaryDialog(const JobSummary& summary, const QString& note, QWidget* parent);

    /// All that is told; a line each.
    [[nodiscard]] QString text() const { return text_->toPlainText(); }

private:
    QLayout* createButtons();
    void fill(const JobSummary& summary, const QString& note);
    void copy();
    [[nodiscard]] QSize roomForText() const;

    QTextEdit* text_;
};

}  // namespace kalmo
