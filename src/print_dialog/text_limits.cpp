#include "print_dialog/text_limits.h"

#include <QString>

namespace kalmo {
namespace {

constexpr char16_t kNonJoiner = 0x200C, kJoiner = 0x200D, kLineEnd = 0x2028, kParagraphEnd = 0x2029;

bool IsShown(QChar character) {
    if (character == kNonJoiner || character == kJoiner || character.isSurrogate()) return true;
    return character.isPrint() && character != kLineEnd && character != kParagraphEnd;
}

}  // namespace

std::string WithoutControls(const std::string& text) {
    QString shown = QString::fromStdString(text);
    for (QChar& character : shown) {
        if (!IsShown(character)) character = ' ';
    }
    return shown.toStdString();
}

}  // namespace kalmo
