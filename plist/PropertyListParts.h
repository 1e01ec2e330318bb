// SPDX-License-Identifier: MIT
#pragma once

#include "plist/Value.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>

/// Shared by the readers and the writer of property lists; only they include this.
namespace PropertyList {

/// The beginning of an XML property list as this program, and most others, write it.
constexpr std::string_view xmlHead = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                     "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
                                     "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
                                     "<plist version=\"1.0\">\n";

/// The least bytes in a part of a list: few enough for the part's nodes to stay in the processor's cache.
constexpr std::size_t usualPartSize = std::size_t{256} << 10;

/// The list in the XML text `bytes`; nullopt when it is broken. The text is parsed in place, if possible in parts of at
/// least `partSize` bytes each.
std::optional<Value> readAnyXml(std::span<char> bytes, std::size_t partSize = usualPartSize);

/// The same, in one pass over the text if it has the usual form.
std::optional<Value> readXml(std::span<char> bytes);

/// The records of the XML text `xml` when it has exactly the form in which this program, like others, writes a list of
/// dated texts; nullopt for every other text. What it reads, `readAnyXml` reads alike.
std::optional<Array> readRecords(std::string_view xml);

/// The list in the binary form `bytes`; nullopt when it is broken.
std::optional<Value> readBinary(std::string_view bytes);

/// The instant that 'yyyy-MM-ddTHH:mm:ssZ' names (proleptic Gregorian, UTC); nullopt when there is no such moment. The
/// year may have a fifth digit and a minus sign, within the range of `std::chrono::year`.
std::optional<Date> dateFromText(std::string_view text);

/// `date` in the form above, with fractions of a second cut off towards the past. A date beyond the form's range
/// becomes the nearest one within it.
std::string textFromDate(Date date);

/// Whether `textFromDate` can name the date itself rather than the nearest one.
bool canBeNamed(Date date);

bool isUtf8(std::string_view bytes);

enum class ByteOrder { LittleEndian, BigEndian };

struct ConvertedText {
    std::string utf8;
    bool isWhole = false; ///< false when an unpaired surrogate became U+FFFD or an odd last byte was dropped
};

ConvertedText utf8FromUtf16(std::string_view bytes, ByteOrder order);

} // namespace PropertyList
