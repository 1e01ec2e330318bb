// SPDX-License-Identifier: MIT
#pragma once

/// Information about the system on which the process runs.
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

    /// The release whose services the host offers; 0 and 0 when unknown.
    virtual SystemVersion operatingSystemVersion() const = 0;
};
