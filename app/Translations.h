// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

/// Installs the texts of the first of the `preferredLanguages` ("de-DE", "fr") that the program speaks; English needs
/// none. The text direction follows that language.
void installTranslation(const std::vector<std::string>& preferredLanguages);
