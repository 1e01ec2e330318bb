// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QString>

#include <optional>

/// The user's settings, under literal keys. A key that the user never set, or whose value is not a number, reads as its
/// registered default, or as 0 without one.
class UserDefaults {
public:
    UserDefaults() = default;
    UserDefaults(const UserDefaults&) = delete;
    UserDefaults& operator=(const UserDefaults&) = delete;
    virtual ~UserDefaults() = default;

    /// Sets the defaults of absent keys; writes nothing.
    virtual void registerDefaults(const QHash<QString, int>& defaults) = 0;

    virtual int integerForKey(const QString& key) const = 0;
    virtual void setInteger(int value, const QString& key) = 0;

    /// nullopt for a key that the user never set, and for a value that is not a finite number.
    virtual std::optional<double> numberForKey(const QString& key) const = 0;
    virtual void setNumber(double value, const QString& key) = 0;

    virtual void removeObjectForKey(const QString& key) = 0;

    /// Writes the settings to the disk now.
    virtual void synchronize() = 0;

    bool boolForKey(const QString& key) const { return integerForKey(key) != 0; }
};
