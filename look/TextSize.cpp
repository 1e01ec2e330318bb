// SPDX-License-Identifier: MIT
#include "look/TextSize.h"

#include "host/GlobalDefaults.h"

#include <QApplication>
#include <QFont>
#include <QFontDatabase>
#include <QFontInfo>

namespace {

constexpr int usualPixelSize = 13; ///< of text when the desktop states none
constexpr double pixelsPerPoint = 96.0 / 72;

/// Whether it is Qt's fallback font, for programs to which no desktop gives one.
bool isMadeUp(const QFont& font)
{
    constexpr int madeUpPointSize = 9;
    return font.family() == QStringLiteral("Sans Serif") && font.pointSize() == madeUpPointSize;
}

} // namespace

int textPixelSize(const QFont& given, const DesktopText& text)
{
    if (!isMadeUp(given)) {
        return qRound(QFontInfo(given).pixelSize() * text.scaling);
    }
    return qRound((text.points ? *text.points * pixelsPerPoint : usualPixelSize) * text.scaling);
}

void applyTextSize(const DesktopText& text)
{
    const int size = textPixelSize(QFontDatabase::systemFont(QFontDatabase::GeneralFont), text);
    QFont font = QApplication::font();
    if (QFontInfo(font).pixelSize() != size) {
        font.setPixelSize(size);
        QApplication::setFont(font);
    }
}
