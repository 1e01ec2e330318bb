// SPDX-License-Identifier: MIT
// What becomes of a text that is half composed.
#include "support/StandInInputMethod.h"
#include "table/table_fixture.h"

#include <QApplication>
#include <QTest>

namespace {

class Composing : public TableTest {
protected:
    Composing()
    {
        showRows({QStringLiteral("one"), QStringLiteral("two")});
        table.editColumn(noteColumn, 0);
        press(Qt::Key_End);
    }

    StandInInputMethod inputMethod;
};

TEST_F(Composing, WhatIsHalfComposedBelongsToTheTextThatIsLeft)
{
    inputMethod.compose(QStringLiteral("に"));
    EXPECT_EQ(editor().text(), QStringLiteral("one"));
    table.endEditing();
    EXPECT_EQ(delegate.told.last(), QStringLiteral("ended oneに"));
}

TEST_F(Composing, WhatIsHalfComposedBelongsToTheTextThatIsSaved)
{
    inputMethod.compose(QStringLiteral("に"));
    table.commitEditing();
    EXPECT_EQ(delegate.told.last(), QStringLiteral("ended oneに"));
    QTest::keyClicks(&editor(), QStringLiteral("!"));
    EXPECT_EQ(editor().text(), QStringLiteral("oneに!"));
}

TEST_F(Composing, ADeadKeyIsNotFinishedInTheNextText)
{
    for (const bool byKeys : {false, true}) {
        inputMethod.deadKey = true;
        if (byKeys) {
            press(Qt::Key_Tab);
        } else {
            table.editColumn(noteColumn, 1);
        }
        EXPECT_FALSE(inputMethod.deadKey);
        table.editColumn(noteColumn, 0);
    }
}

TEST_F(Composing, ADeadKeyIsNotFinishedElsewhere)
{
    inputMethod.deadKey = true;
    elsewhere.setFocus();
    EXPECT_EQ(table.editedRow(), -1);
    EXPECT_FALSE(inputMethod.deadKey);
}

} // namespace
