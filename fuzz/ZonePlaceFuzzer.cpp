// SPDX-License-Identifier: MIT
#include "dates/ZonePlace.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

/// An input is the name of a zone, a line feed, and the lines of all three files of the database.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string input(data, data + size);
    const std::size_t nameEnd = std::min(input.find('\n'), size);
    const std::string lines = input.substr(std::min(nameEnd + 1, size));
    const std::optional<Coordinate> place = ZonePlace::placeInDatabase({lines, lines, lines}, input.substr(0, nameEnd));
    if (place && !(std::abs(place->latitude) <= 90 && std::abs(place->longitude) <= 180)) {
        std::cerr << "a place that is not on the earth\n";
        std::abort();
    }
    return 0;
}
