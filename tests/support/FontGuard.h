// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <QFont>

/// Gives the program a font of that size, and family where one is named, for its lifetime.
class FontGuard {
public:
    explicit FontGuard(int pixelSize, const QString& family = {}) : m_former(QApplication::font())
    {
        QFont font = m_former;
        font.setPixelSize(pixelSize);
        if (!family.isEmpty()) {
            font.setFamily(family);
        }
        QApplication::setFont(font);
    }
    FontGuard(const FontGuard&) = delete;
    FontGuard& operator=(const FontGuard&) = delete;
    ~FontGuard() { QApplication::setFont(m_former); }

private:
    QFont m_former;
};
