// SPDX-License-Identifier: MIT
#include "place/SunTimes.h"

#include "dates/Clock.h"
#include "dates/DateFormatter.h"
#include "dates/IcuTypes.h"
#include "text/IntegerValue.h"

#include <unicode/gregocal.h>
#include <unicode/timezone.h>

#include <cmath>
#include <cstdint>
#include <memory>

namespace {

// Angles are in radians. The last bits of the times depend on these exact values.
constexpr double degree = 0.017453292519943295;
constexpr double hourAngleUnit = 0.2617993877991494; // an hour of time
constexpr double fullTurn = 6.283185307179586;
constexpr double quarterTurn = 1.5707963267948966; // 06:00 as an angle
constexpr double threeQuarters = 4.71238898038469; // 18:00 as an angle
constexpr double halfTurn = 3.141592653589793;
constexpr double leapTolerance = 1e-05;
constexpr double anomalyRate = 0.017202; // a day
constexpr double anomalyOffset = -0.0574039;
constexpr double longitudeOffset = 4.93289;
constexpr double centreTerm1 = 0.0334405;
constexpr double centreTerm2 = 0.000349066;
constexpr double boundaryNudge = 4.84814e-06;
constexpr double ascensionFactor = 0.91746;
constexpr double declinationFactor = 0.39782; // sine of the obliquity of the ecliptic
constexpr double horizonCosine = -0.0145439;  // of the zenith angle 90°50′: the sun's upper limb, with refraction
constexpr double siderealRate = -0.0172028;   // a day
constexpr double siderealOffset = -1.73364;
constexpr double hoursPerRadian = 3.81972;

/// The equivalent angle between 0 and a full turn.
double withinFullTurn(double angle)
{
    const double rest = angle - fullTurn * std::nearbyint(angle / fullTurn); // ties to even
    return rest < 0 ? rest + fullTurn : rest;
}

/// Known to be a day off from March on; kept, because the times have always been shown so.
double dayOfYear(double year, double month, double day)
{
    const double n1 = std::trunc(275 * month / 9);
    const double n2 = std::trunc((month + 9) / 12);
    const double f = std::abs(year * 0.25 - std::trunc(year * 0.25));
    return f > leapTolerance ? n1 - n2 + day - 30 : n1 - 2 * n2 + day - 30;
}

double trueLongitude(double meanAnomaly)
{
    const double longitude = withinFullTurn(meanAnomaly + longitudeOffset + centreTerm1 * std::sin(meanAnomaly) +
                                            centreTerm2 * std::sin(2 * meanAnomaly));
    const double quadrants = longitude / quarterTurn;
    const bool isOnBoundary = !(std::abs(quadrants - std::trunc(quadrants)) > leapTolerance);
    return isOnBoundary ? longitude + boundaryNudge : longitude; // keeps the tangent finite
}

/// The result lies in the same quadrant as the longitude.
double rightAscension(double longitude)
{
    const double ascension = std::atan(ascensionFactor * std::tan(longitude));
    if (longitude > threeQuarters) {
        return ascension + fullTurn;
    }
    return longitude > quarterTurn ? ascension + halfTurn : ascension;
}

double cosineOfHourAngle(double longitude, double latitude)
{
    const double sine = declinationFactor * std::sin(longitude);
    const double declination = std::atan(sine / std::sqrt(1 - sine * sine));
    return (horizonCosine - std::sin(declination) * std::sin(latitude)) / (std::cos(latitude) * std::cos(declination));
}

/// The event's time of day as an angle; 0 where the sun does not cross the horizon. All arguments but `day` are in
/// radians.
double eventAngle(SunTimes::Event event, double day, double westLongitude, double latitude, double westZone)
{
    const double base = event == SunTimes::Event::Sunrise ? quarterTurn : threeQuarters;
    const double t = day + (westLongitude + base) / fullTurn;
    const double longitude = trueLongitude(t * anomalyRate + anomalyOffset);
    const std::optional<double> hour = SunTimes::hourAngle(event, cosineOfHourAngle(longitude, latitude));
    if (!hour) {
        return 0.0;
    }
    return rightAscension(longitude) + *hour + t * siderealRate + siderealOffset + westLongitude - westZone;
}

/// A field of the calendar, cut to the 16 bits in which it has always been passed.
double shortInteger(const icu::Calendar& calendar, UCalendarDateFields which)
{
    UErrorCode status = U_ZERO_ERROR;
    return static_cast<std::int16_t>(calendar.get(which, status));
}

} // namespace

SunTimes::RiseAndSet SunTimes::sunTime(double westLongitude, double latitude, double westZoneHours, double year,
                                       double month, double day)
{
    const double number = dayOfYear(year, month, day);
    const auto clockTime = [&](Event event) {
        return angleToClock(
            eventAngle(event, number, westLongitude * degree, latitude * degree, westZoneHours * hourAngleUnit));
    };
    return {clockTime(Event::Sunrise), clockTime(Event::Sunset)};
}

std::optional<double> SunTimes::hourAngle(Event event, double cosine)
{
    if (std::abs(cosine) > 1) {
        return std::nullopt;
    }
    const double arcsine =
        std::atan(cosine / std::sqrt(1 - cosine * cosine)); // 1 and -1 give the arctangent of infinity
    return event == Event::Sunrise ? arcsine - quarterTurn + fullTurn : quarterTurn - arcsine;
}

double SunTimes::angleToClock(double angle)
{
    const double hours = withinFullTurn(angle) * hoursPerRadian;
    const double hour = std::trunc(hours);
    const double exactMinutes = (hours - hour) * 60;
    double minutes = std::trunc(exactMinutes);
    if (exactMinutes - minutes >= 0.5) {
        minutes += 1;
    }
    return minutes >= 60 ? hour + 1 : hour + minutes / 100;
}

double SunTimes::timeZoneHours()
{
    constexpr double secondsPerHourWest = -3600.0;
    const std::unique_ptr<icu::TimeZone> zone(icu::TimeZone::createDefault());
    UErrorCode status = U_ZERO_ERROR;
    int32_t raw = 0;
    int32_t dst = 0;
    zone->getOffset(udate(DateEnvironment::now()), static_cast<UBool>(false), raw, dst, status);
    return static_cast<double>(raw + dst) / U_MILLIS_PER_SECOND / secondsPerHourWest;
}

QString SunTimes::clockText(double packedTime, const DateFormatter& timeFormatter)
{
    const double hour = std::trunc(packedTime);
    const QString fraction = QString::number(packedTime - hour, 'f', 6); // "0.310000"
    const int minute = integerValue(QStringView(fraction).mid(fraction.indexOf(u'.') + 1, 2));
    UErrorCode status = U_ZERO_ERROR;
    icu::GregorianCalendar calendar(status);
    calendar.clear();
    calendar.set(1, UCAL_JANUARY, 1, static_cast<int32_t>(hour), minute); // in that year no zone skips a time
    return timeFormatter.stringFromDate(dateFromUDate(calendar.getTime(status)));
}

std::optional<QString> SunTimes::sunLine(const Coordinate& place, const QString& heading,
                                         const DateFormatter& timeFormatter)
{
    if (!std::isfinite(place.latitude) || !std::isfinite(place.longitude)) {
        return std::nullopt;
    }
    UErrorCode status = U_ZERO_ERROR;
    icu::GregorianCalendar today(status); // the method needs it, whatever calendar the locale uses
    today.setTime(udate(DateEnvironment::now()), status);
    const RiseAndSet times = sunTime(-place.longitude, place.latitude, timeZoneHours(), shortInteger(today, UCAL_YEAR),
                                     shortInteger(today, UCAL_MONTH) + 1, shortInteger(today, UCAL_DAY_OF_MONTH));
    return heading + u' ' + clockText(times.sunrise, timeFormatter) + u'/' + clockText(times.sunset, timeFormatter);
}
