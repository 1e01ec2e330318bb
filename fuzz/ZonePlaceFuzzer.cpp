// SPDX-License-Identifier: MIT
#include "fuzz/Failure.h"
#include "fuzz/Lines.h"
#include "place/ZonePlace.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

bool isOnEarth(const Coordinate& place)
{
    return std::abs(place.latitude) <= 90 && std::abs(place.longitude) <= 180;
}

std::string iso6709(const Coordinate& place)
{
    const auto angle = [](double degrees, int digits) {
        const auto seconds = static_cast<int>(std::lround(std::abs(degrees) * 3600));
        char text[32];
        (void)std::snprintf(text, sizeof text, "%c%0*d%02d%02d", degrees < 0 ? '-' : '+', digits, seconds / 3600,
                            seconds / 60 % 60, seconds % 60);
        return std::string(text);
    };
    return angle(place.latitude, 2) + angle(place.longitude, 3);
}

void tryPlace(const std::string& text)
{
    const std::optional<Coordinate> place = ZonePlace::placeFromIso6709(text);
    if (!place) {
        return;
    }
    const std::optional<Coordinate> again = ZonePlace::placeFromIso6709(iso6709(*place));
    if (!again || std::abs(again->latitude - place->latitude) > 1e-9 ||
        std::abs(again->longitude - place->longitude) > 1e-9) {
        fail("a place reads back differently");
    }
}

} // namespace

/// An input is the name of a zone or the text of a place, a line feed, and lines that serve as all three files of the
/// database.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Lines input(data, size);
    const std::string name = input.next();
    const std::string lines = input.rest();
    tryPlace(name);
    const std::optional<Coordinate> place = ZonePlace::placeInDatabase({lines, lines, lines}, name);
    if (place && !isOnEarth(*place)) {
        fail("a place that is not on the earth");
    }
    return 0;
}
