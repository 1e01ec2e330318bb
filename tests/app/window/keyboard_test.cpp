// SPDX-License-Identifier: MIT
#include "support/AppFixture.h"
#include "widgets/ReminderMenu.h"

#include <QApplication>
#include <QTest>

namespace {

class KeyboardTest : public AppFixture {};

TEST_F(KeyboardTest, TheTabKeyFollowsThePage)
{
    start();
    ui->filterField->setText(QStringLiteral("a")); // its button joins in
    ui->todayBtn->setFocus();
    QStringList reached;
    for (int step = 0; step < 8; ++step) {
        QTest::keyClick(window->focusWidget(), Qt::Key_Tab);
        reached.append(window->focusWidget()->objectName());
    }
    const QStringList page{QStringLiteral("filterField"),    QStringLiteral("filterBtn"),
                           QStringLiteral("segment0"),       QStringLiteral("segment1"),
                           QStringLiteral("segment2"),       QStringLiteral("segment3"),
                           QStringLiteral("notesTableView"), QStringLiteral("noteEntryPrevNotesBtn")};
    EXPECT_EQ(reached.join(u' ').toStdString(), page.join(u' ').toStdString());
}

TEST_F(KeyboardTest, ShiftAndF10OpenTheMenuOfTheSelectedRow)
{
    putNotes({note(2024, 3, 15, "dentist")});
    start();
    ui->notesTableView->setFocus();
    ui->notesTableView->selectRow(0);
    QTest::keyClick(window.get(), Qt::Key_F10, Qt::ShiftModifier);
    QWidget* menu = QApplication::activePopupWidget();
    ASSERT_TRUE(menu);
    EXPECT_TRUE(qobject_cast<ReminderMenu*>(menu));
    EXPECT_EQ(ui->notesTableView->clickedRow(), 0);
    QTest::keyClick(menu, Qt::Key_Escape);
}

} // namespace
