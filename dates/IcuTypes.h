// SPDX-License-Identifier: MIT
#pragma once

#include "dates/Date.h"

#include <QString>
#include <QStringView>
#include <unicode/unistr.h>
#include <unicode/utypes.h>

/// Conversions between this program's types and ICU's; only for the sources of dates/.

inline UDate udate(Date date)
{
    return unixSeconds(date) * U_MILLIS_PER_SECOND;
}

inline Date dateFromUDate(UDate moment)
{
    return dateFromUnixSeconds(moment / U_MILLIS_PER_SECOND);
}

inline icu::UnicodeString icuString(QStringView text)
{
    return {text.utf16(), static_cast<int32_t>(text.size())};
}

inline QString qStringFromIcu(const icu::UnicodeString& text)
{
    return QString::fromUtf16(text.getBuffer(), text.length());
}
