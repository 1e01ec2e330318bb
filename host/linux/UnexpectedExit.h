// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

/// Calls a function when the main thread ends the process before this object is gone: by exit(), or because the
/// toolkit says that the display's connection is broken, after which it ends the process at once. By then nothing can
/// be shown any more; other threads still run. One at a time.
class UnexpectedExit {
public:
    explicit UnexpectedExit(std::function<void()> handler);
    UnexpectedExit(const UnexpectedExit&) = delete;
    UnexpectedExit& operator=(const UnexpectedExit&) = delete;
    ~UnexpectedExit();
};
