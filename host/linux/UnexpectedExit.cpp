// SPDX-License-Identifier: MIT
#include "host/linux/UnexpectedExit.h"

#include <cstdlib>
#include <thread>
#include <utility>

namespace {

std::function<void()>& handlerInForce()
{
    static std::function<void()> handler;
    return handler;
}

std::thread::id handlerThread; ///< what the handler reads belongs to this thread

void callHandler()
{
    if (std::this_thread::get_id() != handlerThread) {
        return;
    }
    if (const auto handler = std::exchange(handlerInForce(), nullptr)) {
        handler();
    }
}

} // namespace

UnexpectedExit::UnexpectedExit(std::function<void()> handler)
{
    handlerThread = std::this_thread::get_id();
    handlerInForce() = std::move(handler); // made first, so it is still there when `callHandler` runs
    [[maybe_unused]] static const int registered = std::atexit(callHandler);
}

UnexpectedExit::~UnexpectedExit()
{
    handlerInForce() = nullptr;
}
