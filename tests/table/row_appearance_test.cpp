// SPDX-License-Identifier: MIT
#include "look/NamedColor.h"
#include "table/HeaderCell.h"
#include "table/TableRowView.h"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <gtest/gtest.h>

namespace {

QPalette palette(QColor base, QColor text)
{
    QPalette result;
    result.setColor(QPalette::Base, base);
    result.setColor(QPalette::Text, text);
    return result;
}

const QPalette lightColors = palette(Qt::white, Qt::black);

QColor at(const QImage& image, int x, int y)
{
    return image.pixelColor(x, y);
}

TEST(HeaderCell, TheFontIsTheBoldSystemFontOfThirteenPointsWhateverTheProgramUses)
{
    const QFont before = QApplication::font();
    QApplication::setFont(QFont(QStringLiteral("Serif"), 30));
    const QFont font = HeaderCell(QStringLiteral("Date")).font();
    QApplication::setFont(before);
    EXPECT_TRUE(font.bold());
    EXPECT_EQ(font.pixelSize(), 13);
    EXPECT_NE(font.family(), QStringLiteral("Serif"));
}

TEST(TableRowView, TheSelectionFillsTheWholeRowWhateverPartIsDrawn)
{
    QImage image(40, 30, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    TableRowView view;
    view.setPalette(lightColors);
    view.setBounds(QRectF(5, 10, 30, 17));
    view.drawSelectionInRect(painter, QRectF(10, 12, 2, 2));
    painter.end();
    const QColor selection = namedColor(u"TableRowSelectionColor", lightColors);
    EXPECT_EQ(at(image, 5, 10), selection);
    EXPECT_EQ(at(image, 34, 26), selection);
    EXPECT_EQ(at(image, 4, 10), QColor(Qt::white));
    EXPECT_EQ(at(image, 34, 27), QColor(Qt::white));
}

TEST(TableRowView, WithoutHighlightNoSelectionIsDrawn)
{
    QImage image(10, 10, QImage::Format_RGB32);
    image.fill(Qt::white);
    const QImage before = image.copy();
    QPainter painter(&image);
    TableRowView view;
    view.setBounds(image.rect());
    view.setSelectionHighlightStyle(SelectionHighlightStyle::None);
    view.drawSelectionInRect(painter, image.rect());
    painter.end();
    EXPECT_EQ(image, before);
}

} // namespace
