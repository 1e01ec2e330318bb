// SPDX-License-Identifier: MIT
#include "look/NamedColor.h"
#include "table/table_fixture.h"

#include <QImage>
#include <QScrollBar>

namespace {

QImage picture(TableView& table)
{
    return table.viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32);
}

/// Where in `part` of the picture something else than `ground` stands; an empty rectangle when nothing does.
QRect inked(const QImage& image, const QRect& part, const QColor& ground)
{
    QRect found;
    for (int y = part.top(); y <= part.bottom(); ++y) {
        for (int x = part.left(); x <= part.right(); ++x) {
            if (image.pixelColor(x, y) != ground) {
                found |= QRect(x, y, 1, 1);
            }
        }
    }
    return found;
}

bool hasColor(const QImage& image, const QRect& part, const QColor& color)
{
    for (int y = part.top(); y <= part.bottom(); ++y) {
        for (int x = part.left(); x <= part.right(); ++x) {
            if (image.pixelColor(x, y) == color) {
                return true;
            }
        }
    }
    return false;
}

class TablePainting : public TableTest {
protected:
    TablePainting()
    {
        QPalette light;
        light.setColor(QPalette::Base, Qt::white);
        light.setColor(QPalette::Text, Qt::black);
        window.setPalette(light);
    }

    /// The row without its hairline.
    QRect textOf(int row) const { return table.rectOfCell(noteColumn, row).adjusted(0, 0, 0, -1); }
};

TEST_F(TablePainting, TextStartsAtThePaddingAndALongOneIsShortened)
{
    showRows({u"HHH"_qs, QString(1000000, u'H')});
    const QImage image = picture(table);
    const QRect cell = textOf(0);
    const QRect shortText = inked(image, cell, Qt::white);
    EXPECT_NEAR(shortText.left() - cell.left(), 8, 2);
    const QRect longText = inked(image, textOf(1), Qt::white);
    EXPECT_GT(longText.right(), cell.right() - 25);
    EXPECT_LE(longText.right(), cell.right() - 8);
}

TEST_F(TablePainting, EachLineOfATextStandsOnItsOwnLineOfTheRow)
{
    showRows({u"H"_qs, u"H\n\nH"_qs});
    const QImage image = picture(table);
    const int first = inked(image, textOf(0), Qt::white).bottom();
    const QRect tall = table.rectOfCell(noteColumn, 1);
    EXPECT_EQ(inked(image, {tall.left(), 17, tall.width(), 17}, Qt::white).bottom(), first + 17);
    EXPECT_TRUE(inked(image, {tall.left(), 34, tall.width(), 17}, Qt::white).isEmpty());
    EXPECT_EQ(inked(image, {tall.left(), 51, tall.width(), 16}, Qt::white).bottom(), first + 51);
}

TEST_F(TablePainting, ALineFarDownInALongNoteIsDrawnWhereItStands)
{
    showRows({u"\n"_qs.repeated(50000) + u"H"_qs + u"\n"_qs.repeated(50000)});
    table.verticalScrollBar()->setValue(17 * 49998);
    const QImage image = picture(table);
    const QRect found = inked(image, {100, 0, 250, 100}, Qt::white);
    EXPECT_GE(found.top(), 34);
    EXPECT_LT(found.bottom(), 51);
}

TEST_F(TablePainting, RightToLeftTextStandsAtTheRight)
{
    showRows({u"\u05E9\u05DC\u05D5\u05DD"_qs});
    const QRect cell = textOf(0);
    const QRect text = inked(picture(table), cell, Qt::white);
    EXPECT_NEAR(cell.right() - text.right(), 8, 2);
    EXPECT_GT(text.left(), cell.center().x());
}

TEST_F(TablePainting, MarkupIsDrawnAsItStands)
{
    showRows({u"<b>a</b>"_qs, u"a"_qs});
    const QImage image = picture(table);
    EXPECT_GT(inked(image, textOf(0), Qt::white).width(), 3 * inked(image, textOf(1), Qt::white).width());
}

TEST_F(TablePainting, ATextHasItsOwnColourUnlessItsRowIsSelected)
{
    showRows({u"HHH"_qs});
    delegate.textColor = QColor(Qt::red);
    EXPECT_TRUE(hasColor(picture(table), textOf(0), Qt::red));
    table.selectRow(0);
    const QImage selected = picture(table);
    EXPECT_FALSE(hasColor(selected, textOf(0), Qt::red));
    EXPECT_TRUE(hasColor(selected, textOf(0), Qt::white));
    EXPECT_EQ(selected.pixelColor(table.rectOfRow(0).left() + 2, 2),
              namedColor(u"TableRowSelectionColor", table.palette()));
}

TEST_F(TablePainting, WithoutHighlightTheSelectedRowLooksLikeTheOthers)
{
    showRows({u"HHH"_qs});
    const QImage before = picture(table);
    table.setSelectionHighlightStyle(SelectionHighlightStyle::None);
    table.selectRow(0);
    EXPECT_EQ(picture(table), before);
}

TEST_F(TablePainting, AnEmptyTableShowsItsPlaceholderOrNothing)
{
    showRows({});
    EXPECT_TRUE(inked(picture(table), table.viewport()->rect(), Qt::white).isEmpty());
    table.setPlaceholderText(QStringLiteral("No notes"));
    const QRect text = inked(picture(table), table.viewport()->rect(), Qt::white);
    EXPECT_NEAR(text.center().x(), table.viewport()->rect().center().x(), 3);
    EXPECT_NEAR(text.center().y(), table.viewport()->rect().center().y(), 6);
}

} // namespace
