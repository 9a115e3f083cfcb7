// What the window does with stored settings: begins with them, applies what the user chooses,
// saves, renames and deletes, and remembers the last ones of each printer.
#pragma once

#include <QObject>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "print_dialog/command_line.h"
#include "print_dialog/foreign_settings.h"
#include "print_dialog/preset_choice.h"
#include "print_dialog/print_job_host.h"

namespace kalmo {

class PresetCommands final : public QObject {
    Q_OBJECT
public:
    /// Runs `act` once no dialog of the pane is open.
    using WhenPaneIsFree = std::function<void(const std::function<void()>& act)>;

    /// All are the window's, lent as long as this lives.
    PresetCommands(PrintJobHost& host, PresetChoice& row, WhenPaneIsFree whenPaneIsFree);

    /// Takes --ticket, --preset and --ppd into account. Fails, with a line, when there is no such
    /// preset.
    Outcome begin(const CommandLine& commandLine);
    /// The window is there to be used: looks for what can be chosen.
    void ready();
    /// Another printer comes; the tickets hold what the pane showed.
    void printerLeaves();
    /// Printer and pane are new. The first one's settings are those of the command line, of its
    /// last use, or of the site; those of a later one likewise. What the user has chosen stays: a
    /// preset is applied anew, and of other choices those that the printer has.
    void printerCame();
    /// The user has chosen something before there was a printer.
    void settingsChosen() { basis_ = Basis::own; }
    /// The tickets are those of the job that was just printed.
    void jobPrinted() const;

Q_SIGNALS:
    /// The host's settings are others, and the pane shows them.
    void applied();
    /// Of the settings, what this printer does not have, or why there are none.
    void told(const QString& line);
    /// Before settings are saved: the host is to know what the window shows.
    void settingsWanted();

private:
    /// What a printer does not have is told where the user has named the settings.
    enum class Tell { all, faults };
    void apply(const Preset& preset, Tell what);
    void choose(const Preset& preset);
    void tellLostChoices();
    void rememberSettings();
    void applyPrintersDefaults();
    void save();
    void rename(const Preset& preset);
    void remove(const Preset& preset);
    /// The settings are those of this own preset.
    void showSaved(const std::string& name);
    void load();
    /// Empty for a PPD file that was named in place of a queue.
    [[nodiscard]] std::string queue() const;
    [[nodiscard]] std::optional<Preset> firstSettings() const;
    [[nodiscard]] QWidget* window() const { return row_.window(); }

    PrintJobHost& host_;
    PresetChoice& row_;
    const WhenPaneIsFree whenPaneIsFree_;
    /// Where the settings come from that hold now.
    enum class Basis {
        first,     // the printer's last use, the site, or the printer
        preset,    // what the user has named or chosen
        defaults,  // the printer's, chosen by the user
        own,       // the user's alone
    };
    std::string ppd_;
    Basis basis_ = Basis::first;
    Preset preset_;                     // that of the basis
    std::string fingerprint_;           // of the settings as they came from there
    std::vector<NamedChoice> choices_;  // of the user's, as the printer before had them
};

}  // namespace kalmo
