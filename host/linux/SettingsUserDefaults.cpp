// SPDX-License-Identifier: MIT
#include "host/linux/SettingsUserDefaults.h"

#include <QStringList>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

/// The integer in a text that a person or a program may have written. A fraction is rounded away from zero, so that
/// only 0 counts as 0; nullopt when the text has no value.
std::optional<int> integerFromText(const QString& text)
{
    static const QStringList trueWords{QStringLiteral("true"), QStringLiteral("yes"), QStringLiteral("on")};
    static const QStringList falseWords{QStringLiteral("false"), QStringLiteral("no"), QStringLiteral("off")};
    const QString value = text.trimmed();
    if (trueWords.contains(value, Qt::CaseInsensitive)) {
        return 1;
    }
    if (falseWords.contains(value, Qt::CaseInsensitive)) {
        return 0;
    }
    bool isNumber = false;
    const double number = value.toDouble(&isNumber);
    if (!isNumber || !std::isfinite(number)) {
        return std::nullopt;
    }
    const double whole = number < 0 ? std::floor(number) : std::ceil(number);
    constexpr std::numeric_limits<int> range;
    return static_cast<int>(std::clamp<double>(whole, range.min(), range.max()));
}

} // namespace

void SettingsUserDefaults::registerDefaults(const QHash<QString, int>& defaults)
{
    m_registered.insert(defaults);
}

int SettingsUserDefaults::integerForKey(const QString& key) const
{
    return integerFromText(m_settings.value(key).toString()).value_or(m_registered.value(key));
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
    m_settings.save();
}
