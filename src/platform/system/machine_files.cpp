#include "system/machine_files.h"

#include <net/route.h>

#include <optional>
#include <sstream>

namespace {

std::string_view Trimmed(std::string_view text) {
    constexpr std::string_view kBlanks = " \t\r";
    const auto first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

/// A value as a shell would take it, without its substitutions.
std::string Unquoted(std::string_view value) {
    std::string plain;
    char quote = '\0';
    for (std::size_t i = 0; i < value.size(); ++i) {
        const char c = value[i];
        if (quote ? c == quote : c == '"' || c == '\'') {
            quote = quote ? '\0' : c;
        } else if (c == '\\' && quote != '\'' && i + 1 < value.size()) {
            plain += value[++i];
        } else {
            plain += c;
        }
    }
    return plain;
}

struct DefaultRoute {
    std::string interface;
    unsigned long metric = 0;
};

/// Columns: interface, destination, gateway, flags (all hexadecimal), references, uses, metric,
/// mask.
std::optional<DefaultRoute> ParseDefaultRoute(const std::string& line) {
    std::istringstream columns(line);
    DefaultRoute route;
    unsigned long destination = 0, gateway = 0, flags = 0, references = 0, uses = 0, mask = 0;
    columns >> route.interface >> std::hex >> destination >> gateway >> flags >> std::dec >>
        references >> uses >> route.metric >> std::hex >> mask;
    const bool usable = (flags & RTF_UP) && !(flags & RTF_REJECT);
    if (!columns || destination != 0 || mask != 0 || !usable || route.interface == "lo") return {};
    return route;
}

}  // namespace

std::string PrettyHostName(std::string_view machineInfo) {
    constexpr std::string_view kAssignment = "PRETTY_HOSTNAME=";
    std::istringstream lines{std::string(machineInfo)};
    std::string name;
    // As in a shell, a later assignment wins.
    for (std::string line; std::getline(lines, line);) {
        const std::string_view text = Trimmed(line);
        if (text.starts_with(kAssignment)) name = Unquoted(text.substr(kAssignment.size()));
    }
    return name;
}

std::string DefaultRouteInterface(std::string_view routeTable) {
    std::istringstream lines{std::string(routeTable)};
    std::optional<DefaultRoute> best;
    for (std::string line; std::getline(lines, line);) {
        const auto route = ParseDefaultRoute(line);
        if (route && (!best || route->metric < best->metric)) best = route;
    }
    return best ? best->interface : "";
}
