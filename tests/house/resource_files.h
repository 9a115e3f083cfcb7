// The tree's own files, as the tests of this folder read them.
#pragma once

#include <QXmlStreamReader>
#include <regex>

#include "support/qt_test.h"

namespace kalmo::test {

inline const std::filesystem::path kSources = std::filesystem::path(KALMO_SOURCE_DIR) / "src";
inline const std::filesystem::path kResources =
    std::filesystem::path(KALMO_SOURCE_DIR) / "resources/KalmoFeatures.plugin/Contents/Resources";

/// The languages of the product, English among them: those that the bundle has a folder for.
inline std::vector<std::string> Languages() {
    std::vector<std::string> languages;
    for (const auto& entry : std::filesystem::directory_iterator(kResources)) {
        if (entry.path().extension() == ".lproj") languages.push_back(entry.path().stem());
    }
    std::ranges::sort(languages);
    return languages;
}

/// Calls for each file below `folder` with one of the endings (".cpp").
inline void ForEachFile(const std::filesystem::path& folder, const std::set<std::string>& endings,
                        const std::function<void(const std::filesystem::path&)>& visit) {
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        if (entry.is_regular_file() && endings.contains(entry.path().extension().string()))
            visit(entry.path());
    }
}

/// The first group of every match.
inline std::vector<std::string> Matches(const std::string& text, const std::regex& pattern) {
    std::vector<std::string> found;
    for (std::sregex_iterator match(text.begin(), text.end(), pattern), end; match != end;
         ++match) {
        found.push_back((*match)[1]);
    }
    return found;
}

/// The windows of an interface file: the widgets directly inside its root.
inline QStringList WindowNames(const std::filesystem::path& file) {
    QFile xml(QString::fromStdString(file.string()));
    if (!xml.open(QIODevice::ReadOnly)) return {};
    QXmlStreamReader reader(&xml);
    QStringList names;
    int depth = 0;
    while (!reader.atEnd()) {
        const auto token = reader.readNext();
        if (reader.name() != QLatin1String("widget")) continue;
        if (token == QXmlStreamReader::EndElement) --depth;
        if (token == QXmlStreamReader::StartElement && ++depth == 2)
            names.append(reader.attributes().value("name").toString());
    }
    return names;
}

}  // namespace kalmo::test
