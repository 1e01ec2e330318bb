// SPDX-License-Identifier: MIT
#pragma once

#include <Qt>

#include <string>
#include <vector>

/// Puts the program's texts in the first of `preferredLanguages` that it speaks for its lifetime; afterwards they are
/// in English again. Windows made before it keep the texts they have.
class TranslationGuard {
public:
    explicit TranslationGuard(const std::vector<std::string>& preferredLanguages);
    TranslationGuard(const TranslationGuard&) = delete;
    TranslationGuard& operator=(const TranslationGuard&) = delete;
    ~TranslationGuard();

private:
    Qt::LayoutDirection m_former;
};
