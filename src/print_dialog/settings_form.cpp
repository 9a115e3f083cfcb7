#include "print_dialog/settings_form.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QIcon>
#include <QLocale>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <algorithm>

#include "print_dialog/color_options.h"
#include "print_dialog/papers.h"
#include "print_dialog/sheet_layout.h"
#include "print_dialog/widgets.h"
#include "print_dialog/window_texts.h"

namespace kalmo {
namespace {

constexpr const char* kInputSlot = "InputSlot";

/// For a queue that says nothing about its papers. A quarter inch stays white.
std::vector<PPDPaper> UsualPapers() {
    return {{"A4", "A4", 595, 842, 18, 18, 577, 824},
            {"Letter", HostText("US Letter"), 612, 792, 18, 18, 594, 774},
            {"A3", "A3", 842, 1191, 18, 18, 824, 1173},
            {"A5", "A5", 420, 595, 18, 18, 402, 577},
            {"Legal", HostText("US Legal"), 612, 1008, 18, 18, 594, 990}};
}

std::string UsualPaper() {
    return QLocale().measurementSystem() == QLocale::MetricSystem ? "A4" : "Letter";
}

void SelectData(QComboBox* popup, const QVariant& data) {
    popup->setCurrentIndex(std::max(0, popup->findData(data)));
}

}  // namespace

SettingsForm::SettingsForm(QWidget* parent)
    : QWidget(parent),
      rows_(new QFormLayout(this)),
      destination_(new DestinationChoice(this)),
      presets_(new PresetChoice(this)) {
    rows_->setContentsMargins(0, 0, 0, 0);
    rows_->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    rows_->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    rows_->setVerticalSpacing(kRowGap);
    rows_->setHorizontalSpacing(8);

    addRow("Printer:", createDestination(), destination_->list());
    addRow("Settings:", createPresets(), presets_->list());
    QLayout* copies = createCopies();
    addRow("Copies:", copies, copies_);
    pages_ = new PagesChoice(this);
    addRow("Pages:", pages_, nullptr);
    papers_ = addPopup("Paper:", &JobSettings::paper);
    addRow("Orientation:", createOrientation(), nullptr);
    colors_ = addPopup("Color:", &JobSettings::colorChoice);
    sources_ = addPopup("Paper source:", &JobSettings::inputSlot);
    createPagesPerSheet();

    connect(pages_, &PagesChoice::changed, this, [this] {
        if (const auto pages = pages_->pages()) settings_.pages = *pages;
        Q_EMIT changed();
    });
    setPrinter({}, {});
}

template <typename Field>
void SettingsForm::addRow(const char* labelKey, Field* field, QWidget* buddy) {
    auto* label = new QLabel(WindowText(labelKey), this);
    label->setBuddy(buddy);
    rows_->addRow(label, field);
}

QComboBox* SettingsForm::addPopup(const char* labelKey, std::string JobSettings::*value) {
    auto* popup = new QComboBox(this);
    popup->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    popup->setMinimumContentsLength(16);
    addRow(labelKey, popup, popup);
    connect(popup, &QComboBox::activated, this, [this, popup, value] {
        settings_.*value = popup->currentData().toString().toStdString();
        Q_EMIT changed();
    });
    return popup;
}

QLayout* SettingsForm::createDestination() {
    auto* layout = new QVBoxLayout;
    layout->setSpacing(4);
    layout->addWidget(destination_->list());
    layout->addWidget(destination_);
    return layout;
}

QLayout* SettingsForm::createPresets() {
    auto* layout = new QHBoxLayout;
    layout->setSpacing(kRowGap / 2);
    layout->addWidget(presets_->list(), 1);
    layout->addWidget(presets_);
    return layout;
}

QLayout* SettingsForm::createCopies() {
    copies_ = new QSpinBox(this);
    copies_->setRange(1, kMostCopies);
    copies_->setAccelerated(true);
    collate_ = new QCheckBox(WindowText("Collate"), this);
    auto* layout = new QHBoxLayout;
    layout->setSpacing(kRowGap);
    layout->addWidget(copies_);
    layout->addWidget(collate_);
    layout->addStretch();
    connect(copies_, &QSpinBox::valueChanged, this, [this](int copies) {
        settings_.copies = copies;
        collate_->setEnabled(copies > 1);
        Q_EMIT changed();
    });
    connect(collate_, &QCheckBox::toggled, this, [this](bool collate) {
        settings_.collate = collate;
        Q_EMIT changed();
    });
    return layout;
}

QLayout* SettingsForm::createOrientation() {
    portrait_ = new QRadioButton(WindowText("Portrait"), this);
    portrait_->setIcon(QIcon(":/kalmo-print/portrait.svg"));
    landscape_ = new QRadioButton(WindowText("Landscape"), this);
    landscape_->setIcon(QIcon(":/kalmo-print/landscape.svg"));
    // Without a group the form would count the radio buttons of its inner widgets as rivals.
    auto* group = new QButtonGroup(this);
    auto* layout = new QHBoxLayout;
    layout->setSpacing(kRowGap);
    for (QRadioButton* button : {portrait_, landscape_}) {
        button->setIconSize({24, 24});
        button->setAccessibleDescription(WindowText("Orientation:"));
        group->addButton(button);
        layout->addWidget(button);
        connect(button, &QRadioButton::clicked, this, [this] {
            settings_.orientationChosen = true;
            settings_.orientation =
                landscape_->isChecked() ? Orientation::landscape : Orientation::portrait;
            Q_EMIT changed();
        });
    }
    layout->addStretch();
    return layout;
}

void SettingsForm::createPagesPerSheet() {
    pagesPerSheet_ = new QComboBox(this);
    for (const int count : kPagesPerSheet) pagesPerSheet_->addItem(QString::number(count), count);
    addRow("Pages per sheet:", pagesPerSheet_, pagesPerSheet_);
    connect(pagesPerSheet_, &QComboBox::activated, this, [this] {
        settings_.pagesPerSheet = pagesPerSheet_->currentData().toInt();
        Q_EMIT changed();
    });
}

const PPDOptionTexts* SettingsForm::option(std::string_view keyword) const {
    return FindOption(printer_, keyword);
}

void SettingsForm::setPrinter(const PPDDescription& printer, const JobSettings& settings) {
    printer_ = printer;
    if (printer_.papers.empty()) {
        printer_.papers = UsualPapers();
        printer_.defaultPaper = UsualPaper();
    }
    settings_ = settings;
    settings_.copies = std::clamp(settings_.copies, 1, kMostCopies);
    const std::string colors = ColorOption(printer_);
    if (settings_.colorOption != colors) settings_.colorChoice.clear();
    settings_.colorOption = colors;
    showSettings();
    Q_EMIT changed();
}

void SettingsForm::takeTicket(const JobSettings& ticket) {
    settings_.copies = ticket.copies;
    settings_.collate = ticket.collate;
    settings_.pagesPerSheet = ticket.pagesPerSheet;
    settings_.orientation = ticket.orientation;
    settings_.orientationChosen = ticket.orientationChosen;
    showSettings();
}

bool SettingsForm::takeChanges(const JobSettings& typed) {
    const JobSettings fresh;
    JobSettings merged = settings_;
    const auto keep = [&](auto JobSettings::*value) {
        if (typed.*value != fresh.*value) merged.*value = typed.*value;
    };
    keep(&JobSettings::copies);
    keep(&JobSettings::collate);
    keep(&JobSettings::pagesPerSheet);
    if (typed.orientationChosen) {
        merged.orientation = typed.orientation;
        merged.orientationChosen = true;
    }
    if (merged == settings_) return false;
    takeTicket(merged);
    return true;
}

void SettingsForm::showSettings() {
    const QSignalBlocker quiet(this);
    fillPapers();
    takeOption(settings_.colorOption.c_str(), colors_, settings_.colorChoice);
    takeOption(kInputSlot, sources_, settings_.inputSlot);
    if (!option(kInputSlot)) settings_.inputSlot.clear();
    collate_->setChecked(settings_.collate);
    copies_->setValue(settings_.copies);
    collate_->setEnabled(settings_.copies > 1);
    pages_->setPages(settings_.pages);
    (settings_.orientation == Orientation::landscape ? landscape_ : portrait_)->setChecked(true);
    SelectData(pagesPerSheet_, settings_.pagesPerSheet);
    settings_.pagesPerSheet = pagesPerSheet_->currentData().toInt();
}

void SettingsForm::fillPapers() {
    papers_->clear();
    const auto add = [this](const PPDPaper& paper) {
        papers_->addItem(QString::fromStdString(paper.text), QString::fromStdString(paper.keyword));
    };
    std::ranges::for_each(printer_.papers, add);
    const auto chosen = FindPaper(printer_, settings_.paper);
    if (!chosen) settings_.paper.clear();
    // A size that a ticket brought.
    if (chosen && papers_->findData(QString::fromStdString(chosen->keyword)) < 0) add(*chosen);
    SelectData(papers_, QString::fromStdString(settings_.paper.empty() ? printer_.defaultPaper
                                                                       : settings_.paper));
}

void SettingsForm::takeOption(const char* keyword, QComboBox* popup, const std::string& choice) {
    popup->clear();
    const PPDOptionTexts* found = option(keyword);
    rows_->setRowVisible(popup, found != nullptr);
    if (!found) return;
    for (const PPDChoiceText& row : found->choices) {
        popup->addItem(QString::fromStdString(row.text), QString::fromStdString(row.keyword));
    }
    SelectData(popup, QString::fromStdString(choice.empty() ? found->defaultChoice : choice));
}

void SettingsForm::setDocument(int pageCount, Orientation orientation) {
    pages_->setPageCount(pageCount);
    if (settings_.orientationChosen || settings_.orientation == orientation) return;
    settings_.orientation = orientation;
    (orientation == Orientation::landscape ? landscape_ : portrait_)->setChecked(true);
    Q_EMIT changed();
}

PPDPaper SettingsForm::paper() const {
    const std::string keyword = papers_->currentData().toString().toStdString();
    return FindPaper(printer_, keyword).value_or(printer_.papers.front());
}

bool SettingsForm::isGrey() const {
    return !settings_.colorOption.empty() &&
           IsGreyChoice(colors_->currentData().toString().toStdString());
}

}  // namespace kalmo
