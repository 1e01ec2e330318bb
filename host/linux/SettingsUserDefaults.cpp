// SPDX-License-Identifier: MIT
#include "host/linux/SettingsUserDefaults.h"

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

void SettingsUserDefaults::synchronize()
{
    m_settings.sync();
}
