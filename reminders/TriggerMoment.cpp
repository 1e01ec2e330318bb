// SPDX-License-Identifier: MIT
#include "reminders/TriggerMoment.h"

#include "place/ZonePlace.h"

#include <QDateTime>
#include <QTimeZone>

#include <algorithm>

namespace {

constexpr int reach = 2 * 24 * 60 * 60; ///< seconds; no zone's clock is that far from UTC

/// The changes of the zone's clock from `from` to `to`, in order. Qt stops where the changes that tzdata lists one by
/// one end; those that follow from its rule come when asked for again from there.
QTimeZone::OffsetDataList changes(const QTimeZone& zone, const QDateTime& from, const QDateTime& to)
{
    QTimeZone::OffsetDataList all;
    QTimeZone::OffsetDataList some = zone.transitions(from, to);
    while (!some.isEmpty()) {
        all << some;
        some = zone.transitions(some.last().atUtc.addSecs(1), to);
    }
    return all;
}

/// The zone of that name, UTC when there is none. A name that leads out of the zone folder is not looked up, since
/// anything may lie there.
QTimeZone zoneOf(const std::string& name)
{
    if (ZonePlace::isZoneName(name)) {
        const QTimeZone zone(QByteArray::fromStdString(name));
        return zone.isValid() ? zone : QTimeZone::utc();
    }
    return QTimeZone::utc();
}

} // namespace

Date momentOf(const CalendarNotificationTrigger& trigger)
{
    const QTimeZone zone = zoneOf(trigger.timeZone);
    const QDate day = QDate(trigger.year, trigger.month, 1).addDays(trigger.day - 1);
    // What the clock shows, taken as if in UTC.
    const QDateTime shown(day, QTime(trigger.hour, trigger.minute, trigger.second), Qt::UTC);

    // The first instant at which the zone's clock shows this or is past it.
    const QDateTime from = shown.addSecs(-reach);
    QDateTime since = from;
    int offset = zone.offsetFromUtc(from);
    for (const QTimeZone::OffsetData& change : changes(zone, from, shown.addSecs(reach))) {
        if (shown.addSecs(-offset) < change.atUtc) {
            break;
        }
        since = change.atUtc;
        offset = change.offsetFromUtc;
    }
    return dateFromUnixSeconds(static_cast<double>(std::max(since, shown.addSecs(-offset)).toSecsSinceEpoch()));
}
