// Named settings: ticket files (0600) without what belongs to one job or one person alone.
//
// The user's are in ~/.config/kalmo-print/presets, the site's, read-only, in the folder "presets"
// of SiteFolders(). NAME is the file's name without ".plist", with "%" and two hexadecimal digits
// for a byte that a file's name cannot hold. Of the same kind are the settings that a printer was
// last used with, and those that a site gives to who has not used it yet.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "print_dialog/print_job_host.h"

namespace kalmo {

struct Preset {
    std::string name;
    std::filesystem::path file;
    bool readOnly = false;  // the site's
    bool operator==(const Preset&) const = default;
};

/// By name, as the user's language sorts; of two with one name the user's own. Any thread.
[[nodiscard]] std::vector<Preset> ListPresets();
/// The one of that name; fails with a line that names all there are.
Outcome FindPreset(const std::string& name, Preset* found);
/// Fails where settings cannot be saved under this name: blank, or too long for a file.
Outcome CheckPresetName(const std::string& name);

/// What a preset holds of the host's tickets: without passcode, recipients, dialing prefix, card
/// number, job name, nonce and client information; with the orientation where it was chosen. A
/// ticket file's bytes; empty on failure.
[[nodiscard]] std::string PresetBytes(const PrintJobHost& host);
/// The same for the printer's next job: without number of copies, orientation, kind of job, fax
/// options and messages.
[[nodiscard]] std::string LastSettingsBytes(const PrintJobHost& host);

/// Replaces the user's own of that name. The folder is the user's alone.
Outcome SavePreset(const std::string& name, const std::string& bytes);
/// Only the user's own. Fails when there is another of the name `to`.
Outcome RenamePreset(const Preset& preset, const std::string& to);
Outcome DeletePreset(const Preset& preset);
/// Fails with a line that names the file: not there, no ordinary file.
Outcome ReadPresetFile(const std::filesystem::path& file, std::string* bytes);

/// Equal as long as nobody has chosen anything, whatever the document's orientation. What the pane
/// shows is in the tickets.
[[nodiscard]] std::string SettingsFingerprint(const PrintJobHost& host);

/// What this queue was last used with.
[[nodiscard]] std::optional<Preset> LastSettings(const std::string& queue);
Outcome RememberLastSettings(const std::string& queue, const std::string& bytes);
/// The first "start.plist" of SiteFolders().
[[nodiscard]] std::optional<Preset> StartSettings();

/// Whether it can be applied. Fails with a line that names the file.
Outcome CheckPreset(const Preset& preset);
/// Replaces the settings of the host's tickets by the preset's; a living pane shows them by one
/// Sync towards it. What is in a preset's secret places is not taken over; a time that a job or fax
/// waits for becomes the next such time of day; without an orientation there the host's stays.
/// `notApplied`: what this printer does not have, "OPTION: CHOICE" in words; nothing while there is
/// no printer. Fails with a line that names the file, changing nothing, when the file is none.
Outcome ApplyPreset(PrintJobHost& host, const Preset& preset, std::vector<std::string>* notApplied);
/// Back to what the printer itself would do; a living pane shows it.
void ApplyPrintersDefaults(PrintJobHost& host);

}  // namespace kalmo
