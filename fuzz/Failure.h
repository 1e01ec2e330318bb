// SPDX-License-Identifier: MIT
#pragma once

#include <cstdlib>
#include <iostream>

/// Ends the program, which has the fuzzer keep the input.
[[noreturn]] inline void fail(const char* why)
{
    std::cerr << why << '\n';
    std::abort();
}
