// SPDX-License-Identifier: MIT
#include "host/linux/TerminationSignals.h"

#include <QSignalSpy>
#include <gtest/gtest.h>

#include <csignal>

namespace {

void (*handlerOf(int signal))(int)
{
    struct sigaction action {};
    sigaction(signal, nullptr, &action);
    return action.sa_handler;
}

TEST(TerminationSignals, EachAsksOnceForTheEnd)
{
    TerminationSignals signals;
    signals.listen();
    QSignalSpy asked(&signals, &TerminationSignals::terminationRequested);
    int count = 0;
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        std::raise(signal);
        EXPECT_TRUE(asked.wait(1000)) << signal;
        EXPECT_EQ(asked.count(), ++count) << signal;
    }
}

TEST(TerminationSignals, OneThatComesBeforeTheEventLoopIsHeardThen)
{
    TerminationSignals signals;
    std::raise(SIGTERM);
    signals.listen();
    QSignalSpy asked(&signals, &TerminationSignals::terminationRequested);
    EXPECT_TRUE(asked.wait(1000));
}

TEST(TerminationSignals, AreNotBlockedForProgramsThatThisOneStarts)
{
    TerminationSignals signals;
    signals.listen();
    sigset_t blocked;
    pthread_sigmask(SIG_BLOCK, nullptr, &blocked);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        EXPECT_EQ(sigismember(&blocked, signal), 0) << signal;
    }
}

TEST(TerminationSignals, AnIgnoredSignalStaysIgnoredAndTheOthersAreAsBeforeAtTheEnd)
{
    std::signal(SIGHUP, SIG_IGN);
    {
        const TerminationSignals signals;
        EXPECT_EQ(handlerOf(SIGHUP), SIG_IGN);
        EXPECT_NE(handlerOf(SIGTERM), SIG_DFL);
    }
    EXPECT_EQ(handlerOf(SIGHUP), SIG_IGN);
    EXPECT_EQ(handlerOf(SIGTERM), SIG_DFL);
    std::signal(SIGHUP, SIG_DFL);
}

} // namespace
