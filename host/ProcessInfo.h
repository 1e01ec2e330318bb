// SPDX-License-Identifier: MIT
#pragma once

/// What the process knows of the system that it runs on.
class ProcessInfo {
public:
    struct SystemVersion {
        int major = 0;
        int minor = 0;
    };

    ProcessInfo() = default;
    ProcessInfo(const ProcessInfo&) = delete;
    ProcessInfo& operator=(const ProcessInfo&) = delete;
    virtual ~ProcessInfo() = default;

    /// The release whose services the host offers; both numbers 0 when it is not known.
    virtual SystemVersion operatingSystemVersion() const = 0;
};
