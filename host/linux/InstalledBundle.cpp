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
    const std::array roots{program.parent_path() / "share" / "velumora",
                           std::filesystem::path(VELUMORA_SOURCE_DIR) / "resources"};
    for (const std::filesystem::path& root : roots) {
        std::filesystem::path folder = root / (language.toStdString() + ".lproj");
        std::error_code ignored;
        if (std::filesystem::is_directory(folder, ignored)) {
            return folder;
        }
    }
    return std::nullopt;
}
