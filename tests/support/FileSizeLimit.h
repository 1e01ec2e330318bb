// SPDX-License-Identifier: MIT
#pragma once

#include <csignal>

#include <sys/resource.h>

/// Lets no file grow beyond `bytes`: a write stops in the middle, as on a full disk.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes) : m_handler(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &m_old);
        const rlimit limited{bytes, m_old.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limited);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;
    ~FileSizeLimit()
    {
        setrlimit(RLIMIT_FSIZE, &m_old);
        (void)std::signal(SIGXFSZ, m_handler);
    }

private:
    void (*m_handler)(int);
    rlimit m_old{};
};
