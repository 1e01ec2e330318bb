// SPDX-License-Identifier: MIT
#pragma once

#include "dates/DateFormatter.h"

#include <QString>

/// Days as a screen reader says them: the whole date, and whether it is today. Create a new one for each drawing,
/// because today is the day on which it was constructed.
class SpokenDays {
public:
    SpokenDays();

    QString of(Date day) const;

    /// The same with `words`, the caller's own words for `day`.
    QString of(Date day, const QString& words) const;

    bool isToday(Date day) const;

private:
    Date m_now;
    DateFormatter m_formatter;
};
