// The Print dialog's own texts by key, in the user's language. For every thread.
#pragma once

#include <QString>
#include <QStringList>
#include <initializer_list>
#include <string>
#include <vector>

namespace kalmo {

/// The languages that there are tables of texts in, the user's first ones first; English is last
/// at the latest. Whatever else speaks in the window takes the first.
[[nodiscard]] std::vector<std::string> WindowLanguages();

/// From Window.strings (resources/kalmo-print/xx.lproj, compiled in): requested language, its base
/// language, English, then the key itself. %@ are filled with `arguments` in order.
[[nodiscard]] QString WindowText(const char* key, const QStringList& arguments = {});

/// The same for the messages of the dialog's core, in UTF-8. Leaves errno as it is.
[[nodiscard]] std::string HostText(const char* key,
                                   std::initializer_list<std::string> arguments = {});

}  // namespace kalmo
