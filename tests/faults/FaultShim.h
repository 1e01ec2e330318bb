// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <optional>
#include <vector>

/// The system's calls on files, one of which fails when it is told to. A program that links this calls it in place of
/// the C library, the standard library's own calls included. Only calls for what lies in the watched folder count (and
/// those that map memory), and only those of one kind.
namespace Faults {

enum class Call {
    Open,
    Read,
    Write,
    ShortWrite, ///< a write that takes one byte, without an error
    NoWrite,    ///< a write that takes nothing, without an error
    Sync,
    Rename,
    Link,
    Unlink,
    Status, ///< the stat family
    ReadLink,
    MakeFolder,
    ListFolder,
    ChangeMode,
    ChangeOwner,
    Attribute, ///< extended attributes, access lists among them
    Lock,
    Map,
};

/// The errors with which a call of that kind may fail; a single 0 for those that fail without one. Not those that say
/// that nothing is there: who is told so has been told.
const std::vector<int>& errorsOf(Call call);
const std::vector<Call>& allCalls();
const char* nameOf(Call call);

struct Plan {
    Call call;
    int number = 1;       ///< the call that fails, from 1
    int error = 0;        ///< errno
    bool forGood = false; ///< all after it fail as well
};

/// While one lives, the calls of its folder are counted and the planned one fails. One at a time.
class Watch {
public:
    Watch(const std::filesystem::path& folder, const Plan& plan);
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;
    ~Watch();

    bool hasFired() const;
};

} // namespace Faults
