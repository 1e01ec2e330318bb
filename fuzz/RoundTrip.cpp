// SPDX-License-Identifier: MIT
#include "fuzz/RoundTrip.h"

#include "fuzz/Failure.h"
#include "plist/PropertyList.h"

#include <algorithm>
#include <cmath>

namespace {

bool isCarriedByXml(std::string_view text)
{
    const auto isControl = [](char c) {
        return static_cast<unsigned char>(c) < 0x20 && c != '\t' && c != '\n' && c != '\r';
    };
    return std::ranges::none_of(text, isControl) && text.find("\xEF\xBF\xBE") == std::string::npos &&
           text.find("\xEF\xBF\xBF") == std::string::npos;
}

} // namespace

bool isCarriedByXml(const Value& value)
{
    if (const Date* date = value.date()) {
        return unixSeconds(*date) == std::floor(unixSeconds(*date));
    }
    if (const std::optional<std::string_view> text = value.text()) {
        return isCarriedByXml(*text);
    }
    if (const Array* array = value.array()) {
        return std::ranges::all_of(*array, [](const Value& element) { return isCarriedByXml(element); });
    }
    if (const DictionaryView dictionary = value.dictionary()) {
        return std::all_of(dictionary.begin(), dictionary.end(), [](const DictionaryView::Entry& entry) {
            return isCarriedByXml(entry.key) && isCarriedByXml(entry.value);
        });
    }
    return true;
}

void readWriteRead(std::string bytes)
{
    const std::optional<Table> table = PropertyList::readTable(std::move(bytes));
    if (!table) {
        return;
    }
    const std::string xml = PropertyList::writeXml(*table);
    const std::optional<Table> again = PropertyList::readTable(xml);
    if (!again) {
        fail("what was written cannot be read");
    }
    const bool isCarried = std::ranges::all_of(*table, [](const Value& element) { return isCarriedByXml(element); });
    if (isCarried && *again != *table) {
        fail("what was written reads back differently");
    }
    if (isCarried && PropertyList::writeXml(*again) != xml) {
        fail("what was read back is written differently");
    }
}
