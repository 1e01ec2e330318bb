// SPDX-License-Identifier: MIT
#pragma once

#include "host/GlobalDefaults.h"

#include <QDBusConnection>

class QDBusMessage;
class QDBusVariant;

/// The desktop portal's colour scheme as the global "AppleInterfaceStyle". Where no portal answers, or the user prefers
/// neither light nor dark, the colours decide that the desktop gave the program at its start; without a portal a change
/// is seen at the next start.
///
/// The portal is asked without waiting for it: until it answers, those colours count.
class DesktopGlobalDefaults : public GlobalDefaults {
    Q_OBJECT

public:
    /// To be made after the application and before it is given colours of its own.
    explicit DesktopGlobalDefaults(const QDBusConnection& bus = QDBusConnection::sessionBus(),
                                   QObject* parent = nullptr);

    std::optional<QString> stringForKey(const QString& key) const override;

    /// Takes in the portal's answer when it has come by now.
    void takeInAnswer();

private Q_SLOTS:
    void portalAnswered(const QDBusMessage& reply);
    void settingChanged(const QString& group, const QString& key, const QDBusVariant& value);

private:
    /// The portal's values.
    enum class ColorScheme : unsigned { NoPreference = 0, Dark = 1, Light = 2 };

    bool isDark() const;
    void setColorScheme(const QVariant& value);

    const bool m_paletteIsDark;
    ColorScheme m_colorScheme = ColorScheme::NoPreference;
};
