// SPDX-License-Identifier: MIT
#pragma once

#include "plist/PropertyList.h"

#include <fstream>
#include <iterator>
#include <string>

inline std::string sampleFile(const std::string& name)
{
    std::ifstream file(std::string(PROPERTY_LIST_DATA "/") + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

inline Value integer(std::int64_t number)
{
    const auto magnitude = static_cast<std::uint64_t>(number);
    return Value(number < 0 ? Integer{~magnitude + 1, true} : Integer{magnitude, false});
}

inline Value dateAt(double secondsSince1970)
{
    return Value(dateFromUnixSeconds(secondsSince1970));
}

inline std::string xmlArray(const std::string& elements)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?><plist version=\"1.0\"><array>" + elements + "</array></plist>";
}

/// The same as the program itself writes it, but for the blanks.
inline std::string plainArray(const std::string& elements)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
           "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
           "<plist version=\"1.0\">\n<array>" +
           elements + "</array></plist>";
}

/// A list made by `xmlArray` as `plainArray` makes it; any other as it is.
inline std::string inPlainForm(const std::string& xml)
{
    const std::string before = xmlArray("").substr(0, xmlArray("").find("</array>"));
    const std::string after = "</array></plist>";
    const bool isArray = xml.starts_with(before) && xml.ends_with(after);
    return isArray ? plainArray(xml.substr(before.size(), xml.size() - before.size() - after.size())) : xml;
}

/// What tests/data/property_list/make_fixtures.py wrote. The seconds of the dates are Python's
/// calendar.timegm(moment.timetuple()).
inline Table everyType()
{
    return {
        Value(Dictionary{{"NoteDateKey", dateAt(1709164800)},
                         {"NoteDataKey", Value(" Tea & <cake>\nfor \xF0\x9F\x98\x80 \xD7\x90 ")}}),
        Value(Dictionary{{"zebra", integer(1)},
                         {"apple", Value(Dictionary{{"inner", Value(Array{Value(Array()), Value(Dictionary())})}})}}),
        integer(0),
        integer(-1),
        integer(255),
        integer(256),
        integer(65536),
        integer(4294967296),
        integer(INT64_MAX),
        Value(Integer{9223372036854775808U, false}),
        Value(Integer{18446744073709551615U, false}),
        integer(INT64_MIN),
        Value(true),
        Value(false),
        Value(1.5),
        Value(0.1),
        Value(std::numeric_limits<double>::infinity()),
        Value(std::vector{std::byte{0x00}, std::byte{0xFF}, std::byte{0x10}}),
        dateAt(-62135596800),
        dateAt(-2208988801),
        dateAt(-1219968000),
        dateAt(3140467200),
        dateAt(253402300799),
        Value(std::string(300, 'x')),
        Value("üüüüüüüüüüüüüüüüüüüü")};
}
