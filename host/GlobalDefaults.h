// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPalette>
#include <QString>

#include <optional>

/// What the desktop says of its texts, apart from the font that it gives every program.
struct DesktopText {
    std::optional<double> points; ///< of the desktop's font
    double scaling = 1;           ///< by which every size of the desktop is to be taken

    bool operator==(const DesktopText&) const = default;
};

/// The user's settings that hold for every program alike, some under literal keys. The desktop sets them.
class GlobalDefaults : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    /// nullopt for a key that is not set. The only key that the desktop sets is "AppleInterfaceStyle": "Dark" in the
    /// dark appearance, absent in the light one.
    virtual std::optional<QString> stringForKey(const QString& key) const = 0;

    /// Texts and lines are to stand out as strongly as they can.
    virtual bool prefersHighContrast() const { return false; }

    /// The colours that the desktop gives its programs; the default palette where it gives none.
    virtual QPalette palette() const { return {}; }

    virtual DesktopText text() const { return {}; }

Q_SIGNALS:
    /// A value is another one now.
    void didChange();
};
