// SPDX-License-Identifier: MIT
#include "host/linux/DesktopGlobalDefaults.h"

#include "host/bus/BusCall.h"
#include "look/NamedColor.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>
#include <QGuiApplication>
#include <QPalette>

#include <algorithm>
#include <tuple>

namespace {

const QString portal = QStringLiteral("org.freedesktop.portal.Desktop");
const QString portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString settings = QStringLiteral("org.freedesktop.portal.Settings");
const QString appearanceGroup = QStringLiteral("org.freedesktop.appearance");
const QString colorSchemeKey = QStringLiteral("color-scheme");
const QString contrastKey = QStringLiteral("contrast");
const QString interfaceGroup = QStringLiteral("org.gnome.desktop.interface");
const QString fontKey = QStringLiteral("font-name");
const QString scalingKey = QStringLiteral("text-scaling-factor");

constexpr double leastPoints = 4;
constexpr double mostPoints = 72;
constexpr double leastScaling = 0.5;
constexpr double mostScaling = 4;

/// The size at the end of a font's name, as in "Cantarell Bold 11"; nullopt when there is no plausible one.
std::optional<double> pointsOf(const QString& fontName)
{
    bool isNumber = false;
    const double points = fontName.section(u' ', -1).toDouble(&isNumber);
    return isNumber && points >= leastPoints && points <= mostPoints ? std::optional(points) : std::nullopt;
}

/// The factor for text sizes. An X server includes it in its resolution, from which Qt scales the whole window.
double scalingOf(double factor)
{
    const bool isInResolution = QGuiApplication::platformName() == QStringLiteral("xcb");
    return isInResolution || !(factor > 0) ? 1 : std::clamp(factor, leastScaling, mostScaling);
}

/// The value inside an answer of the portal, which may be wrapped several times.
QVariant unwrapped(QVariant value)
{
    while (value.metaType() == QMetaType::fromType<QDBusVariant>()) {
        value = value.value<QDBusVariant>().variant();
    }
    return value;
}

} // namespace

DesktopGlobalDefaults::DesktopGlobalDefaults(const QDBusConnection& bus, QObject* parent)
    : GlobalDefaults(parent), m_palette(QGuiApplication::palette())
{
    m_pause.setSingleShot(true);
    m_pause.setInterval(pause);
    connect(&m_pause, &QTimer::timeout, this, [this] {
        if (m_isChangePending) {
            reportChange();
        }
    });
    QDBusConnection connection(bus);
    if (!connection.isConnected()) {
        return;
    }
    qRegisterMetaType<QDBusVariant>(); // Qt connects a slot only when its argument types are registered
    // From any sender: restricting it to the portal would mean a blocking query for the portal's owner.
    connection.connect({}, portalPath, settings, QStringLiteral("SettingChanged"), this,
                       SLOT(settingChanged(QString, QString, QDBusVariant)));
    ask(connection, appearanceGroup, colorSchemeKey);
    ask(connection, appearanceGroup, contrastKey);
    ask(connection, interfaceGroup, fontKey);
    ask(connection, interfaceGroup, scalingKey);
}

void DesktopGlobalDefaults::ask(const QDBusConnection& connection, const QString& group, const QString& key)
{
    QDBusMessage question = QDBusMessage::createMethodCall(portal, portalPath, settings, QStringLiteral("Read"));
    question << group << key;
    BusCall::send(connection, question, *this, [this, group, key](const QDBusMessage& answer) {
        if (answer.type() == QDBusMessage::ReplyMessage && setSetting(group, key, answer.arguments().value(0))) {
            Q_EMIT didChange();
        }
    });
}

std::optional<QString> DesktopGlobalDefaults::stringForKey(const QString& key) const
{
    if (key == QStringLiteral("AppleInterfaceStyle") && isDark()) {
        return QStringLiteral("Dark");
    }
    return std::nullopt;
}

bool DesktopGlobalDefaults::prefersHighContrast() const
{
    return m_wantsContrast || isHighContrast(m_palette);
}

void DesktopGlobalDefaults::handleArrivedAnswers()
{
    for (QDBusPendingCallWatcher* answer : findChildren<QDBusPendingCallWatcher*>()) {
        QCoreApplication::sendPostedEvents(answer);
    }
}

void DesktopGlobalDefaults::settingChanged(const QString& group, const QString& key, const QDBusVariant& value)
{
    if (setSetting(group, key, value.variant())) {
        reportChange();
    }
}

bool DesktopGlobalDefaults::isDark() const
{
    return m_colorScheme == ColorScheme::NoPreference ? isDarkAppearance(m_palette)
                                                      : m_colorScheme == ColorScheme::Dark;
}

bool DesktopGlobalDefaults::setSetting(const QString& group, const QString& key, const QVariant& value)
{
    const auto state = [this] { return std::tuple(isDark(), prefersHighContrast(), m_text); };
    const auto former = state();
    const QVariant told = unwrapped(value);
    if (group == appearanceGroup && key == colorSchemeKey) {
        setColorScheme(told.toUInt());
    } else if (group == appearanceGroup && key == contrastKey) {
        m_wantsContrast = told.toUInt() == 1;
    } else if (group == interfaceGroup && key == fontKey) {
        m_text.points = pointsOf(told.toString());
    } else if (group == interfaceGroup && key == scalingKey) {
        m_text.scaling = scalingOf(told.toDouble());
    }
    return state() != former;
}

/// Reports a change at once, but further ones within the pause together: any program on the bus can send any number,
/// and each costs the window a new style.
void DesktopGlobalDefaults::reportChange()
{
    m_isChangePending = m_pause.isActive();
    if (!m_isChangePending) {
        m_pause.start();
        Q_EMIT didChange();
    }
}

void DesktopGlobalDefaults::setColorScheme(unsigned value)
{
    const auto known = static_cast<ColorScheme>(value);
    m_colorScheme = known == ColorScheme::Dark || known == ColorScheme::Light ? known : ColorScheme::NoPreference;
}
