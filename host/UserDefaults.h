// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QString>

#include <optional>

/// The user's settings, under literal keys. A key that the user never set, or whose value says no number, reads as its
/// registered default, and one without a registered default as 0.
class UserDefaults {
public:
    UserDefaults() = default;
    UserDefaults(const UserDefaults&) = delete;
    UserDefaults& operator=(const UserDefaults&) = delete;
    virtual ~UserDefaults() = default;

    /// Sets what absent keys read as; writes nothing.
    virtual void registerDefaults(const QHash<QString, int>& defaults) = 0;

    virtual int integerForKey(const QString& key) const = 0;
    virtual void setInteger(int value, const QString& key) = 0;

    /// Nothing for a key that the user never set, and for a value that is not a finite number.
    virtual std::optional<double> numberForKey(const QString& key) const = 0;
    virtual void setNumber(double value, const QString& key) = 0;

    virtual void removeObjectForKey(const QString& key) = 0;

    /// Writes what was set to the disk now.
    virtual void synchronize() = 0;

    bool boolForKey(const QString& key) const { return integerForKey(key) != 0; }
};
