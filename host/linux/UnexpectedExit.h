// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

/// Calls a function when the process ends while this object exists: by exit() on the main thread, or because Qt reports
/// that the connection to the display is broken, after which it ends the process at once. Nothing can be shown by then,
/// but other threads still run. Only one object may exist at a time.
class UnexpectedExit {
public:
    explicit UnexpectedExit(std::function<void()> handler);
    UnexpectedExit(const UnexpectedExit&) = delete;
    UnexpectedExit& operator=(const UnexpectedExit&) = delete;
    ~UnexpectedExit();
};
