// SPDX-License-Identifier: MIT
#pragma once

#include "dates/Date.h"

#include <QString>

/// The units of an elapsed date in the language of the interface.
struct ElapsedUnitWords {
    QString year = QStringLiteral("Year");
    QString years = QStringLiteral("Years");
    QString month = QStringLiteral("Month");
    QString months = QStringLiteral("Months");
    QString day = QStringLiteral("Day");
    QString days = QStringLiteral("Days");
};

/// The distance between `event` and `now`, in either order, in whole years, months and days of the current calendar: "3
/// Years 2 Months 5 Days". A count of zero leaves out number and word but keeps the blanks around them; less than a day
/// gives "0 Years, 0 Months, 0 Days ", with the trailing blank.
QString elapsedDateText(Date event, Date now, const ElapsedUnitWords& words);
