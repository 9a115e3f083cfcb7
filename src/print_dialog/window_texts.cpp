#include "print_dialog/window_texts.h"

#include <QFile>
#include <vector>

#include "foundation/bundle.h"
#include "foundation/object.h"
#include "foundation/strings_table.h"

namespace kalmo {
namespace {

std::vector<StringsTable> ReadTables() {
    std::vector<std::string> languages;
    for (const std::string& language : PreferredLanguages()) {
        languages.push_back(language);
        languages.push_back(language.substr(0, language.find('-')));
    }
    std::vector<StringsTable> tables;
    for (const std::string& language : languages) {
        QFile file(QString(":/kalmo-print/%1.lproj/Window.strings").arg(language.c_str()));
        if (file.open(QIODevice::ReadOnly)) {
            tables.push_back(ReadStringsTable(file.readAll().toStdString()));
        }
    }
    return tables;
}

std::string LookUp(const std::string& key) {
    static const std::vector<StringsTable> tables = ReadTables();
    for (const StringsTable& table : tables) {
        if (const auto found = table.texts.find(key); found != table.texts.end()) {
            return found->second;
        }
    }
    return key;
}

QString Filled(const std::string& format, const QStringList& arguments) {
    std::vector<Owned<CFStringRef>> values;
    std::vector<CFTypeRef> pointers;
    for (const QString& argument : arguments) {
        values.push_back(Owned<CFStringRef>::Adopt(CFStringCreateFromUTF8(argument.toStdString())));
        pointers.push_back(values.back());
    }
    const auto pattern = Owned<CFStringRef>::Adopt(CFStringCreateFromUTF8(format));
    const auto text = Owned<CFStringRef>::Adopt(CFStringCreateWithFormatAndValues(
        kCFAllocatorDefault, pattern, pointers.data(), static_cast<CFIndex>(pointers.size())));
    return QString::fromStdString(CFStringToUTF8(text));
}

}  // namespace

QString WindowText(const char* key, const QStringList& arguments) {
    const std::string text = LookUp(key);
    return arguments.isEmpty() ? QString::fromStdString(text) : Filled(text, arguments);
}

}  // namespace kalmo
