// SPDX-License-Identifier: MIT
#pragma once

#include "dates/DateFormatter.h"

#include <optional>

/// Formatters kept from the start of the program until the clock or the zone changes, because creating one takes far
/// longer than using it.
struct SharedFormatters {
    SharedFormatters();

    /// A date in the long style, and one read from it; nullopt when the text is none. `style` then keeps that style.
    QString longStyleFromDate(Date date);
    std::optional<Date> dateFromLongStyle(const QString& text);

    DateFormatter time;     ///< of the clock: a short time, no date
    DateFormatter style;    ///< set its style or its format before each use
    DateFormatter listDate; ///< of the rows of both lists
};
