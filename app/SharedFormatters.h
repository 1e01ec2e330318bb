// SPDX-License-Identifier: MIT
#pragma once

#include "dates/DateFormatter.h"

/// Formatters that are made at start-up, and anew when the clock or the zone changes: making one takes far longer than
/// using it.
struct SharedFormatters {
    SharedFormatters();

    /// In the long style, in which `style` then remains.
    QString longStyleFromDate(Date date);

    DateFormatter time;     ///< of the clock: a short time, no date
    DateFormatter style;    ///< whoever uses it sets its style or its format first
    DateFormatter listDate; ///< of the rows of both lists
};
