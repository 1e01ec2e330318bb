// SPDX-License-Identifier: MIT
#include "dates/PaperSize.h"

#include <gtest/gtest.h>

namespace {

constexpr PaperSize a4{.width = 210, .height = 297};
constexpr PaperSize letter{.width = 216, .height = 279};

TEST(PaperSizeOf, IsLetterInNorthAmericaAndA4ElsewhereAndWhereTheLocaleIsNotKnown)
{
    for (const char* locale : {"en_US", "en_CA", "fr_CA", "es_MX", "en_PH"}) {
        EXPECT_EQ(paperSizeOf(locale), letter) << locale;
    }
    for (const char* locale : {"de_DE", "en_GB", "fr_FR", "ja_JP", "pt_BR", "fa_IR", "xx"}) {
        EXPECT_EQ(paperSizeOf(locale), a4) << locale;
    }
}

} // namespace
