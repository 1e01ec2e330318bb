// SPDX-License-Identifier: MIT
#pragma once

#include <cstdlib>
#include <iostream>

/// Aborts the program, which makes the fuzzer keep the input.
[[noreturn]] inline void fail(const char* why)
{
    std::cerr << why << '\n';
    std::abort();
}
