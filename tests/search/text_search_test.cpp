// SPDX-License-Identifier: MIT
#include "search/FoldSources.h"
#include "search/TextFolding.h"
#include "search/TextSearch.h"

#include <gtest/gtest.h>
#include <unicode/unistr.h>

#include <random>
#include <string>
#include <vector>

namespace {

std::string utf8(std::u32string_view text)
{
    std::string result;
    for (const char32_t character : text) {
        icu::UnicodeString(static_cast<UChar32>(character)).toUTF8String(result);
    }
    return result;
}

bool containsByDefinition(const std::string& text, const std::string& needle, const std::string& locale)
{
    const Folding folding = foldingForLocale(locale);
    return containsFolded(text, foldedText(icu::UnicodeString::fromUTF8(needle), folding), folding);
}

struct Row {
    const char* what;
    std::u32string needle;
    std::u32string text;
    bool contained;
    const char* locale = "en_US";
};

// Worked by hand from the Unicode Standard: CaseFolding.txt, SpecialCasing.txt, UnicodeData.txt and UAX #29.
const Row rows[] = {
    {"empty needle", U"", U"abc", false},
    {"empty needle, empty text", U"", U"", false},
    {"empty text", U"a", U"", false},
    {"same case", U"abc", U"abc", true},
    {"needle in capitals", U"ABC", U"abc", true},
    {"text in capitals", U"abc", U"xxABCxx", true},
    {"one letter more", U"abcd", U"abc", false},
    {"letters apart", U"abc", U"ab c", false},
    {"at the beginning", U"ab", U"abx", true},
    {"at the end", U"ab", U"xab", true},
    {"punctuation is no letter in another case", U"[", U"{", false},
    {"at sign is no grave accent", U"@", U"`", false},
    {"digits and spaces", U"12 5", U"on 12 5", true},

    {"sharp s in the text", U"STRASSE", U"straße", true},
    {"sharp s in the needle", U"straße", U"STRASSE", true},
    {"capital sharp s", U"strasse", U"STRAẞE", true},
    {"half a sharp s", U"stras", U"straße", false},
    {"one s in sharp s", U"s", U"ß", false},
    {"one and a half sharp s", U"sss", U"ßß", false},
    {"sharp s and s", U"sss", U"ßs", true},
    {"long s", U"is", U"i\u017F", true},
    {"kelvin sign", U"k", U"\u212A", true},
    {"kelvin sign in the needle", U"\u212A", U"k", true},
    {"angstrom sign", U"\u00E5", U"\u212B", true},
    {"ligature fi", U"fi", U"\uFB01", true},
    {"ligature fi within a word", U"office", U"o\uFB03ce", true},
    {"half a ligature", U"f", U"\uFB01", false},
    {"ligature st", U"first", U"fir\uFB06", true},
    {"needle ligature", U"\uFB01", U"FI", true},
    {"n with apostrophe", U"\u02BCn", U"\u0149", true},
    {"j with caron", U"\u01F0", U"J\u030C", true},

    {"precomposed in decomposed", U"\u00E9", U"e\u0301", true},
    {"decomposed in precomposed", U"e\u0301", U"\u00E9", true},
    {"capital precomposed in decomposed", U"\u00C9", U"e\u0301", true},
    {"bare letter in decomposed", U"e", U"e\u0301", false},
    {"bare letter in precomposed", U"e", U"\u00E9", false},
    {"marked letter in bare", U"\u00E9", U"e", false},
    {"another mark", U"\u00E9", U"\u00E8", false},
    {"fewer marks", U"\u00E9", U"e\u0301\u0323", false},
    {"marks in another order", U"\u1EA1\u0302", U"A\u0302\u0323", true},
    {"same class keeps its order", U"a\u0301\u0300", U"a\u0300\u0301", false},
    {"mark alone within a character", U"\u0301", U"e\u0301", false},
    {"mark at the end of the word", U"cafe", U"cafe\u0301", false},
    {"mark after the word's end", U"cafe", U"cafe \u0301", true},
    {"mark before the word", U"cafe", U"x\u0301cafe", true},
    {"umlaut", U"\u00E4rger", U"\u00C4RGER", true},
    {"umlaut decomposed", U"\u00E4rger", U"Viel A\u0308rger!", true},
    {"no umlaut", U"\u00E4rger", U"arger", false},
    {"the word after an umlaut", U"ber", U"\u00FCber", true},

    {"sigma, all capitals", U"ΣΊΣΥΦΟΣ", U"ο σίσυφος", true},
    {"final sigma in the needle", U"σίσυφος", U"ΣΊΣΥΦΟΣ", true},
    {"iota below", U"\u1FB3", U"\u03B1\u0345", true},
    {"iota below is folded to iota", U"\u03B1\u03B9", U"\u1FB3", true},
    {"iota below moves behind accents", U"\u03B1\u0301\u03B9", U"\u1FB3\u0301", true},
    {"iota alone", U"\u0399", U"και", true},
    {"ohm sign", U"ω", U"\u2126", true},
    {"micro sign", U"μ", U"\u00B5", true},
    {"cyrillic", U"привет", U"Скажи ПРИВЕТ миру", true},
    {"cyrillic short i", U"\u0439", U"\u0418\u0306", true},
    {"cyrillic i is not short i", U"\u0438", U"\u0439", false},
    {"cherokee", U"\uAB70", U"\u13A0", true},
    {"deseret, beyond 16 bits", U"\U00010428", U"\U00010400", true},

    {"dotted capital I in English is i and a dot", U"istanbul", U"İstanbul", false},
    {"dotted capital I in English spelled out", U"i\u0307stanbul", U"İstanbul", true},
    {"capital I in English", U"izmir", U"IZMIR", true},
    {"dotless i in English", U"i", U"ı", false},
    {"dotted capital I in Turkish", U"istanbul", U"İstanbul", true, "tr_TR"},
    {"dotted capital I decomposed in Turkish", U"istanbul", U"I\u0307stanbul", true, "tr_TR"},
    {"needle with dotted capital I in Turkish", U"İSTANBUL", U"istanbul", true, "tr_TR"},
    {"capital I in Turkish is not i", U"istanbul", U"Istanbul", false, "tr_TR"},
    {"capital I in Turkish is dotless", U"ılık", U"ILIK", true, "tr_TR"},
    {"i alone in Turkish", U"i", U"İ", true, "tr_TR"},
    {"i alone is not I in Turkish", U"i", U"I", false, "tr_TR"},
    {"dot behind another mark above in Turkish", U"i\u0301", U"I\u0301\u0307", false, "tr_TR"},
    {"dot behind a mark below in Turkish", U"i\u0323", U"I\u0323\u0307", true, "tr_TR"},
    {"Azeri as Turkish", U"istanbul", U"İstanbul", true, "az_Latn_AZ"},
    {"other letters in Turkish", U"şeker", U"ŞEKER", true, "tr_TR"},

    {"Japanese", U"日本", U"今日は日本へ", true},
    {"Japanese, other order", U"日本", U"本日", false},
    {"compatibility ideograph", U"\u8C48", U"\uF900", true},
    {"kana with voiced mark", U"\u304C", U"\u304B\u3099", true},
    {"kana without voiced mark", U"\u304B", U"\u304C", false},
    {"hiragana is not katakana", U"か", U"カ", false},
    {"Hangul syllable", U"한국", U"대한민국 한국어", true},
    {"Hangul in jamo", U"\uD55C", U"\u1112\u1161\u11AB", true},
    {"jamo in Hangul", U"\u1112\u1161\u11AB", U"\uD55C", true},
    {"half a syllable", U"\uD558", U"\uD55C", false},
    {"leading jamo of a syllable", U"\u1112", U"\uD55C", false},
    {"syllable and trailing jamo", U"\uD55C", U"\uD558\u11AB", true},

    {"emoji", U"🎉", U"party 🎉!", true},
    {"one of a joined family", U"\U0001F468", U"\U0001F468\u200D\U0001F469\u200D\U0001F467", false},
    {"a joined family", U"\U0001F468\u200D\U0001F469", U"a \U0001F468\u200D\U0001F469 b", true},
    {"part of a joined family", U"\U0001F468\u200D\U0001F469", U"\U0001F468\u200D\U0001F469\u200D\U0001F467", false},
    {"emoji without its skin tone", U"\U0001F44D", U"\U0001F44D\U0001F3FD", false},
    {"half a flag", U"\U0001F1E9", U"\U0001F1E9\U0001F1EA", false},
    {"flags do not slip", U"\U0001F1EA\U0001F1E9", U"\U0001F1E9\U0001F1EA\U0001F1E9\U0001F1EA", false},
    {"consonant of a Devanagari syllable", U"\u0915", U"\u0915\u093F", false},
    {"line feed of a CR LF", U"\n", U"a\r\nb", false},
    {"line feed", U"a\nb", U"A\nB", true},
    {"zero character", std::u32string(1, U'\0'), U"abc", false},
    {"zero character found", std::u32string(1, U'\0'), std::u32string(U"a\0b", 3), true},
};

TEST(TextSearch, FindsTextsAsTheStandardSays)
{
    for (const Row& row : rows) {
        EXPECT_EQ(TextSearch(utf8(row.needle), row.locale).isContainedIn(utf8(row.text)), row.contained) << row.what;
        EXPECT_EQ(containsByDefinition(utf8(row.text), utf8(row.needle), row.locale), row.contained)
            << row.what << ", by definition";
    }
}

TEST(TextSearch, FindsThemAtEveryPlaceOfALongText)
{
    for (const Row& row : rows) {
        for (std::size_t before = 0; before < 140; before += 9) {
            const std::string text = std::string(before, '-') + '_' + utf8(row.text) + '_' + std::string(70, '-');
            EXPECT_EQ(TextSearch(utf8(row.needle), row.locale).isContainedIn(text), row.contained)
                << row.what << " behind " << before;
        }
    }
}

TEST(TextSearch, TakesMalformedBytesForReplacementCharacters)
{
    struct {
        std::string needle;
        std::string text;
        bool contained;
    } const malformed[] = {
        {"\xFF", "abc", false},
        {"\xFF", "a\xFF", true},
        {"\xFF", "a\xEF\xBF\xBD", true},
        {"\xEF\xBF\xBD", "a\xFF", true},
        {"ab\xC3", "ab\xC3", true},
        {"ab",
         "\xC3"
         "ab\xE6\x97",
         true},
        {"\xE6\x97\xA5", "\xE6\xE6\x97\xA5", true},
        {"\xA5", "\xE6\x97\xA5", false},
        {"\xE6\x97\xA5", "\xE6\x97", false},
    };
    for (const auto& row : malformed) {
        EXPECT_EQ(TextSearch(row.needle, "en_US").isContainedIn(row.text), row.contained)
            << testing::PrintToString(row.needle) << " in " << testing::PrintToString(row.text);
    }
}

TEST(TextSearch, ReadsNothingBehindTheText)
{
    const std::string whole(200, 'a');
    const TextSearch search("ab", "en_US");
    for (std::size_t size = 0; size < 150; ++size) {
        std::string behind = whole;
        behind[size] = 'b';
        EXPECT_FALSE(search.isContainedIn(std::string_view(behind).substr(0, size)));
        EXPECT_EQ(search.isContainedIn(std::string_view(behind).substr(0, size + 1)), size > 0);
    }
}

// Characters that fold, compose, join or stand beside those that do.
const std::u32string alphabet =
    U"aAeEiIkKsStTfFlLnNjJ xyz.\n\r;`019"
    U"\u0131\u0130\u017F\u212A\u212B\u00DF\u1E9E\uFB00\uFB01\uFB02\uFB03\uFB04\uFB05\uFB06"
    U"\u0149\u01F0\u1E96\u1E97\u1E98\u1E99\u1E9A\u02BC\u02BE\u00E4\u00C4\u00E9\u00C9\u00EC\u00CC"
    U"\u0300\u0301\u0307\u0308\u030C\u0323\u0345\u0338\u200D\u200C\uFE0F\u0600\u00AD\u037E\u1FEF"
    U"\u03B1\u0391\u03B9\u0399\u1FB3\u1FB4\u1FBE\u1F80\u03C3\u03C2\u03A3\u0390\u00B5\u03BC\u2126"
    U"\u0438\u0439\u0418\u0419\u1C80\u0432\u0412\u65E5\u672C\u8C48\uF900\u304B\u304C\u3099"
    U"\uD558\uD55C\u1112\u1161\u11AB\u0915\u093F\u094D\u09CB\u09C7\u09BE\u0344\u0F73\u0F71"
    U"\U0001F468\U0001F469\U0001F3FD\U0001F1E9\U0001F1EA\U0001D15E\U00010400\U00010428\uFFFD";

class RandomText {
public:
    explicit RandomText(unsigned seed) : m_random(seed) {}

    std::size_t below(std::size_t bound) { return std::uniform_int_distribution<std::size_t>(0, bound - 1)(m_random); }

    std::string ofFew(const std::u32string& letters, std::size_t longest)
    {
        std::u32string text;
        for (std::size_t left = below(longest + 1); left > 0; --left) {
            text += letters[below(letters.size())];
        }
        return utf8(text);
    }

    // Few different characters, so that matches and near matches are common.
    std::u32string letters()
    {
        std::u32string some;
        for (std::size_t left = 1 + below(7); left > 0; --left) {
            some += alphabet[below(alphabet.size())];
        }
        return some;
    }

private:
    std::mt19937 m_random;
};

TEST(TextSearch, AnswersAsTheDefinitionForRandomTexts)
{
    RandomText random(20240229);
    int found = 0;
    for (int round = 0; round < 30'000; ++round) {
        const std::u32string letters = random.letters();
        const std::string needle = random.ofFew(letters, 4);
        const std::string text = random.ofFew(letters, 40);
        const char* locale = round % 3 == 0 ? "tr_TR" : "en_US";
        const bool expected = containsByDefinition(text, needle, locale);
        found += expected ? 1 : 0;
        ASSERT_EQ(TextSearch(needle, locale).isContainedIn(text), expected)
            << locale << ' ' << testing::PrintToString(needle) << " in " << testing::PrintToString(text);
    }
    EXPECT_GT(found, 3'000); // the texts try both answers
    EXPECT_LT(found, 27'000);
}

TEST(TextSearch, AnswersAsTheDefinitionForRandomBytes)
{
    RandomText random(19700101);
    for (int round = 0; round < 5'000; ++round) {
        std::string text = random.ofFew(random.letters(), 40);
        std::string needle = text.substr(random.below(text.size() + 1), 1 + random.below(6));
        if (!text.empty()) {
            text[random.below(text.size())] = static_cast<char>(random.below(256));
        }
        ASSERT_EQ(TextSearch(needle, "en_US").isContainedIn(text), containsByDefinition(text, needle, "en_US"))
            << testing::PrintToString(needle) << " in " << testing::PrintToString(text);
    }
}

TEST(TextSearch, FindsEveryCharacterByWhatItFoldsTo)
{
    for (char32_t character = 1; character < 0x30000; ++character) {
        if ((character >= 0xD800 && character <= 0xDFFF) || character == 0xFFFD) {
            continue;
        }
        const std::string text = utf8(std::u32string{U'(', character, U')'});
        icu::UnicodeString folded = foldedText(icu::UnicodeString(static_cast<UChar32>(character)), {});
        if (folded == icu::UnicodeString(static_cast<UChar32>(character))) {
            continue; // nothing to spell in another way
        }
        std::string needle;
        folded.toUTF8String(needle);
        ASSERT_EQ(TextSearch(needle, "en_US").isContainedIn(text), containsByDefinition(text, needle, "en_US"))
            << "U+" << std::hex << static_cast<std::uint32_t>(character);
    }
}

} // namespace
