// SPDX-License-Identifier: MIT
#pragma once

#include "plist/Value.h"

#include <string>

/// Whether an XML property list may keep all of `value`: no fraction of a second, no character that XML cannot carry.
bool isCarriedByXml(const Value& value);

/// Reads `bytes` as a table. What is read must come back equal when it is written and read again, but for fractions
/// of seconds and characters that XML cannot carry; whatever is written must be written the same the next time.
/// Ends the program when it is not so.
void readWriteRead(std::string bytes);
