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

/// 'NOTE' for exactly the notes file's name, 'DATE' for every other name.
FourCharacterCode typeCodeOf(std::string_view fileName);

/// Sets the type and creator codes of `file` in the extended attribute in which file servers pass them on: 32 bytes, of
/// which the first eight are type and creator in big-endian order and the others stay as they were. Does nothing when
/// the file system has no such attributes or the file does not exist.
void stampFile(const std::filesystem::path& file, FourCharacterCode type, FourCharacterCode creator);
