// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>

/// The number at the start of `text`: optional blanks, an optional sign, then decimal digits of any script ("٢٠٢٤" is
/// 2024). What follows is ignored. 0 when there are no digits; a number beyond the range of int is clamped to it.
int integerValue(QStringView text);
