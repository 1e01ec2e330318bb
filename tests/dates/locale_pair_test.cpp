// SPDX-License-Identifier: MIT
#include "dates/LocaleEnvironment.h"

#include <gtest/gtest.h>

#include <map>

namespace {

TEST(LocaleIdentifier, IsThatOfTheLibrarysNameWithoutItsEncoding)
{
    struct {
        const char* name;
        const char* identifier;
    } const rows[] = {
        {"de_DE.UTF-8", "de_DE"},
        {"de_DE.UTF-8@euro", "de_DE"},
        {"de_DE@euro", "de_DE"},
        {"sr_RS.UTF-8@latin", "sr_Latn_RS"},
        {"sr@latin", "sr_Latn"},
        {"uz_UZ@cyrillic", "uz_Cyrl_UZ"},
        {"ks_IN@devanagari", "ks_Deva_IN"},
        {"eo", "eo"},
        {"C", "en_US"},
        {"C.UTF-8", "en_US"},
        {"POSIX", "en_US"},
        {"", "en_US"},
        {".UTF-8", "en_US"},
        {"@euro", "en_US"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(localeIdentifier(row.name), row.identifier) << row.name;
    }
}

TEST(LocalePairFromEnvironment, TakesTheFirstVariableThatIsSet)
{
    struct {
        std::map<std::string, std::string> variables;
        LocalePair pair;
    } const rows[] = {
        {{}, {"en_US", {"en-US"}}},
        {{{"LANG", "de_AT.UTF-8"}}, {"de_AT", {"de-AT"}}},
        {{{"LANG", "de_AT.UTF-8"}, {"LC_TIME", "fr_FR.UTF-8"}}, {"fr_FR", {"de-AT"}}},
        {{{"LANG", "de_AT.UTF-8"}, {"LC_MESSAGES", "it_IT"}}, {"de_AT", {"it-IT"}}},
        {{{"LANG", "de_AT.UTF-8"}, {"LC_TIME", "fr_FR"}, {"LC_MESSAGES", "it_IT"}, {"LC_ALL", "es_MX"}},
         {"es_MX", {"es-MX"}}},
        {{{"LANG", "de_AT.UTF-8"}, {"LC_ALL", ""}, {"LC_TIME", ""}}, {"de_AT", {"de-AT"}}},
        {{{"LANG", "de_AT"}, {"LANGUAGE", "sv:pt_BR:C"}}, {"de_AT", {"sv", "pt-BR", "en-US"}}},
        {{{"LANG", "de_AT"}, {"LANGUAGE", "::nb_NO:"}}, {"de_AT", {"nb-NO"}}},
        {{{"LANG", "de_AT"}, {"LANGUAGE", ":"}}, {"de_AT", {"de-AT"}}},
        {{{"LC_ALL", "C.UTF-8"}, {"LANG", "de_AT"}}, {"en_US", {"en-US"}}},
    };
    for (const auto& row : rows) {
        const LocalePair pair = localePairFrom([&row](const char* name) {
            const auto found = row.variables.find(name);
            return found == row.variables.end() ? std::string() : found->second;
        });
        EXPECT_EQ(pair, row.pair) << ::testing::PrintToString(row.variables);
    }
}

} // namespace
