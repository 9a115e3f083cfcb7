#include "print_dialog/color_scheme.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <array>
#include <utility>

#include "print_dialog/contrast_style.h"
#include "print_dialog/widgets.h"

namespace kalmo {
namespace {

constexpr auto kPortal = "org.freedesktop.portal.Desktop";
constexpr auto kPath = "/org/freedesktop/portal/desktop";
constexpr auto kSettings = "org.freedesktop.portal.Settings";
constexpr auto kGroup = "org.freedesktop.appearance";
constexpr auto kSchemeKey = "color-scheme";
constexpr auto kContrastKey = "contrast";
constexpr uint kPrefersDark = 1;
constexpr uint kPrefersContrast = 1;

/// A colour in each scheme, in the order of Scheme.
struct PaletteRow {
    QPalette::ColorRole role;
    std::array<QRgb, 4> colors;
};
constexpr PaletteRow kColors[] = {
    {QPalette::Window, {0xf3f5f7, 0x2c3238, 0xffffff, 0x000000}},
    {QPalette::WindowText, {0x1d252c, 0xe6eaed, 0x000000, 0xffffff}},
    {QPalette::Base, {0xffffff, 0x171a1d, 0xffffff, 0x000000}},
    {QPalette::AlternateBase, {0xf3f5f7, 0x2c3238, 0xffffff, 0x000000}},
    {QPalette::Text, {0x1d252c, 0xe6eaed, 0x000000, 0xffffff}},
    {QPalette::Button, {0xf0f2f4, 0x3a434b, 0xffffff, 0x000000}},
    {QPalette::ButtonText, {0x1d252c, 0xe6eaed, 0x000000, 0xffffff}},
    {QPalette::BrightText, {0xffffff, 0xffffff, 0xffffff, 0xffffff}},
    {QPalette::ToolTipBase, {0x1d252c, 0xe6eaed, 0x000000, 0xffffff}},
    {QPalette::ToolTipText, {0xffffff, 0x171a1d, 0xffffff, 0x000000}},
    {QPalette::PlaceholderText, {0x6b757e, 0x8b969f, 0x4a4a4a, 0xc4c4c4}},
    {QPalette::Highlight, {0x2f7fd6, 0x2f7fd6, 0x00309c, 0xffe14d}},
    {QPalette::HighlightedText, {0xffffff, 0xffffff, 0xffffff, 0x000000}},
    {QPalette::Link, {0x1d62ab, 0x7db4ef, 0x00309c, 0x8fc7ff}},
    {QPalette::LinkVisited, {0x6b4aa0, 0xb79bea, 0x5a1a8c, 0xd9b3ff}},
};
constexpr PaletteRow kDisabled[] = {
    {QPalette::WindowText, {0x98a2ab, 0x76818a, 0x5e5e5e, 0xa8a8a8}},
    {QPalette::Text, {0x98a2ab, 0x76818a, 0x5e5e5e, 0xa8a8a8}},
    {QPalette::ButtonText, {0x98a2ab, 0x76818a, 0x5e5e5e, 0xa8a8a8}},
    {QPalette::Highlight, {0xc7d2dc, 0x46515a, 0xc4c4c4, 0x4a4a4a}},
};

constexpr std::pair<const char*, Scheme> kNames[] = {{"light", Scheme::light},
                                                     {"dark", Scheme::dark},
                                                     {"contrast", Scheme::contrast},
                                                     {"dark-contrast", Scheme::darkContrast}};

bool HasContrast(Scheme scheme) {
    return scheme == Scheme::contrast || scheme == Scheme::darkContrast;
}

void Use(Scheme scheme) {
    const bool isOutlined = qobject_cast<ContrastStyle*>(QApplication::style()) != nullptr;
    if (HasContrast(scheme) && !isOutlined) QApplication::setStyle(new ContrastStyle);
    if (!HasContrast(scheme) && isOutlined) QApplication::setStyle("Fusion");
    const QPalette palette = PaletteOf(scheme);
    if (palette != QApplication::palette()) QApplication::setPalette(palette);
}

/// Read wraps the value once more than SettingChanged does.
uint NumberIn(const QVariant& answer) {
    const bool isWrapped = answer.canConvert<QDBusVariant>();
    return (isWrapped ? answer.value<QDBusVariant>().variant() : answer).toUInt();
}

}  // namespace

QPalette PaletteOf(Scheme scheme) {
    const auto color = [scheme](const PaletteRow& row) {
        return QColor(row.colors[static_cast<std::size_t>(scheme)]);
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

ColorScheme::ColorScheme(const std::string& scheme)
    : automatic_(scheme == "auto"), own_(QApplication::palette()) {
    for (const auto& [name, named] : kNames)
        if (scheme == name) Use(named);
}

void ColorScheme::followDesktop() {
    auto bus = QDBusConnection::sessionBus();
    if (!automatic_ || !bus.isConnected()) return;
    bus.connect(kPortal, kPath, kSettings, "SettingChanged", this,
                SLOT(takeSetting(QString, QString, QDBusVariant)));
    for (const char* key : {kSchemeKey, kContrastKey}) {
        auto question = QDBusMessage::createMethodCall(kPortal, kPath, kSettings, "Read");
        question << kGroup << key;
        auto* call = new QDBusPendingCallWatcher(bus.asyncCall(question), this);
        connect(call, &QDBusPendingCallWatcher::finished, this, [this, key, call] {
            const QDBusPendingReply<QDBusVariant> answer = *call;
            call->deleteLater();
            if (!answer.isError()) take(key, NumberIn(answer.value().variant()));
        });
    }
}

void ColorScheme::takeSetting(const QString& group, const QString& key, const QDBusVariant& value) {
    if (group == kGroup) take(key, NumberIn(value.variant()));
}

void ColorScheme::take(const QString& key, uint preference) {
    if (key == kSchemeKey) {
        isDark_ = preference == kPrefersDark;
    } else if (key == kContrastKey) {
        hasContrast_ = preference == kPrefersContrast;
    } else {
        return;
    }
    const bool dark = isDark_.value_or(IsDark(own_));
    if (hasContrast_) return Use(dark ? Scheme::darkContrast : Scheme::contrast);
    // A theme that already fits knows its desktop's colours better.
    Use(dark ? Scheme::dark : Scheme::light);
    if (dark == IsDark(own_) && own_ != QApplication::palette()) QApplication::setPalette(own_);
}

}  // namespace kalmo
