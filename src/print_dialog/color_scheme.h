// Light or dark colours, with high contrast or without: as asked for, or as the desktop prefers.
#pragma once

#include <QObject>
#include <QPalette>
#include <optional>
#include <string>

class QDBusVariant;

namespace kalmo {

enum class Scheme { light, dark, contrast, darkContrast };
[[nodiscard]] QPalette PaletteOf(Scheme scheme);

class ColorScheme final : public QObject {
    Q_OBJECT
public:
    /// `scheme` is "light", "dark", "contrast" or "dark-contrast", which holds at once, or "auto".
    explicit ColorScheme(const std::string& scheme);

    /// With "auto": asks the desktop portal and follows its changes. Without a session bus, a
    /// portal or a preference the colours stay as they are. Does not wait.
    void followDesktop();

private Q_SLOTS:
    void takeSetting(const QString& group, const QString& key, const QDBusVariant& value);

private:
    void take(const QString& key, uint preference);

    bool automatic_;
    std::optional<bool> isDark_;  // what the desktop prefers
    bool hasContrast_ = false;
    QPalette own_;  // the desktop theme's palette
};

}  // namespace kalmo
