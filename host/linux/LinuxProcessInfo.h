// SPDX-License-Identifier: MIT
#pragma once

#include "host/ProcessInfo.h"

/// The host layer offers the services of release 10.15.
class LinuxProcessInfo : public ProcessInfo {
public:
    SystemVersion operatingSystemVersion() const override { return {.major = 10, .minor = 15}; }
};
