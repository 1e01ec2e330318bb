// SPDX-License-Identifier: MIT
#include "dates/SystemTimeZone.h"

#include <QDateTime>
#include <QTimeZone>
#include <unicode/basictz.h>
#include <unicode/gregocal.h>
#include <unicode/tzrule.h>
#include <unicode/tztrans.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <utility>
#include <vector>

namespace {

// The table of changes ends here. Every 400 years the Gregorian calendar, and with it a zone's rules, repeats to the
// weekday, so a later moment is looked up that many years earlier.
constexpr int lastListedYear = 2450;
constexpr double cycleMillis = 146097.0 * 24 * 60 * 60 * 1000;
constexpr int firstListedYear = 1800;

/// From `at` (UTC) on, local time is UTC + `raw` + `dst`; offsets in milliseconds.
struct Change {
    UDate at;
    int32_t raw;
    int32_t dst;

    int32_t total() const { return raw + dst; }
};

/// Sorted by `at`; the first entry also holds for all time before it.
using Changes = std::vector<Change>;

UDate utcYear(int year)
{
    return static_cast<UDate>(QDateTime(QDate(year, 1, 1), QTime(0, 0), Qt::UTC).toMSecsSinceEpoch());
}

UDate withinTable(UDate moment)
{
    static const UDate end = utcYear(lastListedYear);
    return moment < end ? moment : moment - cycleMillis * (std::floor((moment - end) / cycleMillis) + 1);
}

void append(Changes& changes, const QTimeZone::OffsetDataList& list)
{
    for (const QTimeZone::OffsetData& data : list) {
        changes.push_back({static_cast<UDate>(data.atUtc.toMSecsSinceEpoch()),
                           data.standardTimeOffset * U_MILLIS_PER_SECOND,
                           data.daylightTimeOffset * U_MILLIS_PER_SECOND});
    }
}

Changes listedChanges(const QTimeZone& zone)
{
    const QDateTime first(QDate(firstListedYear, 1, 1), QTime(0, 0), Qt::UTC);
    const QDateTime end(QDate(lastListedYear, 1, 1), QTime(0, 0), Qt::UTC);
    Changes changes{{-std::numeric_limits<UDate>::infinity(), zone.offsetFromUtc(first) * U_MILLIS_PER_SECOND, 0}};
    // Qt stops where the changes that tzdata lists one by one end; those that follow from its rule come when asked for
    // again from there.
    QTimeZone::OffsetDataList list = zone.transitions(first, end);
    while (!list.isEmpty()) {
        append(changes, list);
        list = zone.transitions(list.last().atUtc.addSecs(1), end);
    }
    return changes;
}

class SystemTimeZone final : public icu::BasicTimeZone {
public:
    SystemTimeZone(const icu::UnicodeString& identifier, std::shared_ptr<const Changes> changes)
        : BasicTimeZone(identifier), m_changes(std::move(changes))
    {
    }

    SystemTimeZone* clone() const override { return new SystemTimeZone(*this); }

    bool operator==(const icu::TimeZone& other) const override
    {
        return TimeZone::operator==(other) && hasSameRules(other);
    }

    UBool hasSameRules(const icu::TimeZone& other) const override
    {
        const auto* same = dynamic_cast<const SystemTimeZone*>(&other);
        return static_cast<UBool>(same && same->m_changes == m_changes);
    }

    void getOffset(UDate date, UBool local, int32_t& rawOffset, int32_t& dstOffset, UErrorCode& status) const override;
    int32_t getOffset(uint8_t era, int32_t year, int32_t month, int32_t day, uint8_t dayOfWeek, int32_t millis,
                      UErrorCode& status) const override;
    int32_t getOffset(uint8_t era, int32_t year, int32_t month, int32_t day, uint8_t dayOfWeek, int32_t millis,
                      int32_t monthLength, UErrorCode& status) const override;
    void getOffsetFromLocal(UDate date, UTimeZoneLocalOption nonExistingTimeOpt, UTimeZoneLocalOption duplicatedTimeOpt,
                            int32_t& rawOffset, int32_t& dstOffset, UErrorCode& status) const override;

    int32_t getRawOffset() const override { return at(icu::Calendar::getNow()).raw; }
    void setRawOffset(int32_t) override {} // the machine's rules are fixed
    UBool useDaylightTime() const override;
    UBool inDaylightTime(UDate date, UErrorCode&) const override { return static_cast<UBool>(at(date).dst != 0); }

    UBool getNextTransition(UDate base, UBool inclusive, icu::TimeZoneTransition& result) const override;
    UBool getPreviousTransition(UDate base, UBool inclusive, icu::TimeZoneTransition& result) const override;

    // ICU's rule interface does not apply: the changes are a plain list.
    int32_t countTransitionRules(UErrorCode&) const override { return 0; }
    void getTimeZoneRules(const icu::InitialTimeZoneRule*& initial, const icu::TimeZoneRule*[], int32_t& count,
                          UErrorCode& status) const override
    {
        initial = nullptr;
        count = 0;
        status = U_UNSUPPORTED_ERROR;
    }

    UClassID getDynamicClassID() const override
    {
        static char classId = 0;
        return &classId;
    }

private:
    const Change& at(UDate date) const
    {
        const auto next = std::upper_bound(m_changes->begin() + 1, m_changes->end(), withinTable(date),
                                           [](UDate moment, const Change& change) { return moment < change.at; });
        return *std::prev(next);
    }

    UBool describe(Changes::const_iterator change, icu::TimeZoneTransition& result) const;

    std::shared_ptr<const Changes> m_changes; // never empty
};

void SystemTimeZone::getOffset(UDate date, UBool local, int32_t& rawOffset, int32_t& dstOffset,
                               UErrorCode& status) const
{
    if (local) {
        getOffsetFromLocal(date, UCAL_TZ_LOCAL_FORMER, UCAL_TZ_LOCAL_LATTER, rawOffset, dstOffset, status);
        return;
    }
    const Change& change = at(date);
    rawOffset = change.raw;
    dstOffset = change.dst;
}

int32_t SystemTimeZone::getOffset(uint8_t era, int32_t year, int32_t month, int32_t day, uint8_t, int32_t millis,
                                  UErrorCode& status) const
{
    icu::GregorianCalendar calendar(*getGMT(), status);
    calendar.set(UCAL_ERA, era);
    calendar.set(year, month, day, 0, 0, 0);
    int32_t raw = 0;
    int32_t dst = 0;
    getOffset(std::floor(calendar.getTime(status) / U_MILLIS_PER_SECOND) * U_MILLIS_PER_SECOND + millis, true, raw, dst,
              status);
    return raw + dst;
}

int32_t SystemTimeZone::getOffset(uint8_t era, int32_t year, int32_t month, int32_t day, uint8_t dayOfWeek,
                                  int32_t millis, int32_t, UErrorCode& status) const
{
    return getOffset(era, year, month, day, dayOfWeek, millis, status);
}

// Around a change, local times between the change's two readings occur twice or never. The former offset holds up to
/// the later of the two readings, the latter offset from the earlier one.
void SystemTimeZone::getOffsetFromLocal(UDate date, UTimeZoneLocalOption nonExistingTimeOpt,
                                        UTimeZoneLocalOption duplicatedTimeOpt, int32_t& rawOffset, int32_t& dstOffset,
                                        UErrorCode&) const
{
    const UDate wall = withinTable(date);
    const auto isInForce = [&](const Change& change) {
        const int32_t before = std::prev(&change)->total();
        const int32_t after = change.total();
        const UTimeZoneLocalOption option = after > before ? nonExistingTimeOpt : duplicatedTimeOpt;
        const bool latter = (option & UCAL_TZ_LOCAL_LATTER) == UCAL_TZ_LOCAL_LATTER;
        return wall >= change.at + (latter ? std::min(before, after) : std::max(before, after));
    };
    const Change& change = *std::prev(std::partition_point(m_changes->begin() + 1, m_changes->end(), isInForce));
    rawOffset = change.raw;
    dstOffset = change.dst;
}

UBool SystemTimeZone::useDaylightTime() const
{
    constexpr UDate yearMillis = 366.0 * U_MILLIS_PER_DAY;
    const UDate now = icu::Calendar::getNow();
    return static_cast<UBool>(std::any_of(m_changes->begin() + 1, m_changes->end(), [now](const Change& change) {
        return change.dst != 0 && change.at > now - yearMillis && change.at < now + yearMillis;
    }));
}

UBool SystemTimeZone::getNextTransition(UDate base, UBool inclusive, icu::TimeZoneTransition& result) const
{
    return describe(
        std::find_if(m_changes->begin() + 1, m_changes->end(),
                     [&](const Change& change) { return change.at > base || (inclusive && change.at == base); }),
        result);
}

UBool SystemTimeZone::getPreviousTransition(UDate base, UBool inclusive, icu::TimeZoneTransition& result) const
{
    const auto later = std::find_if(m_changes->begin() + 1, m_changes->end(), [&](const Change& change) {
        return change.at > base || (!inclusive && change.at == base);
    });
    return describe(later == m_changes->begin() + 1 ? m_changes->end() : std::prev(later), result);
}

UBool SystemTimeZone::describe(Changes::const_iterator change, icu::TimeZoneTransition& result) const
{
    if (change == m_changes->end()) {
        return false;
    }
    const Change& before = *std::prev(change);
    result.setTime(change->at);
    result.adoptFrom(new icu::InitialTimeZoneRule(icu::UnicodeString(), before.raw, before.dst));
    result.adoptTo(new icu::InitialTimeZoneRule(icu::UnicodeString(), change->raw, change->dst));
    return true;
}

} // namespace

std::unique_ptr<icu::TimeZone> systemTimeZone(const std::string& identifier)
{
    // Listing the changes takes milliseconds, so they are kept for a zone that comes back, as a traveller's does.
    static std::map<std::string, std::shared_ptr<const Changes>> known;
    const QTimeZone zone(QByteArray::fromStdString(identifier));
    if (!zone.isValid()) {
        return nullptr;
    }
    std::shared_ptr<const Changes>& changes = known[identifier];
    if (!changes) {
        changes = std::make_shared<const Changes>(listedChanges(zone));
    }
    return std::make_unique<SystemTimeZone>(icu::UnicodeString::fromUTF8(identifier), changes);
}
