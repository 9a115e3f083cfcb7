#include "print_dialog/remembered_panels.h"

#include <QSettings>
#include <QStandardPaths>

#include "print_dialog/extension.h"
#include "print_dialog/window_texts.h"

namespace kalmo {
namespace {

constexpr const char* kPanelsKey = "panels";

QString File() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           "/kalmo-print/window.conf";
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
    QSettings file(File(), QSettings::IniFormat);
    file.setValue(kPanelsKey, names);
    file.sync();
    if (file.status() == QSettings::NoError) return {};
    return {HostText("Panels not remembered", {File().toStdString()})};
}

}  // namespace kalmo
