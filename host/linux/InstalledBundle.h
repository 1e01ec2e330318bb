// SPDX-License-Identifier: MIT
#pragma once

#include "host/Bundle.h"

/// Files beside the program: in the install prefix when it runs from there; else where the link "velumora-resources"
/// beside it leads, which a build makes and an installation leaves out.
class InstalledBundle : public Bundle {
public:
    QString shortVersionString() const override;
    std::optional<std::filesystem::path> localizationFolder(const QString& language) const override;
};
