// SPDX-License-Identifier: MIT
#include "table/HeaderCell.h"

#include <QFontDatabase>

QFont HeaderCell::font()
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    font.setPixelSize(13);
    font.setBold(true);
    return font;
}
