// SPDX-License-Identifier: MIT
#include "dates/SharedFormatters.h"

#include "dates/DateUtilities.h"

SharedFormatters::SharedFormatters() : listDate(DateUtilities::listDateFormatter())
{
    time.setTimeStyle(DateFormatter::Style::Short);
    time.setDateStyle(DateFormatter::Style::None);
}

QString SharedFormatters::longStyleFromDate(Date date)
{
    style.setDateStyle(DateFormatter::Style::Long);
    return style.stringFromDate(date);
}

std::optional<Date> SharedFormatters::dateFromLongStyle(const QString& text)
{
    style.setDateStyle(DateFormatter::Style::Long);
    return style.dateFromString(text);
}
