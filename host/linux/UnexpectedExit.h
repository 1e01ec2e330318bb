// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

/// Calls a function when the main thread ends the process by exit() before this object is gone, as the toolkit does
/// once the display's connection is broken. By then nothing can be shown any more; other threads still run. One at a
/// time.
class UnexpectedExit {
public:
    explicit UnexpectedExit(std::function<void()> handler);
    UnexpectedExit(const UnexpectedExit&) = delete;
    UnexpectedExit& operator=(const UnexpectedExit&) = delete;
    ~UnexpectedExit();
};
