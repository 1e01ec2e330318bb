// SPDX-License-Identifier: MIT
#pragma once

#include <string>

/// Reads `bytes` as a table. What is read must come back equal when it is written and read again, but for fractions
/// of seconds and characters that XML cannot carry; whatever is written must be written the same the next time.
/// Ends the program when it is not so.
void readWriteRead(std::string bytes);
