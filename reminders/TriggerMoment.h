// SPDX-License-Identifier: MIT
#pragma once

#include "dates/Date.h"
#include "reminders/NotificationRequest.h"

/// The instant that the trigger's fields name in its own zone, by the machine's rules (tzdata). A time that the zone
/// skips becomes the first instant after the gap; of one that it repeats, the first counts. A zone that the machine
/// does not know counts as UTC. The trigger's fields must be in range; a day beyond the end of the month carries over
/// into the next.
Date momentOf(const CalendarNotificationTrigger& trigger);
