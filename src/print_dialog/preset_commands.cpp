#include "print_dialog/preset_commands.h"

#include <utility>

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
            choose(preset);
            apply(preset_, Tell::all);
            rememberSettings();
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
    if (!commandLine.ticket.empty()) {
        settingsChosen();
        row_.show({});
    }
    if (commandLine.preset.empty()) return {};
    Preset named;
    const auto found = FindPreset(commandLine.preset, &named);
    choose(named);
    return found ? CheckPreset(preset_) : found;
}

void PresetCommands::choose(const Preset& preset) {
    basis_ = Basis::preset;
    preset_ = preset;
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
    rememberSettings();
    load();
}

void PresetCommands::rememberSettings() {
    // Towards the tickets alone: nothing of the pane changes.
    host_.sync(kSyncToTicket);
    fingerprint_ = SettingsFingerprint(host_);
}

void PresetCommands::load() { row_.load(queue()); }

void PresetCommands::printerLeaves() {
    if (host_.printer().name.empty()) return;
    if (basis_ != Basis::own && SettingsFingerprint(host_) != fingerprint_) {
        settingsChosen();
        row_.show({});
    }
    choices_ = basis_ == Basis::own ? ChosenInWords(host_) : std::vector<NamedChoice>();
    if (basis_ == Basis::own) return;
    ApplyPrintersDefaults(host_);
    Q_EMIT applied();
}

void PresetCommands::printerCame() {
    if (basis_ == Basis::own) return tellLostChoices();
    if (basis_ == Basis::preset) return apply(Preset(preset_), Tell::all);
    const auto first = basis_ == Basis::first ? firstSettings() : std::nullopt;
    first ? apply(*first, Tell::faults) : row_.showPrintersDefaults();
}

void PresetCommands::tellLostChoices() {
    std::vector<std::string> lost;
    if (host_.description()) {
        for (const NamedChoice& each : std::exchange(choices_, {})) {
            if (host_.ppdChoice(each.choice.option) != each.choice.choice)
                lost.push_back(each.words);
        }
    }
    Q_EMIT told(NotApplied(lost));
}

void PresetCommands::apply(const Preset& preset, Tell what) {
    std::vector<std::string> notApplied;
    const auto outcome = ApplyPreset(host_, preset, &notApplied);
    if (what == Tell::faults) notApplied.clear();
    Q_EMIT told(outcome ? NotApplied(notApplied) : QString::fromStdString(outcome.error));
    if (!outcome) {
        if (basis_ == Basis::preset) settingsChosen();
        return row_.show({});
    }
    row_.show(preset);
    Q_EMIT applied();
}

void PresetCommands::applyPrintersDefaults() {
    ApplyPrintersDefaults(host_);
    basis_ = Basis::defaults;
    row_.showPrintersDefaults();
    Q_EMIT told({});
    Q_EMIT applied();
    rememberSettings();
}

void PresetCommands::save() {
    Q_EMIT settingsWanted();
    host_.sync(kSyncToTicket);
    PresetNameDialog dialog(
        WindowText("Save preset title"), {},
        [bytes = PresetBytes(host_)](const std::string& name) { return SavePreset(name, bytes); },
        window());
    dialog.askBeforeReplacing(row_.presets());
    if (dialog.exec() != QDialog::Accepted) return;
    showSaved(dialog.name());
    fingerprint_ = SettingsFingerprint(host_);
}

void PresetCommands::rename(const Preset& preset) {
    PresetNameDialog dialog(
        WindowText("Rename preset title"), QString::fromStdString(preset.name),
        [preset](const std::string& name) { return RenamePreset(preset, name); }, window());
    if (dialog.exec() == QDialog::Accepted) showSaved(dialog.name());
}

void PresetCommands::showSaved(const std::string& name) {
    Preset saved;
    if (FindPreset(name, &saved)) {
        choose(saved);
        row_.show(saved);
    }
    load();
}

void PresetCommands::remove(const Preset& preset) {
    const QString question = WindowText("Delete preset?", {QString::fromStdString(preset.name)});
    if (!AskToDestroy(window(), question, WindowText("Delete"))) return;
    const auto deleted = DeletePreset(preset);
    if (deleted && basis_ == Basis::preset && preset_ == preset) settingsChosen();
    Q_EMIT told(QString::fromStdString(deleted.error));
    load();
}

void PresetCommands::jobPrinted() const {
    if (queue().empty()) return;
    const auto kept = RememberLastSettings(queue(), LastSettingsBytes(host_));
    if (!kept) PrintMessage(kept.error);
}

}  // namespace kalmo
