// SPDX-License-Identifier: MIT
#pragma once

#include "dates/Clock.h"

/// A clock that stands still until it is told to move.
class FixedClock final : public Clock {
public:
    explicit FixedClock(Date now = {}) : m_now(now) {}

    Date now() const override { return m_now; }
    void set(Date now) { m_now = now; }
    void advance(Date::duration step) { m_now += step; }

private:
    Date m_now;
};
