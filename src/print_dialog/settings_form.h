// The dialog's own settings, one labelled row each. What a row offers comes from the PPD file.
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QRadioButton>
#include <QSpinBox>
#include <QWidget>

#include "print_dialog/destination_choice.h"
#include "print_dialog/job_settings.h"
#include "print_dialog/pages_choice.h"
#include "print_dialog/preset_choice.h"
#include "printing/ppd_papers.h"

namespace kalmo {

class SettingsForm final : public QWidget {
    Q_OBJECT
public:
    explicit SettingsForm(QWidget* parent = nullptr);

    [[nodiscard]] DestinationChoice* destination() const { return destination_; }
    [[nodiscard]] PresetChoice* presets() const { return presets_; }

    /// Another printer: rows for what it has, `settings` where it offers them. Without papers, a
    /// few usual ones.
    void setPrinter(const PPDDescription& printer, const JobSettings& settings);
    /// Another document. Its orientation counts until the user chooses one.
    void setDocument(int pageCount, Orientation orientation);
    /// Takes over what a ticket says without regard to the printer: copies, collating, pages on a
    /// sheet, and the orientation with who chose it.
    void takeTicket(const JobSettings& ticket);
    /// The same of what in `typed` is not as in a new dialog. Whether there is anything.
    bool takeChanges(const JobSettings& typed);

    /// Copies, pages, paper and so on as chosen; the last valid pages while a range is none.
    [[nodiscard]] const JobSettings& settings() const { return settings_; }
    [[nodiscard]] bool isValid() const { return pages_->pages().has_value(); }
    [[nodiscard]] PPDPaper paper() const;
    /// Black and white is chosen.
    [[nodiscard]] bool isGrey() const;

Q_SIGNALS:
    /// Any setting or its validity.
    void changed();

private:
    QComboBox* addPopup(const char* labelKey, std::string JobSettings::*value);
    /// `field` is a widget or a layout; what a label names lies beside it, in this form.
    template <typename Field>
    void addRow(const char* labelKey, Field* field, QWidget* buddy);
    QLayout* createDestination();
    QLayout* createPresets();
    QLayout* createCopies();
    QLayout* createOrientation();
    void createPagesPerSheet();
    void showSettings();
    void fillPapers();
    void takeOption(const char* keyword, QComboBox* popup, const std::string& choice);
    [[nodiscard]] const PPDOptionTexts* option(std::string_view keyword) const;

    PPDDescription printer_;
    JobSettings settings_;

    QFormLayout* rows_;
    DestinationChoice* destination_;
    PresetChoice* presets_;
    QSpinBox* copies_ = nullptr;
    QCheckBox* collate_ = nullptr;
    PagesChoice* pages_ = nullptr;
    QComboBox* papers_ = nullptr;
    QRadioButton* portrait_ = nullptr;
    QRadioButton* landscape_ = nullptr;
    QComboBox* colors_ = nullptr;
    QComboBox* sources_ = nullptr;
    QComboBox* pagesPerSheet_ = nullptr;
};

}  // namespace kalmo
