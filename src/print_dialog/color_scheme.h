// Light or dark colours: as asked for, or as the desktop prefers.
#pragma once

#include <QObject>
#include <QPalette>
#include <QVariant>
#include <string>

class QDBusPendingCallWatcher;
class QDBusVariant;

namespace kalmo {

class ColorScheme final : public QObject {
    Q_OBJECT
public:
    /// `scheme` is "light" or "dark", which holds at once, or "auto".
    explicit ColorScheme(const std::string& scheme);

    /// With "auto": asks the desktop portal and follows its changes. Without a session bus, a
    /// portal or a preference the colours stay as they are. Does not wait.
    void followDesktop();

private Q_SLOTS:
    void takeSetting(const QString& group, const QString& key, const QDBusVariant& value);

private:
    void takeAnswer(QDBusPendingCallWatcher* call);
    void take(const QVariant& preference);

    bool automatic_;
    QPalette own_;  // the desktop theme's palette
};

}  // namespace kalmo
