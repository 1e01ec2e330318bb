// SPDX-License-Identifier: MIT
#pragma once

#include "host/GlobalDefaults.h"

#include <QDBusConnection>
#include <QTimer>

#include <chrono>

class QDBusVariant;

/// The desktop portal's settings of colours and texts; its colour scheme is the global "AppleInterfaceStyle". Where no
/// portal answers, or the user prefers neither light nor dark, the colours decide that the desktop gave the program at
/// its start; without a portal a change is seen at the next start. High contrast is what the portal asks for or what
/// those colours have.
///
/// The portal is asked without waiting for it: until it answers, those colours count.
class DesktopGlobalDefaults : public GlobalDefaults {
    Q_OBJECT

public:
    /// To be made after the application and before it is given colours of its own.
    explicit DesktopGlobalDefaults(const QDBusConnection& bus = QDBusConnection::sessionBus(),
                                   QObject* parent = nullptr);

    /// Between two changes that are told.
    static constexpr std::chrono::milliseconds pause{100};

    std::optional<QString> stringForKey(const QString& key) const override;

    bool prefersHighContrast() const override;
    QPalette palette() const override { return m_palette; }
    DesktopText text() const override { return m_text; }

    /// Does not wait for the event loop with the portal's answers that have come by now.
    void handleArrivedAnswers();

private:
    /// The portal's values.
    enum class ColorScheme : unsigned { NoPreference = 0, Dark = 1, Light = 2 };

    Q_SLOT void settingChanged(const QString& group, const QString& key, const QDBusVariant& value);
    void ask(const QDBusConnection& connection, const QString& group, const QString& key);
    bool isDark() const;

    /// Takes in what a setting is; false when that changes nothing, as one that the program does not know.
    bool setSetting(const QString& group, const QString& key, const QVariant& value);
    void setColorScheme(unsigned value);
    void tellOfChange();

    const QPalette m_palette; ///< as the desktop gave it
    ColorScheme m_colorScheme = ColorScheme::NoPreference;
    bool m_wantsContrast = false;
    DesktopText m_text;
    QTimer m_pause;          ///< runs behind each change that was told
    bool m_isUntold = false; ///< another came meanwhile
};
