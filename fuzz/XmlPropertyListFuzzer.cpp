// SPDX-License-Identifier: MIT
#include "fuzz/Failure.h"
#include "fuzz/RoundTrip.h"
#include "plist/PropertyListParts.h"
#include "plist/XmlOutline.h"

#include <cstddef>
#include <cstdint>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string bytes(data, data + size);
    readWriteRead(bytes);
    if (const std::optional<Array> records = PropertyList::readRecords(bytes)) {
        std::string parsed = bytes;
        if (PropertyList::readAnyXml(parsed) != Value(*records)) {
            fail("read in one pass, the list is different");
        }
    }
    // A list in the plain form is read part by part; followed by a comment, it is read as a whole.
    if (PropertyList::outlineOf(bytes, 1, bytes.size()).parts) {
        std::string inParts = bytes;
        std::string whole = bytes + "<!-- -->";
        if (PropertyList::readAnyXml(inParts, 1) != PropertyList::readAnyXml(whole)) {
            fail("read in parts, the list is different");
        }
    }
    return 0;
}
