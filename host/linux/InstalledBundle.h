// SPDX-License-Identifier: MIT
#pragma once

#include "host/Bundle.h"

/// Finds files relative to the program: in the install prefix when it runs from there, else through the link
/// "velumora-resources" beside it, which a build creates and an installation omits.
class InstalledBundle : public Bundle {
public:
    QString shortVersionString() const override;
    std::optional<std::filesystem::path> localizationFolder(const QString& language) const override;
};
