#include "print_dialog/window_texts.h"

#include <QFile>
#include <cerrno>
#include <vector>

#include "foundation/bundle.h"
#include "foundation/object.h"
#include "foundation/strings_table.h"

namespace kalmo {
namespace {

QString TableOf(const std::string& language) {
    return QString(":/kalmo-print/%1.lproj/Window.strings").arg(language.c_str());
}

std::vector<StringsTable> ReadTables() {
    std::vector<StringsTable> tables;
    for (const std::string& language : WindowLanguages()) {
        QFile file(TableOf(language));
        if (file.open(QIODevice::ReadOnly)) {
            tables.push_back(ReadStringsTable(file.readAll().toStdString()));
        }
    }
    return tables;
}

/// The tables are read once and never destroyed: a worker may outlive main.
std::string LookUp(const std::string& key) {
    static const auto& tables = *new std::vector<StringsTable>(ReadTables());
    for (const StringsTable& table : tables) {
        if (const auto found = table.texts.find(key); found != table.texts.end()) {
            return found->second;
        }
    }
    return key;
}

std::string Filled(const std::string& format, const std::vector<std::string>& arguments) {
    if (arguments.empty()) return format;
    std::vector<Owned<CFStringRef>> values;
    std::vector<CFTypeRef> pointers;
    for (const std::string& argument : arguments) {
        values.push_back(Owned<CFStringRef>::Adopt(CFStringCreateFromUTF8(argument)));
        pointers.push_back(values.back());
    }
    const auto pattern = Owned<CFStringRef>::Adopt(CFStringCreateFromUTF8(format));
    const auto text = Owned<CFStringRef>::Adopt(CFStringCreateWithFormatAndValues(
        kCFAllocatorDefault, pattern, pointers.data(), static_cast<CFIndex>(pointers.size())));
    return CFStringToUTF8(text);
}

}  // namespace

std::vector<std::string> WindowLanguages() {
    std::vector<std::string> languages = PreferredLanguages();
    std::erase_if(languages,
                  [](const auto& language) { return !QFile::exists(TableOf(language)); });
    return languages;
}

QString WindowText(const char* key, const QStringList& arguments) {
    std::vector<std::string> values;
    for (const QString& argument : arguments) values.push_back(argument.toStdString());
    return QString::fromStdString(Filled(LookUp(key), values));
}

std::string HostText(const char* key, std::initializer_list<std::string> arguments) {
    const int number = errno;
    auto text = Filled(LookUp(key), arguments);
    errno = number;
    return text;
}

}  // namespace kalmo
