// What the system's own text files say. The texts are passed in; nothing is read here.
#pragma once

#include <string>
#include <string_view>

#pragma GCC visibility push(default)

/// PRETTY_HOSTNAME of a machine-info file (man 5 machine-info), quotes and backslashes resolved;
/// empty when it is not set.
[[nodiscard]] std::string PrettyHostName(std::string_view machineInfo);
/// The interface of the usable IPv4 default route with the lowest metric in the kernel's route
/// table
/// (/proc/net/route); never the loopback. Empty without such a route.
[[nodiscard]] std::string DefaultRouteInterface(std::string_view routeTable);

#pragma GCC visibility pop
