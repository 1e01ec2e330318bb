// SPDX-License-Identifier: MIT
#include "fuzz/Failure.h"
#include "text/VersionText.h"

#include <unicode/ustring.h>

#include <cstddef>
#include <cstdint>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

bool isUtf8(const QByteArray& bytes)
{
    UErrorCode status = U_ZERO_ERROR;
    int32_t length = 0;
    u_strFromUTF8(nullptr, 0, &length, bytes.constData(), static_cast<int32_t>(bytes.size()), &status);
    return status == U_BUFFER_OVERFLOW_ERROR || U_SUCCESS(status);
}

} // namespace

/// The server's file: it must be accepted exactly when it is UTF-8, unchanged, and be ordered by its code units.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray file(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const std::optional<QString> told = VersionText::fromFile(file);
    if (told.has_value() != isUtf8(file)) {
        fail("wrongly accepted or refused as UTF-8");
    }
    if (!told) {
        return 0;
    }
    if (told->toUtf8() != file) {
        fail("the text has changed");
    }
    for (const char16_t* own : {u"", u"1.0", u"2.3"}) {
        const QString version = QString::fromUtf16(own);
        if (VersionText::isNewer(*told, version) != (told->toStdU16String() > own) ||
            VersionText::isNewer(version, *told) != (told->toStdU16String() < own)) {
            fail("not in the order of the code units");
        }
    }
    return 0;
}
