// SPDX-License-Identifier: MIT
#pragma once

#include "host/Bundle.h"

/// Files beside the program: in the install prefix when it runs from there, else in the source tree it was built from.
class InstalledBundle : public Bundle {
public:
    QString shortVersionString() const override;
    std::optional<std::filesystem::path> localizationFolder(const QString& language) const override;
};
