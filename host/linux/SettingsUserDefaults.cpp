// SPDX-License-Identifier: MIT
#include "host/linux/SettingsUserDefaults.h"

#include <cmath>

void SettingsUserDefaults::registerDefaults(const QHash<QString, int>& defaults)
{
    m_registered.insert(defaults);
}

int SettingsUserDefaults::integerForKey(const QString& key) const
{
    return m_settings.value(key, m_registered.value(key)).toInt();
}

void SettingsUserDefaults::setInteger(int value, const QString& key)
{
    m_settings.setValue(key, value);
}

std::optional<double> SettingsUserDefaults::numberForKey(const QString& key) const
{
    bool isNumber = false;
    const double number = m_settings.value(key).toDouble(&isNumber);
    return isNumber && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

void SettingsUserDefaults::setNumber(double value, const QString& key)
{
    m_settings.setValue(key, value);
}

void SettingsUserDefaults::removeObjectForKey(const QString& key)
{
    m_settings.remove(key);
}

void SettingsUserDefaults::synchronize()
{
    m_settings.sync();
}
