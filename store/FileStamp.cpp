// SPDX-License-Identifier: MIT
#include "store/FileStamp.h"

#include "store/Record.h"

#include <QtEndian>

#include <array>

#include <sys/xattr.h>

namespace {

constexpr const char* finderInfo = "user.com.apple.FinderInfo";

} // namespace

FourCharacterCode typeCodeOf(std::string_view fileName)
{
    return fileName == NotesFileName ? NotesTypeCode : EventsTypeCode;
}

void stampFile(const std::filesystem::path& file, FourCharacterCode type, FourCharacterCode creator)
{
    std::array<unsigned char, 32> info{};
    if (getxattr(file.c_str(), finderInfo, info.data(), info.size()) != static_cast<ssize_t>(info.size())) {
        info = {};
    }
    qToBigEndian(type, info.data());
    qToBigEndian(creator, info.data() + sizeof type);
    (void)setxattr(file.c_str(), finderInfo, info.data(), info.size(), 0);
}
