#include "print_dialog/site_settings.h"

#include <QSettings>
#include <QStringList>
#include <cstdlib>

namespace kalmo {
namespace {

constexpr const char* kFile = "site.conf";
constexpr const char* kUsualFolders = "/etc/xdg";

}  // namespace

std::vector<std::filesystem::path> SiteFolders() {
    const char* named = std::getenv("XDG_CONFIG_DIRS");
    const QString all = QString::fromLocal8Bit(named && *named ? named : kUsualFolders);
    std::vector<std::filesystem::path> folders;
    for (const QString& name : all.split(':', Qt::SkipEmptyParts)) {
        const std::filesystem::path folder(name.toStdString());
        if (folder.is_absolute()) folders.push_back(folder / "kalmo-print");
    }
    return folders;
}

QString SiteText(const char* key) {
    for (const auto& folder : SiteFolders()) {
        const QSettings file(QString::fromStdString((folder / kFile).string()),
                             QSettings::IniFormat);
        if (file.contains(key)) return file.value(key).toString();
    }
    return {};
}

bool SiteFlag(const char* key, bool byDefault) {
    const QString text = SiteText(key).trimmed().toLower();
    if (text.isEmpty()) return byDefault;
    const QStringList yes = {"true", "yes", "on", "1"};
    return yes.contains(text);
}

}  // namespace kalmo
