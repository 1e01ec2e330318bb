// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPalette>
#include <QString>

#include <optional>

/// The desktop's settings for texts, apart from the font that it gives every program.
struct DesktopText {
    std::optional<double> points; ///< size of the desktop's font
    double scaling = 1;           ///< the factor for every text size

    bool operator==(const DesktopText&) const = default;
};

/// The user's settings for all programs, some under literal keys. The desktop sets them.
class GlobalDefaults : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    /// nullopt for a key that is not set. The only key that the desktop sets is "AppleInterfaceStyle": "Dark" in the
    /// dark appearance, absent in the light one.
    virtual std::optional<QString> stringForKey(const QString& key) const = 0;

    /// Whether texts and lines should stand out as strongly as possible.
    virtual bool prefersHighContrast() const { return false; }

    /// The colours that the desktop gives its programs; the default palette when it gives none.
    virtual QPalette palette() const { return {}; }

    virtual DesktopText text() const { return {}; }

Q_SIGNALS:
    /// A value has changed.
    void didChange();
};
