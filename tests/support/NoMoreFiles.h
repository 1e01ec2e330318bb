// SPDX-License-Identifier: MIT
#pragma once

#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

/// The process can open nothing while this lives; what it has open stays so.
class NoMoreFiles {
public:
    NoMoreFiles()
    {
        getrlimit(RLIMIT_NOFILE, &m_old);
        const int next = ::dup(STDERR_FILENO); // the lowest free number
        ::close(next);
        const rlimit limited{static_cast<rlim_t>(next), m_old.rlim_max};
        setrlimit(RLIMIT_NOFILE, &limited);
    }
    NoMoreFiles(const NoMoreFiles&) = delete;
    NoMoreFiles& operator=(const NoMoreFiles&) = delete;
    ~NoMoreFiles() { setrlimit(RLIMIT_NOFILE, &m_old); }

private:
    rlimit m_old{};
};
