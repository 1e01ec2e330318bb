// SPDX-License-Identifier: MIT
#include "reminders/StateFolder.h"

std::filesystem::path stateFolder(const std::string& stateHome, const std::filesystem::path& home)
{
    const std::filesystem::path given(stateHome);
    return (given.is_absolute() ? given : home / ".local" / "state") / "velumora";
}

std::filesystem::path reminderFile(const std::filesystem::path& stateFolder)
{
    return stateFolder / "Reminders";
}
