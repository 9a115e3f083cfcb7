// All pages, or those of a typed range that is checked while it is typed.
#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QWidget>

#include "print_dialog/job_settings.h"

namespace kalmo {

class PagesChoice final : public QWidget {
    Q_OBJECT
public:
    explicit PagesChoice(QWidget* parent = nullptr);

    /// Ranges are checked against so many pages; 0: not known yet.
    void setPageCount(int pageCount);
    /// Empty: all.
    void setPages(std::vector<PageRange> pages);
    /// Nothing while the typed range is none.
    [[nodiscard]] std::optional<std::vector<PageRange>> pages() const;

Q_SIGNALS:
    void changed();

private:
    void check();
    void tell(bool wrong);

    int pageCount_ = 0;
    QRadioButton* all_;
    QRadioButton* range_;
    QLineEdit* text_;
    QLabel* message_;
};

}  // namespace kalmo
