// Named settings: ticket files (0600) without what belongs to one job or one person alone.
//
// The user's are in ~/.config/kalmo-print/presets, the site's, read-only, in the folder "presets"
// of SiteFolders(). NAME is the file's name without ".plist".
#pragma once

#include <filesystem>
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

/// By name, as the user's language sorts; of two with one name the user's own.
[[nodiscard]] std::vector<Preset> ListPresets();

/// What a preset holds of the host's tickets: without passcode, recipients, dialing prefix, card
/// number, job name, nonce and client information. A ticket file's bytes; empty on failure.
[[nodiscard]] std::string PresetBytes(const PrintJobHost& host);

Outcome SavePreset(const std::string& name, const std::string& bytes);
Outcome RenamePreset(const std::string& from, const std::string& to);
Outcome DeletePreset(const std::string& name);

/// Replaces the settings of the host's tickets by the preset's; a living pane shows them by one
/// Sync towards it. What is in a preset's secret places is not taken over. `notApplied`: what this
/// printer does not have, "OPTION: CHOICE" in words. Fails, changing nothing, when the file is
/// none.
Outcome ApplyPreset(PrintJobHost& host, const Preset& preset, std::vector<std::string>* notApplied);
/// Back to what the printer itself would do; a living pane shows it.
void ApplyPrintersDefaults(PrintJobHost& host);

}  // namespace kalmo
