// SPDX-License-Identifier: MIT
#pragma once

#include "host/UserDefaults.h"
#include "host/linux/PrivateSettings.h"

/// User defaults in a settings file that only the user can read.
class SettingsUserDefaults : public UserDefaults {
public:
    void registerDefaults(const QHash<QString, int>& defaults) override;
    int integerForKey(const QString& key) const override;
    void setInteger(int value, const QString& key) override;
    std::optional<double> numberForKey(const QString& key) const override;
    void setNumber(double value, const QString& key) override;
    void removeObjectForKey(const QString& key) override;
    void synchronize() override;

private:
    PrivateSettings m_settings;
    QHash<QString, int> m_registered;
};
