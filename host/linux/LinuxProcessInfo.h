// SPDX-License-Identifier: MIT
#pragma once

#include "host/ProcessInfo.h"

/// Reports 10.15, the release whose services the host offers.
class LinuxProcessInfo : public ProcessInfo {
public:
    SystemVersion operatingSystemVersion() const override { return {.major = 10, .minor = 15}; }
};
