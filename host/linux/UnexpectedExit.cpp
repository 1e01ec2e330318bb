// SPDX-License-Identifier: MIT
#include "host/linux/UnexpectedExit.h"

#include <QCoreApplication>

#include <chrono>
#include <condition_variable>
#include <cstdlib>
#include <mutex>
#include <thread>
#include <utility>

namespace {

std::function<void()>& handlerInForce()
{
    static std::function<void()> handler;
    return handler;
}

std::thread::id handlerThread; ///< the handler reads data of this thread

std::mutex mutex;
std::condition_variable handlerHasRun;
bool isHandled = false;

void callHandler()
{
    if (std::this_thread::get_id() != handlerThread) {
        return;
    }
    if (const auto handler = std::exchange(handlerInForce(), nullptr)) {
        handler();
    }
    {
        const std::lock_guard lock(mutex);
        isHandled = true;
    }
    handlerHasRun.notify_all();
}

/// Makes the handler's thread call it, and blocks the present thread, which is about to end the process, until that is
/// done.
void callHandlerFromElsewhere()
{
    constexpr std::chrono::seconds patience(10); // in case that thread never gets to it
    QMetaObject::invokeMethod(QCoreApplication::instance(), callHandler, Qt::QueuedConnection);
    std::unique_lock lock(mutex);
    handlerHasRun.wait_for(lock, patience, [] { return isHandled; });
}

QtMessageHandler formerMessageHandler = nullptr;

/// With Wayland, Qt ends the process by _exit(), perhaps on a thread of its own, and _exit() runs no exit functions.
/// The message just before is the only sign of it.
void hearMessage(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    formerMessageHandler(type, context, text);
    if (!text.startsWith(QLatin1String("The Wayland connection "))) {
        return;
    }
    if (std::this_thread::get_id() == handlerThread) {
        callHandler();
    } else if (QCoreApplication::instance()) {
        callHandlerFromElsewhere();
    }
}

} // namespace

UnexpectedExit::UnexpectedExit(std::function<void()> handler)
{
    handlerThread = std::this_thread::get_id();
    handlerInForce() = std::move(handler); // created before atexit, so that it still exists when `callHandler` runs
    [[maybe_unused]] static const int registered = std::atexit(callHandler);
    formerMessageHandler = qInstallMessageHandler(hearMessage);
}

UnexpectedExit::~UnexpectedExit()
{
    qInstallMessageHandler(formerMessageHandler);
    handlerInForce() = nullptr;
}
