// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>

/// The number that `text` begins with: blanks, then a sign or none, then decimal digits of any script ("٢٠٢٤" is 2024);
/// what follows them is ignored. 0 when there is no digit there. A number beyond the range of int gives the nearest
/// int.
int integerValue(QStringView text);
