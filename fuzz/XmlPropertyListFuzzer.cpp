// SPDX-License-Identifier: MIT
#include "fuzz/RoundTrip.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    readWriteRead(std::string(data, data + size));
    return 0;
}
