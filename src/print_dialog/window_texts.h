// The Print dialog's own texts by key, in the user's language.
#pragma once

#include <QString>
#include <QStringList>

namespace kalmo {

/// From Window.strings (resources/kalmo-print/xx.lproj, compiled in): requested language, its base
/// language, English, then the key itself. %@ are filled with `arguments` in order.
[[nodiscard]] QString WindowText(const char* key, const QStringList& arguments = {});

}  // namespace kalmo
