// SPDX-License-Identifier: MIT
#pragma once

#include "plist/Value.h"

#include <string>

/// Whether an XML property list can represent all of `value`: no fractions of a second, no characters that XML lacks.
bool isCarriedByXml(const Value& value);

/// Reads `bytes` as a table and aborts the program unless the table, written and read again, is equal (except for
/// fractions of a second and characters that XML cannot represent) and is written the same the next time.
void readWriteRead(std::string bytes);
