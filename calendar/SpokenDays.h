// SPDX-License-Identifier: MIT
#pragma once

#include "dates/DateFormatter.h"

#include <QString>

/// Days as a screen reader says them: the whole date, and whether it is today. Made anew for each drawing: today is the
/// day on which it was made.
class SpokenDays {
public:
    SpokenDays();

    QString of(Date day) const;

    /// `day` in words of the caller's.
    QString of(Date day, const QString& words) const;

    bool isToday(Date day) const;

private:
    Date m_now;
    DateFormatter m_formatter;
};
