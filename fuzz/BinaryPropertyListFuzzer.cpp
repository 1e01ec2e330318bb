// SPDX-License-Identifier: MIT
#include "fuzz/RoundTrip.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

/// Adds the header, so that every input reaches the binary reader.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    readWriteRead("bplist00" + std::string(data, data + size));
    return 0;
}
