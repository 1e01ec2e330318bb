// SPDX-License-Identifier: MIT
#pragma once

#include <QFontDatabase>
#include <QList>
#include <QStringList>

/// Fonts for the scripts of the test set, whatever else the tests run with: those of Debian's fonts-noto-core,
/// fonts-noto-cjk and fonts-noto-color-emoji.
class ScriptFonts {
public:
    ScriptFonts()
    {
        for (const char* file :
             {"truetype/noto/NotoSans-Regular.ttf", "truetype/noto/NotoSansHebrew-Regular.ttf",
              "truetype/noto/NotoSansArabic-Regular.ttf", "truetype/noto/NotoSansDevanagari-Regular.ttf",
              "truetype/noto/NotoSansTamil-Regular.ttf", "truetype/noto/NotoSansThai-Regular.ttf",
              "opentype/noto/NotoSansCJK-Regular.ttc", "truetype/noto/NotoColorEmoji.ttf"}) {
            const QString path = QStringLiteral("/usr/share/fonts/") + QLatin1String(file);
            const int font = QFontDatabase::addApplicationFont(path);
            if (font < 0) {
                m_missing.append(path);
            } else {
                m_fonts.append(font);
            }
        }
    }
    ScriptFonts(const ScriptFonts&) = delete;
    ScriptFonts& operator=(const ScriptFonts&) = delete;
    ~ScriptFonts()
    {
        for (const int font : m_fonts) {
            QFontDatabase::removeApplicationFont(font);
        }
    }

    /// The files that are not installed.
    const QStringList& missing() const { return m_missing; }

private:
    QList<int> m_fonts;
    QStringList m_missing;
};
