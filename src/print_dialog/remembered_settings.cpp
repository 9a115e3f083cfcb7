#include "print_dialog/remembered_settings.h"

#include <QSettings>
#include <QStandardPaths>
#include <algorithm>
#include <utility>

#include "print_dialog/extension.h"
#include "print_dialog/window_texts.h"

namespace kalmo {
namespace {

constexpr const char* kPanelsKey = "panels";
constexpr const char* kWindowSizeKey = "windowSize";
constexpr const char* kSourceKey = "addressBook/source";
constexpr const char* kFolderKey = "addressBook/folder";
constexpr const char* kFavoritesKey = "printers/favorites";
constexpr const char* kRecentKey = "printers/recent";

constexpr std::pair<contacts::Source, const char*> kSources[] = {
    {contacts::Source::automatic, "automatic"},
    {contacts::Source::folder, "folder"},
    {contacts::Source::desktop, "desktop"},
};

QString File() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           "/kalmo-print/window.conf";
}

bool Store(const std::vector<std::pair<const char*, QVariant>>& values) {
    QSettings file(File(), QSettings::IniFormat);
    for (const auto& [key, value] : values) file.setValue(key, value);
    file.sync();
    return file.status() == QSettings::NoError;
}

std::vector<std::string> StoredNames(const char* key) {
    const QSettings file(File(), QSettings::IniFormat);
    std::vector<std::string> names;
    for (const QString& name : file.value(key).toStringList()) names.push_back(name.toStdString());
    return names;
}

QStringList ToList(const std::vector<std::string>& names) {
    QStringList list;
    for (const std::string& name : names) list.append(QString::fromStdString(name));
    return list;
}

}  // namespace

std::vector<std::string> RememberedPanels() {
    std::vector<std::string> panels = StoredNames(kPanelsKey);
    std::erase_if(panels, [](const std::string& name) { return !PanelInterfaceName(name); });
    return panels;
}

Outcome RememberPanels(const std::vector<std::string>& panels) {
    if (Store({{kPanelsKey, ToList(panels)}})) return {};
    return {HostText("Panels not remembered", {File().toStdString()})};
}

QSize RememberedWindowSize() {
    const QSize size = QSettings(File(), QSettings::IniFormat).value(kWindowSizeKey).toSize();
    return size.isValid() ? size : QSize();
}

void RememberWindowSize(const QSize& size) { Store({{kWindowSizeKey, size}}); }

contacts::Settings RememberedAddressBook() {
    const QSettings file(File(), QSettings::IniFormat);
    contacts::Settings settings;
    const std::string source = file.value(kSourceKey).toString().toStdString();
    const auto* const row =
        std::ranges::find(kSources, source, &std::pair<contacts::Source, const char*>::second);
    if (row != std::end(kSources)) settings.source = row->first;
    const std::filesystem::path folder = file.value(kFolderKey).toString().toStdString();
    if (folder.is_absolute()) settings.folder = folder;
    return settings;
}

Outcome RememberAddressBook(const contacts::Settings& settings) {
    const auto* const row = std::ranges::find(kSources, settings.source,
                                              &std::pair<contacts::Source, const char*>::first);
    const bool stored = Store({{kSourceKey, QString(row->second)},
                               {kFolderKey, QString::fromStdString(settings.folder.string())}});
    if (stored) return {};
    return {HostText("Address book not remembered", {File().toStdString()})};
}

PrinterMarks RememberedPrinters() {
    PrinterMarks marks{StoredNames(kFavoritesKey), StoredNames(kRecentKey)};
    if (marks.recent.size() > kRecentPrinters) marks.recent.resize(kRecentPrinters);
    return marks;
}

Outcome RememberFavorite(const std::string& queue, bool isFavorite) {
    // Read anew: another window may have added one.
    std::vector<std::string> favorites = StoredNames(kFavoritesKey);
    std::erase(favorites, queue);
    if (isFavorite) favorites.push_back(queue);
    if (Store({{kFavoritesKey, ToList(favorites)}})) return {};
    return {HostText("Printers not remembered", {File().toStdString()})};
}

void RememberPrinter(const std::string& queue) {
    std::vector<std::string> recent = StoredNames(kRecentKey);
    std::erase(recent, queue);
    recent.insert(recent.begin(), queue);
    if (recent.size() > kRecentPrinters) recent.resize(kRecentPrinters);
    Store({{kRecentKey, ToList(recent)}});
}

}  // namespace kalmo
