// SPDX-License-Identifier: MIT
#include "dates/PaperSize.h"

#include <unicode/ulocdata.h>

PaperSize paperSizeOf(const std::string& locale)
{
    constexpr PaperSize a4{.width = 210, .height = 297};
    PaperSize size;
    UErrorCode status = U_ZERO_ERROR;
    ulocdata_getPaperSize(locale.c_str(), &size.height, &size.width, &status);
    return U_SUCCESS(status) ? size : a4;
}
