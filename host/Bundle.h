// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <filesystem>
#include <optional>

/// The files that are installed with the program.
class Bundle {
public:
    Bundle() = default;
    Bundle(const Bundle&) = delete;
    Bundle& operator=(const Bundle&) = delete;
    virtual ~Bundle() = default;

    /// The running version, for example "1.0".
    virtual QString shortVersionString() const = 0;

    /// The folder "<language>.lproj", where `language` is a lower-case language code; nullopt when there is none.
    virtual std::optional<std::filesystem::path> localizationFolder(const QString& language) const = 0;
};
