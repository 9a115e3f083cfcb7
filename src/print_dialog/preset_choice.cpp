#include "print_dialog/preset_choice.h"

#include <QHBoxLayout>
#include <QIcon>
#include <QMenu>
#include <QStyleOptionToolButton>
#include <algorithm>

#include "print_dialog/widgets.h"
#include "print_dialog/window_texts.h"

namespace kalmo {
namespace {

constexpr int kShownLetters = 8;
/// In the place of a file: settings that are stored nowhere.
constexpr const char* kNowhere = "-";

QString FileOf(const Preset& preset) { return QString::fromStdString(preset.file.string()); }

/// Its dots say that there is a menu; the style would draw an arrow over them.
class CommandsButton final : public QToolButton {
public:
    using QToolButton::QToolButton;

protected:
    void initStyleOption(QStyleOptionToolButton* option) const override {
        QToolButton::initStyleOption(option);
        option->features &= ~QStyleOptionToolButton::HasMenu;
    }
};

}  // namespace

PresetChoice::PresetChoice(QWidget* parent)
    : QWidget(parent),
      list_(new QComboBox(parent)),
      defaults_(new QToolButton(this)),
      commands_(new CommandsButton(this)) {
    list_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    list_->setMinimumContentsLength(kShownLetters);
    list_->setPlaceholderText(WindowText("Own settings"));
    defaults_->setIcon(QIcon(":/kalmo-print/defaults.svg"));
    defaults_->setAccessibleName(WindowText("Back to defaults"));
    defaults_->setToolTip(defaults_->accessibleName());
    defaults_->setFocusPolicy(Qt::StrongFocus);
    connect(defaults_, &QToolButton::clicked, this, &PresetChoice::printersDefaultsChosen);
    createMenu();
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(4);
    row->addWidget(defaults_);
    row->addWidget(commands_);
    fill({});
    connect(list_, &QComboBox::activated, this, [this] {
        const QString file = list_->currentData().toString();
        const auto chosen = std::ranges::find(rows_, file, FileOf);
        if (chosen == rows_.end()) return Q_EMIT printersDefaultsChosen();
        Q_EMIT presetChosen(Preset(*chosen));
    });
}

void PresetChoice::createMenu() {
    commands_->setText(QStringLiteral("…"));
    commands_->setAccessibleName(WindowText("Preset commands"));
    commands_->setToolTip(commands_->accessibleName());
    commands_->setPopupMode(QToolButton::InstantPopup);
    commands_->setFocusPolicy(Qt::StrongFocus);
    auto* menu = new QMenu(commands_);
    commands_->setMenu(menu);
    connect(menu->addAction(WindowText("Save preset...")), &QAction::triggered, this,
            &PresetChoice::saveWanted);
    rename_ = menu->addAction(WindowText("Rename preset..."));
    delete_ = menu->addAction(WindowText("Delete preset..."));
    connect(rename_, &QAction::triggered, this, [this] { Q_EMIT renameWanted(*ownPreset()); });
    connect(delete_, &QAction::triggered, this, [this] { Q_EMIT deleteWanted(*ownPreset()); });
}

void PresetChoice::load(const std::string& queue) {
    StartWorker([this, queue, load = ++loads_, post = answers_.post()] {
        const Stored stored{.last = queue.empty() ? std::nullopt : LastSettings(queue),
                            .start = StartSettings(),
                            .presets = ListPresets()};
        post([=, this] {
            if (load == loads_) fill(stored);
        });
    });
}

void PresetChoice::add(const QString& text, const Preset& preset) {
    rows_.push_back(preset);
    list_->addItem(text, FileOf(preset));
}

void PresetChoice::fill(const Stored& stored) {
    list_->clear();
    rows_.clear();
    presets_ = stored.presets;
    list_->addItem(WindowText("Printer's defaults"), QString());
    if (stored.last) add(WindowText("Last used settings"), *stored.last);
    if (stored.start) add(WindowText("Site's settings"), *stored.start);
    if (!presets_.empty()) list_->insertSeparator(list_->count());
    for (const Preset& preset : presets_) add(QString::fromStdString(preset.name), preset);
    select(shown_);
}

void PresetChoice::show(const std::optional<Preset>& preset) {
    select(preset ? FileOf(*preset) : QString(kNowhere));
}

void PresetChoice::showPrintersDefaults() { select({}); }

void PresetChoice::select(const QString& file) {
    shown_ = file;
    int row = 0;
    while (row < list_->count() && list_->itemData(row).toString() != file) ++row;
    list_->setCurrentIndex(row < list_->count() ? row : -1);
    const bool isOwn = ownPreset().has_value();
    rename_->setEnabled(isOwn);
    delete_->setEnabled(isOwn);
}

std::optional<Preset> PresetChoice::ownPreset() const {
    const auto row = std::ranges::find(presets_, shown_, FileOf);
    if (row == presets_.end() || row->readOnly) return {};
    return *row;
}

}  // namespace kalmo
