// SPDX-License-Identifier: MIT
#pragma once

#include <string>

/// An upright sheet of paper, in millimetres.
struct PaperSize {
    int width = 0;
    int height = 0;

    bool operator==(const PaperSize&) const = default;
};

/// The usual paper of the locale's country: Letter in the United States, Canada and some others, else A4.
PaperSize paperSizeOf(const std::string& locale);
