// SPDX-License-Identifier: MIT
#pragma once

#include "host/GlobalDefaults.h"

#include <QDBusConnection>
#include <QTimer>

#include <chrono>

class QDBusVariant;

/// The desktop portal's settings of colours and texts; its colour scheme provides the global "AppleInterfaceStyle".
/// Without a portal, or when the user prefers neither light nor dark, the palette that the desktop gave the program at
/// its start decides; a change of that palette takes effect at the next start. High contrast applies when the portal
/// asks for it or that palette has it.
///
/// The portal is asked asynchronously; until it answers, that palette counts.
class DesktopGlobalDefaults : public GlobalDefaults {
    Q_OBJECT

public:
    /// Must be constructed after the application object and before the program sets a palette of its own.
    explicit DesktopGlobalDefaults(const QDBusConnection& bus = QDBusConnection::sessionBus(),
                                   QObject* parent = nullptr);

    /// The least time between two reported changes.
    static constexpr std::chrono::milliseconds pause{100};

    std::optional<QString> stringForKey(const QString& key) const override;

    bool prefersHighContrast() const override;
    QPalette palette() const override { return m_palette; }
    DesktopText text() const override { return m_text; }

    /// Handles the portal's answers that have arrived, without waiting for the event loop.
    void handleArrivedAnswers();

private:
    /// The values that the portal uses.
    enum class ColorScheme : unsigned { NoPreference = 0, Dark = 1, Light = 2 };

    Q_SLOT void settingChanged(const QString& group, const QString& key, const QDBusVariant& value);
    void ask(const QDBusConnection& connection, const QString& group, const QString& key);
    bool isDark() const;

    /// Stores the value of a setting; false when that changes nothing, for example for an unknown setting.
    bool setSetting(const QString& group, const QString& key, const QVariant& value);
    void setColorScheme(unsigned value);
    void reportChange();

    const QPalette m_palette; ///< as the desktop gave it
    ColorScheme m_colorScheme = ColorScheme::NoPreference;
    bool m_wantsContrast = false;
    DesktopText m_text;
    QTimer m_pause;                 ///< runs after each reported change
    bool m_isChangePending = false; ///< a change came while it ran
};
