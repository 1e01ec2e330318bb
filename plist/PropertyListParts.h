// SPDX-License-Identifier: MIT
#pragma once

#include "plist/Value.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>

/// What the readers and the writer of property lists are made of; only they include this.
namespace PropertyList {

/// What an XML property list begins with. The writer's own, and to the byte that of most programs.
constexpr std::string_view xmlHead = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                     "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
                                     "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
                                     "<plist version=\"1.0\">\n";

/// A part of a list has this many bytes and more: few enough for its nodes to stay in the processor's cache.
constexpr std::size_t usualPartSize = std::size_t{256} << 10;

/// The list that the XML text `bytes` holds, nullopt when it is broken. They are parsed in place; the parts that they
/// are cut into, if they can be, are no smaller than `partSize`.
std::optional<Value> readXml(std::span<char> bytes, std::size_t partSize = usualPartSize);

/// The list that `bytes` hold in binary form, nullopt when it is broken.
std::optional<Value> readBinary(std::string_view bytes);

/// The instant that 'yyyy-MM-ddTHH:mm:ssZ' names (proleptic Gregorian, UTC), nullopt when the calendar or the clock
/// has no such moment. A year may have a fifth digit and a minus sign, as far as `std::chrono::year` goes.
std::optional<Date> dateFromText(std::string_view text);

/// `date` in the form above, fractions of a second cut off towards the past. A date beyond what the form can name
/// becomes the nearest that it can.
std::string textFromDate(Date date);

/// Whether `textFromDate` names the date and not a nearest one.
bool canBeNamed(Date date);

bool isUtf8(std::string_view bytes);

enum class ByteOrder { LittleEndian, BigEndian };

struct ConvertedText {
    std::string utf8;
    bool isWhole = false; ///< false when a half of a surrogate pair or of a code unit became U+FFFD or was left out
};

ConvertedText utf8FromUtf16(std::string_view bytes, ByteOrder order);

} // namespace PropertyList
