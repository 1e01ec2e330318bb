// SPDX-License-Identifier: MIT
#include "host/linux/InstalledBundle.h"

#include <QCoreApplication>

#include <array>

QString InstalledBundle::shortVersionString() const
{
    return QStringLiteral(VELUMORA_VERSION);
}

std::optional<std::filesystem::path> InstalledBundle::localizationFolder(const QString& language) const
{
    const std::filesystem::path program = QCoreApplication::applicationDirPath().toStdString();
    std::error_code ignored; // an empty path is not a folder
    const std::array roots{program.parent_path() / "share" / "velumora",
                           std::filesystem::read_symlink(program / "velumora-resources", ignored)};
    for (const std::filesystem::path& root : roots) {
        std::filesystem::path folder = root / (language.toStdString() + ".lproj");
        if (!root.empty() && std::filesystem::is_directory(folder, ignored)) {
            return folder;
        }
    }
    return std::nullopt;
}
