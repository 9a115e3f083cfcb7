#include "system/presence.h"

#include <cstdio>

#include "kalmo/statuses.h"

namespace {

/// One line, whatever stands in the text: runs of blanks and control characters become one space.
std::string OnOneLine(const std::string& text) {
    std::string line;
    for (const char c : text) {
        const bool blank = static_cast<unsigned char>(c) <= ' ' || c == 0x7f;
        if (!blank) {
            line += c;
        } else if (!line.empty() && line.back() != ' ') {
            line += ' ';
        }
    }
    if (line.ends_with(' ')) line.pop_back();
    return line;
}

void WriteLine(CFStringRef header, CFStringRef message) {
    std::string line = OnOneLine(CFStringToUTF8(header));
    const std::string rest = OnOneLine(CFStringToUTF8(message));
    if (!line.empty() && !rest.empty()) line += ": ";
    line += rest + '\n';
    std::fputs(line.c_str(), stderr);
}

bool RefuseAlert(const AlertTexts& texts) {
    WriteLine(texts.header, texts.message);
    return texts.alternateDestroys;
}

OSStatus NoHelpPage(CFStringRef, CFStringRef) { return fnfErr; }

Presence& Installed() {
    static auto* const presence = new Presence(UnattendedPresence());
    return *presence;
}

}  // namespace

const Presence& CurrentPresence() { return Installed(); }

void InstallPresence(Presence presence) { Installed() = std::move(presence); }

Presence UnattendedPresence() {
    return {.notice = WriteLine,
            .alert = RefuseAlert,
            .beep = [] {},
            .helpPage = NoHelpPage,
            .modalLoopsRun = false};
}
