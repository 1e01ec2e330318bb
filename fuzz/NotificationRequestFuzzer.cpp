// SPDX-License-Identifier: MIT
#include "fuzz/Failure.h"
#include "fuzz/RoundTrip.h"
#include "reminders/NotificationRequestFormat.h"
#include "reminders/TriggerMoment.h"

#include <cmath>
#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

/// What arrives on the bus: a request that is accepted must have a moment and, written and read again, be the same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace NotificationRequestFormat;
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const std::optional<NotificationRequest> request = requestFromBytes(bytes);
    if (!request) {
        return 0;
    }
    if (!std::isfinite(unixSeconds(momentOf(request->trigger)))) {
        fail("a request without a moment");
    }
    const std::optional<NotificationRequest> again = requestFromBytes(bytesOf(*request).value());
    if (!again) {
        fail("what was written cannot be read");
    }
    if (isCarriedByXml(valueOf(*request)) && *again != *request) {
        fail("what was written reads back differently");
    }
    return 0;
}
