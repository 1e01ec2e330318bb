// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <filesystem>

#include <sys/fsuid.h>
#include <unistd.h>

/// Makes this thread meet file permissions as an ordinary user does, also where the tests run as root.
class OrdinaryUser {
public:
    OrdinaryUser() { set(nobody); }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;
    ~OrdinaryUser() { set(0); }

    /// Gives `path` to the user that this guard acts as.
    static void own(const std::filesystem::path& path)
    {
        if (geteuid() == 0) {
            ASSERT_EQ(::chown(path.c_str(), nobody, nobody), 0);
        }
    }

private:
    static constexpr uid_t nobody = 65534;

    static void set(uid_t user)
    {
        if (geteuid() == 0) {
            setfsgid(user);
            setfsuid(user);
        }
    }
};
