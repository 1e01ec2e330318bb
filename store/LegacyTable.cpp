// SPDX-License-Identifier: MIT
#include "store/LegacyTable.h"

#include "plist/PropertyList.h"
#include "store/Files.h"
#include "text/XmlCharacters.h"

#include <algorithm>

namespace {

/// A quick test, since almost no text holds one of these bytes; U+FFFE and U+FFFF begin with the last.
bool mayHoldForbidden(std::string_view utf8)
{
    return std::ranges::any_of(utf8, [](char character) {
        const auto byte = static_cast<unsigned char>(character);
        return (byte < 0x20 && byte != '\t' && byte != '\n' && byte != '\r') || byte == 0xEF;
    });
}

Value cleaned(const Value& value)
{
    if (const std::optional<std::string_view> text = value.text()) {
        return mayHoldForbidden(*text)
                   ? Value(withoutForbiddenXmlCharacters(
                               QString::fromUtf8(text->data(), static_cast<qsizetype>(text->size())))
                               .toStdString())
                   : value;
    }
    if (const Array* array = value.array()) {
        Array elements;
        elements.reserve(array->size());
        std::ranges::transform(*array, std::back_inserter(elements), cleaned);
        return Value(std::move(elements));
    }
    if (const DictionaryView dictionary = value.dictionary()) {
        std::vector<Dictionary::Entry> entries;
        entries.reserve(dictionary.size());
        bool isClean = true;
        for (const auto& [key, entry] : dictionary) {
            entries.emplace_back(key, cleaned(entry));
            isClean = isClean && entries.back().second.isSameObject(entry);
        }
        return isClean ? value : Value(Dictionary(std::move(entries)));
    }
    return value;
}

} // namespace

std::optional<Table> readLegacyTable(const std::filesystem::path& file)
{
    std::optional<FileContent> content = readFile(file, PropertyList::maximumSize);
    std::optional<Table> table = content ? PropertyList::readTableInPlace(content->bytes()) : std::nullopt;
    if (table) {
        std::ranges::transform(*table, table->begin(), cleaned);
    }
    return table;
}
