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
constexpr const char* kPrinterKey = "printer";
constexpr const char* kWindowSizeKey = "windowSize";
constexpr const char* kSourceKey = "addressBook/source";
constexpr const char* kFolderKey = "addressBook/folder";

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

}  // namespace

std::vector<std::string> RememberedPanels() {
    const QSettings file(File(), QSettings::IniFormat);
    std::vector<std::string> panels;
    for (const QString& name : file.value(kPanelsKey).toStringList()) {
        if (PanelInterfaceName(name.toStdString())) panels.push_back(name.toStdString());
    }
    return panels;
}

Outcome RememberPanels(const std::vector<std::string>& panels) {
    QStringList names;
    for (const std::string& panel : panels) names.append(QString::fromStdString(panel));
    if (Store({{kPanelsKey, names}})) return {};
    return {HostText("Panels not remembered", {File().toStdString()})};
}

std::string RememberedPrinter() {
    return QSettings(File(), QSettings::IniFormat).value(kPrinterKey).toString().toStdString();
}

void RememberPrinter(const std::string& queue) {
    Store({{kPrinterKey, QString::fromStdString(queue)}});
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

}  // namespace kalmo
