// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <string_view>

/// Four ASCII characters, the first in the highest byte.
using FourCharacterCode = std::uint32_t;

inline constexpr FourCharacterCode NotesTypeCode = 0x4E4F5445;  ///< 'NOTE'
inline constexpr FourCharacterCode EventsTypeCode = 0x44415445; ///< 'DATE'
inline constexpr FourCharacterCode CreatorCode = 0x56656C31;    ///< 'Vel1'

/// 'NOTE' for exactly the notes file's name, 'DATE' for every other.
FourCharacterCode typeCodeOf(std::string_view fileName);

/// Sets the type and creator codes of `file`. They are kept in the extended attribute in which file servers carry them:
/// 32 bytes, type and creator big-endian in the first eight, the others as they were. Where the file system has no such
/// attributes, or the file is not there, nothing happens.
void stampFile(const std::filesystem::path& file, FourCharacterCode type, FourCharacterCode creator);
