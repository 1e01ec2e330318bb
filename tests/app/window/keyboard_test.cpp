// SPDX-License-Identifier: MIT
#include "support/AppFixture.h"

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

} // namespace
