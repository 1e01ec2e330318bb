// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>

#include <optional>

/// The user's settings that hold for every program alike, under literal keys. The desktop sets them.
class GlobalDefaults : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    /// nullopt for a key that is not set. The only key that the desktop sets is "AppleInterfaceStyle": "Dark" in the
    /// dark appearance, absent in the light one.
    virtual std::optional<QString> stringForKey(const QString& key) const = 0;

Q_SIGNALS:
    /// A value is another one now.
    void didChange();
};
