#include "print_dialog/preset_commands.h"

#include "print_dialog/preset_name_dialog.h"
#include "print_dialog/window_texts.h"

namespace kalmo {
namespace {

QString NotApplied(const std::vector<std::string>& choices) {
    QStringList words;
    for (const std::string& choice : choices) words << QString::fromStdString(choice);
    return words.isEmpty() ? QString() : WindowText("Not on this printer", {words.join("; ")});
}

}  // namespace

PresetCommands::PresetCommands(PrintJobHost& host, PresetChoice& row, WhenPaneIsFree whenPaneIsFree)
    : host_(host), row_(row), whenPaneIsFree_(std::move(whenPaneIsFree)) {
    connect(&row_, &PresetChoice::presetChosen, this, [this](const Preset& preset) {
        whenPaneIsFree_([=, this] {
            ownSettings_ = true;
            apply(preset, Tell::all);
        });
    });
    connect(&row_, &PresetChoice::printersDefaultsChosen, this,
            [this] { whenPaneIsFree_([this] { applyPrintersDefaults(); }); });
    connect(&row_, &PresetChoice::saveWanted, this,
            [this] { whenPaneIsFree_([this] { save(); }); });
    connect(&row_, &PresetChoice::renameWanted, this, &PresetCommands::rename);
    connect(&row_, &PresetChoice::deleteWanted, this, &PresetCommands::remove);
}

Outcome PresetCommands::begin(const CommandLine& commandLine) {
    ppd_ = commandLine.ppd;
    ownSettings_ = !commandLine.ticket.empty();
    if (ownSettings_) row_.show({});
    if (commandLine.preset.empty()) return {};
    named_.emplace();
    const auto found = FindPreset(commandLine.preset, &*named_);
    return found ? CheckPreset(*named_) : found;
}

std::string PresetCommands::queue() const {
    const HostPrinter& printer = host_.printer();
    return !ppd_.empty() && printer.ppdPath == ppd_ ? std::string() : printer.name;
}

std::optional<Preset> PresetCommands::firstSettings() const {
    auto last = queue().empty() ? std::nullopt : LastSettings(queue());
    return last ? last : StartSettings();
}

void PresetCommands::ready() {
    if (!ownSettings_) {
        // Towards the tickets alone: nothing of the pane changes.
        host_.sync(kSyncToTicket);
        fingerprint_ = SettingsFingerprint(host_);
    }
    load();
}

void PresetCommands::load() { row_.load(queue()); }

void PresetCommands::printerLeaves() {
    if (ownSettings_ || host_.printer().name.empty()) return;
    ownSettings_ = SettingsFingerprint(host_) != fingerprint_;
    if (ownSettings_) return;
    ApplyPrintersDefaults(host_);
    Q_EMIT applied();
}

void PresetCommands::printerCame() {
    if (named_) {
        ownSettings_ = true;
        apply(*std::exchange(named_, std::nullopt), Tell::all);
    } else if (!ownSettings_) {
        const auto first = firstSettings();
        first ? apply(*first, Tell::faults) : row_.showPrintersDefaults();
    }
}

void PresetCommands::apply(const Preset& preset, Tell what) {
    std::vector<std::string> notApplied;
    const auto outcome = ApplyPreset(host_, preset, &notApplied);
    if (what == Tell::faults) notApplied.clear();
    Q_EMIT told(outcome ? NotApplied(notApplied) : QString::fromStdString(outcome.error));
    if (!outcome) return row_.show({});
    row_.show(preset);
    Q_EMIT applied();
}

void PresetCommands::applyPrintersDefaults() {
    ApplyPrintersDefaults(host_);
    ownSettings_ = true;
    row_.showPrintersDefaults();
    Q_EMIT told({});
    Q_EMIT applied();
}

void PresetCommands::save() {
    Q_EMIT settingsWanted();
    host_.sync(kSyncToTicket);
    PresetNameDialog dialog(
        WindowText("Save preset title"), {},
        [bytes = PresetBytes(host_)](const std::string& name) { return SavePreset(name, bytes); },
        window());
    dialog.askBeforeReplacing(row_.presets());
    if (dialog.exec() == QDialog::Accepted) showSaved(dialog.name());
}

void PresetCommands::rename(const Preset& preset) {
    PresetNameDialog dialog(
        WindowText("Rename preset title"), QString::fromStdString(preset.name),
        [preset](const std::string& name) { return RenamePreset(preset, name); }, window());
    if (dialog.exec() == QDialog::Accepted) showSaved(dialog.name());
}

void PresetCommands::showSaved(const std::string& name) {
    Preset saved;
    if (FindPreset(name, &saved)) row_.show(saved);
    load();
}

void PresetCommands::remove(const Preset& preset) {
    const QString question = WindowText("Delete preset?", {QString::fromStdString(preset.name)});
    if (!AskToDestroy(window(), question, WindowText("Delete"))) return;
    Q_EMIT told(QString::fromStdString(DeletePreset(preset).error));
    load();
}

void PresetCommands::jobPrinted() const {
    if (queue().empty()) return;
    const auto kept = RememberLastSettings(queue(), LastSettingsBytes(host_));
    if (!kept) PrintMessage(kept.error);
}

}  // namespace kalmo
