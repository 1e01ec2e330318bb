// SPDX-License-Identifier: MIT
#include "host/linux/DesktopGlobalDefaults.h"

#include "notes/NamedColor.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QGuiApplication>
#include <QPalette>

namespace {

const QString portal = QStringLiteral("org.freedesktop.portal.Desktop");
const QString portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString settings = QStringLiteral("org.freedesktop.portal.Settings");
const QString appearanceGroup = QStringLiteral("org.freedesktop.appearance");
const QString colorSchemeKey = QStringLiteral("color-scheme");

} // namespace

DesktopGlobalDefaults::DesktopGlobalDefaults(const QDBusConnection& bus, QObject* parent)
    : GlobalDefaults(parent), m_paletteIsDark(isDarkAppearance(QGuiApplication::palette()))
{
    QDBusConnection connection(bus);
    if (!connection.isConnected()) {
        return;
    }
    qRegisterMetaType<QDBusVariant>(); // a slot is connected only when the types of its arguments are known
    // From any sender: to hear the portal alone, the bus would have to be asked, and waited for, who the portal is.
    connection.connect({}, portalPath, settings, QStringLiteral("SettingChanged"), this,
                       SLOT(settingChanged(QString, QString, QDBusVariant)));
    QDBusMessage question = QDBusMessage::createMethodCall(portal, portalPath, settings, QStringLiteral("Read"));
    question << appearanceGroup << colorSchemeKey;
    connection.callWithCallback(question, this, SLOT(portalAnswered(QDBusMessage)));
}

std::optional<QString> DesktopGlobalDefaults::stringForKey(const QString& key) const
{
    if (key == QStringLiteral("AppleInterfaceStyle") && isDark()) {
        return QStringLiteral("Dark");
    }
    return std::nullopt;
}

void DesktopGlobalDefaults::takeInAnswer()
{
    QCoreApplication::sendPostedEvents(this);
}

void DesktopGlobalDefaults::portalAnswered(const QDBusMessage& reply)
{
    setColorScheme(reply.arguments().value(0));
}

void DesktopGlobalDefaults::settingChanged(const QString& group, const QString& key, const QDBusVariant& value)
{
    if (group == appearanceGroup && key == colorSchemeKey) {
        setColorScheme(value.variant());
    }
}

bool DesktopGlobalDefaults::isDark() const
{
    return m_colorScheme == ColorScheme::NoPreference ? m_paletteIsDark : m_colorScheme == ColorScheme::Dark;
}

void DesktopGlobalDefaults::setColorScheme(const QVariant& value)
{
    QVariant scheme = value;
    while (scheme.metaType() == QMetaType::fromType<QDBusVariant>()) { // the portal wraps its answer more than once
        scheme = scheme.value<QDBusVariant>().variant();
    }
    const bool wasDark = isDark();
    switch (const auto known = static_cast<ColorScheme>(scheme.toUInt())) {
    case ColorScheme::Dark:
    case ColorScheme::Light:
        m_colorScheme = known;
        break;
    default:
        m_colorScheme = ColorScheme::NoPreference;
    }
    if (isDark() != wasDark) {
        Q_EMIT didChange();
    }
}
