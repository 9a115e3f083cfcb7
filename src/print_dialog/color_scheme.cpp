#include "print_dialog/color_scheme.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

#include "print_dialog/widgets.h"

namespace kalmo {
namespace {

constexpr auto kPortal = "org.freedesktop.portal.Desktop";
constexpr auto kPath = "/org/freedesktop/portal/desktop";
constexpr auto kSettings = "org.freedesktop.portal.Settings";
constexpr auto kGroup = "org.freedesktop.appearance";
constexpr auto kKey = "color-scheme";
constexpr uint kPrefersDark = 1;

struct PaletteRow {
    QPalette::ColorRole role;
    QRgb light, dark;
};
const PaletteRow kColors[] = {
    {QPalette::Window, 0xf3f5f7, 0x2c3238},
    {QPalette::WindowText, 0x1d252c, 0xe6eaed},
    {QPalette::Base, 0xffffff, 0x171a1d},
    {QPalette::AlternateBase, 0xf3f5f7, 0x2c3238},
    {QPalette::Text, 0x1d252c, 0xe6eaed},
    {QPalette::Button, 0xf0f2f4, 0x3a434b},
    {QPalette::ButtonText, 0x1d252c, 0xe6eaed},
    {QPalette::BrightText, 0xffffff, 0xffffff},
    {QPalette::ToolTipBase, 0x1d252c, 0xe6eaed},
    {QPalette::ToolTipText, 0xffffff, 0x171a1d},
    {QPalette::PlaceholderText, 0x7a858f, 0x8b969f},
    {QPalette::Highlight, 0x2f7fd6, 0x2f7fd6},
    {QPalette::HighlightedText, 0xffffff, 0xffffff},
    {QPalette::Link, 0x1d62ab, 0x7db4ef},
    {QPalette::LinkVisited, 0x6b4aa0, 0xb79bea},
};
constexpr PaletteRow kDisabled[] = {
    {QPalette::WindowText, 0x98a2ab, 0x76818a},
    {QPalette::Text, 0x98a2ab, 0x76818a},
    {QPalette::ButtonText, 0x98a2ab, 0x76818a},
    {QPalette::Highlight, 0xc7d2dc, 0x46515a},
};

QPalette MakePalette(bool dark) {
    const auto color = [dark](const PaletteRow& row) {
        return QColor(dark ? row.dark : row.light);
    };
    const auto& window = kColors[0];
    const auto& button = kColors[5];
    QPalette palette(color(button), color(window));
    for (const PaletteRow& row : kColors) palette.setColor(row.role, color(row));
    for (const PaletteRow& row : kDisabled) {
        palette.setColor(QPalette::Disabled, row.role, color(row));
    }
    return palette;
}

}  // namespace

ColorScheme::ColorScheme(const std::string& scheme)
    : automatic_(scheme == "auto"), own_(QApplication::palette()) {
    if (!automatic_) QApplication::setPalette(MakePalette(scheme == "dark"));
}

void ColorScheme::followDesktop() {
    auto bus = QDBusConnection::sessionBus();
    if (!automatic_ || !bus.isConnected()) return;
    bus.connect(kPortal, kPath, kSettings, "SettingChanged", this,
                SLOT(takeSetting(QString, QString, QDBusVariant)));
    auto question = QDBusMessage::createMethodCall(kPortal, kPath, kSettings, "Read");
    question << kGroup << kKey;
    auto* call = new QDBusPendingCallWatcher(bus.asyncCall(question), this);
    connect(call, &QDBusPendingCallWatcher::finished, this, &ColorScheme::takeAnswer);
}

void ColorScheme::takeAnswer(QDBusPendingCallWatcher* call) {
    const QDBusPendingReply<QDBusVariant> answer = *call;
    call->deleteLater();
    if (answer.isError()) return;
    // Read wraps the value once more than SettingChanged does.
    const QVariant value = answer.value().variant();
    take(value.canConvert<QDBusVariant>() ? value.value<QDBusVariant>().variant() : value);
}

void ColorScheme::takeSetting(const QString& group, const QString& key, const QDBusVariant& value) {
    if (group == kGroup && key == kKey) take(value.variant());
}

void ColorScheme::take(const QVariant& preference) {
    const bool dark = preference.toUInt() == kPrefersDark;
    // A theme that already fits knows its desktop's colours better.
    const QPalette wanted = dark == IsDark(own_) ? own_ : MakePalette(dark);
    if (wanted != QApplication::palette()) QApplication::setPalette(wanted);
}

}  // namespace kalmo
