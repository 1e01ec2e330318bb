// SPDX-License-Identifier: MIT
#include "host/linux/LocaleEnvironment.h"

#include <algorithm>
#include <array>
#include <initializer_list>

namespace {

constexpr std::string_view fallbackIdentifier = "en_US";

/// Modifiers that name a script; the others (a currency, say) do not matter here.
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

/// A language as the list of preferred languages writes it: "de_DE.UTF-8" is "de-DE".
std::string languageTag(std::string_view posixName)
{
    std::string tag = localeIdentifier(posixName);
    std::ranges::replace(tag, '_', '-');
    return tag;
}

} // namespace

std::string localeIdentifier(std::string_view posixName)
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
    return identifier;
}

LocalePair localePairFrom(const ReadEnvironment& read)
{
    LocalePair pair;
    pair.currentLocale = localeIdentifier(firstSet(read, {"LC_ALL", "LC_TIME", "LANG"}));

    const std::string messages = firstSet(read, {"LC_ALL", "LC_MESSAGES", "LANG"});
    pair.preferredLanguages.clear();
    if (const std::string list = read("LANGUAGE"); !list.empty()) {
        for (std::string_view rest = list; !rest.empty();) {
            const std::size_t colon = rest.find(':');
            if (const std::string_view name = rest.substr(0, colon); !name.empty()) {
                pair.preferredLanguages.push_back(languageTag(name));
            }
            rest.remove_prefix(colon == std::string_view::npos ? rest.size() : colon + 1);
        }
    }
    if (pair.preferredLanguages.empty()) {
        pair.preferredLanguages.push_back(languageTag(messages));
    }
    return pair;
}
