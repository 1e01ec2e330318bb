// SPDX-License-Identifier: MIT
#pragma once

#include "dates/Date.h"

#include <QString>

/// The words that count an elapsed date, in the language of the interface.
struct ElapsedUnitWords {
    QString year = QStringLiteral("Year");
    QString years = QStringLiteral("Years");
    QString month = QStringLiteral("Month");
    QString months = QStringLiteral("Months");
    QString day = QStringLiteral("Day");
    QString days = QStringLiteral("Days");
};

/// How far `event` lies from `now`, whichever is first, in whole years, months and days of the current calendar:
/// "3 Years 2 Months 5 Days". A count of zero leaves its part empty but keeps the blanks around it; less than a day
/// gives "0 Years, 0 Months, 0 Days " with its blank.
QString elapsedDateText(Date event, Date now, const ElapsedUnitWords& words);
