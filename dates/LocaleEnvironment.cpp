// SPDX-License-Identifier: MIT
#include "dates/LocaleEnvironment.h"

#include "dates/DateFormatter.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <optional>

namespace {

constexpr std::string_view fallbackIdentifier = "en_US";
constexpr std::size_t mostLanguages = 64; // nobody reads more, and each one costs a search for its texts

/// The modifiers that name a script. Others, such as a currency, do not matter here.
constexpr std::array scripts{
    std::pair<std::string_view, std::string_view>{"latin", "Latn"},
    std::pair<std::string_view, std::string_view>{"cyrillic", "Cyrl"},
    std::pair<std::string_view, std::string_view>{"devanagari", "Deva"},
};

bool isNeutral(std::string_view language)
{
    return language.empty() || language == "C" || language == "POSIX";
}

std::string firstSet(const ReadEnvironment& read, std::initializer_list<const char*> names)
{
    for (const char* name : names) {
        if (std::string value = read(name); !value.empty()) {
            return value;
        }
    }
    return {};
}

/// The identifier for `posixName`; nullopt for a name that no locale can have.
std::optional<std::string> knownIdentifier(std::string_view posixName)
{
    const std::string_view base = posixName.substr(0, posixName.find_first_of(".@"));
    if (isNeutral(base)) {
        return std::string(fallbackIdentifier);
    }
    std::string identifier(base);
    if (const auto at = posixName.find('@'); at != std::string_view::npos) {
        const auto script = std::ranges::find(scripts, posixName.substr(at + 1), [](const auto& s) { return s.first; });
        if (script != scripts.end()) {
            identifier.insert(std::min(identifier.find('_'), identifier.size()),
                              std::string("_").append(script->second));
        }
    }
    return isLocaleIdentifier(identifier) ? std::optional(std::move(identifier)) : std::nullopt;
}

/// The form that the list of preferred languages has: "de-DE" for "de_DE".
std::string languageTag(std::string identifier)
{
    std::ranges::replace(identifier, '_', '-');
    return identifier;
}

/// The valid names of a colon-separated list.
std::vector<std::string> languageTags(std::string_view list)
{
    std::vector<std::string> tags;
    while (!list.empty() && tags.size() < mostLanguages) {
        const std::size_t end = std::min(list.find(':'), list.size());
        const std::string_view name = list.substr(0, end);
        if (std::optional<std::string> identifier = knownIdentifier(name); identifier && !name.empty()) {
            tags.push_back(languageTag(*std::move(identifier)));
        }
        list.remove_prefix(std::min(end + 1, list.size()));
    }
    return tags;
}

} // namespace

std::string localeIdentifier(std::string_view posixName)
{
    return knownIdentifier(posixName).value_or(std::string(fallbackIdentifier));
}

LocalePair localePairFrom(const ReadEnvironment& read)
{
    LocalePair pair;
    pair.currentLocale = localeIdentifier(firstSet(read, {"LC_ALL", "LC_TIME", "LANG"}));
    pair.preferredLanguages = languageTags(read("LANGUAGE"));
    if (pair.preferredLanguages.empty()) {
        const std::string messages = firstSet(read, {"LC_ALL", "LC_MESSAGES", "LANG"});
        pair.preferredLanguages.push_back(languageTag(localeIdentifier(messages)));
    }
    return pair;
}
