// SPDX-License-Identifier: MIT
#include "support/AppFixture.h"

#include <QApplication>
#include <QClipboard>
#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <QTextEdit>

namespace {

class MenuTest : public AppFixture {
protected:
    MenuTest() { QApplication::clipboard()->clear(); }

    /// The entries of a menu that are disabled once it is open, by their objects' names.
    static QStringList disabledIn(QMenu& menu)
    {
        menu.popup({});
        QStringList names;
        for (const QAction* action : menu.actions()) {
            if (!action->isEnabled()) {
                names.append(action->objectName());
            }
        }
        menu.close();
        return names;
    }

    QStringList disabledInEditMenu() { return disabledIn(*ui->editMenu); }
};

const QStringList textCommands{QStringLiteral("undoAction"),  QStringLiteral("redoAction"),
                               QStringLiteral("cutAction"),   QStringLiteral("copyAction"),
                               QStringLiteral("pasteAction"), QStringLiteral("selectAllAction")};

TEST_F(MenuTest, WhatNeedsAChosenRowOrATextIsDisabledWithoutOne)
{
    putNotes({note(2024, 3, 2, "in March")});
    putEvents({event(1990, 5, 1, "Birthday")});
    start();
    ui->todayBtn->setFocus();
    EXPECT_EQ(disabledInEditMenu(),
              textCommands + QStringList({QStringLiteral("deleteNoteAction"), QStringLiteral("deleteDateAction")}));
    ui->notesTableView->chooseRow(0);
    EXPECT_FALSE(disabledInEditMenu().contains(QStringLiteral("deleteNoteAction")));
    ui->importantDatesTableView->chooseRow(0);
    EXPECT_FALSE(disabledInEditMenu().contains(QStringLiteral("deleteDateAction")));
}

TEST_F(MenuTest, TheTextCommandsFollowTheNoteBeingWritten)
{
    putNotes({note(2024, 3, 2, "in March")});
    start();
    ui->notesTableView->editColumn(1, 0);
    auto* editor = qobject_cast<QTextEdit*>(ui->notesTableView->viewAt(1, 0));
    ASSERT_TRUE(editor);
    editor->setFocus();
    editor->moveCursor(QTextCursor::End);
    const auto without = [](const QStringList& possible) {
        QStringList rest = textCommands;
        for (const QString& name : possible) {
            rest.removeOne(name);
        }
        return rest;
    };
    const auto disabled = [this] {
        QStringList names = disabledInEditMenu();
        names.removeIf([](const QString& name) { return !textCommands.contains(name); });
        return names;
    };
    EXPECT_EQ(disabled(), without({QStringLiteral("selectAllAction")}));
    QTest::keyClicks(editor, QStringLiteral("!"));
    EXPECT_EQ(disabled(), without({QStringLiteral("undoAction"), QStringLiteral("selectAllAction")}));
    editor->undo();
    EXPECT_EQ(disabled(), without({QStringLiteral("redoAction"), QStringLiteral("selectAllAction")}));
    editor->selectAll();
    EXPECT_EQ(disabled(), without({QStringLiteral("redoAction"), QStringLiteral("cutAction"),
                                   QStringLiteral("copyAction"), QStringLiteral("selectAllAction")}));
    QApplication::clipboard()->setText(QStringLiteral("pasted"));
    EXPECT_FALSE(disabled().contains(QStringLiteral("pasteAction")));
    EXPECT_TRUE(ui->notesTableView->viewAt(1, 0)) << "the menu does not end the edit";
}

TEST_F(MenuTest, SavingIsPossibleWhileSomethingIsUnsaved)
{
    putNotes({note(2024, 3, 2, "in March")});
    start();
    EXPECT_EQ(disabledIn(*ui->fileMenu), QStringList{QStringLiteral("saveAction")});
    ui->notesTableView->editColumn(1, 0);
    QTest::keyClicks(ui->notesTableView->viewAt(1, 0), QStringLiteral("!"));
    EXPECT_EQ(disabledIn(*ui->fileMenu), QStringList());
}

TEST_F(MenuTest, ThePageShownNeedNotBeShown)
{
    start();
    EXPECT_EQ(disabledIn(*ui->viewMenu), QStringList{QStringLiteral("miniCalendarPageAction")});
    ui->monthlyViewPageAction->trigger();
    EXPECT_EQ(disabledIn(*ui->viewMenu), QStringList{QStringLiteral("monthlyViewPageAction")});
}

TEST_F(MenuTest, OnceAMenuIsClosedItsKeysDoWhatTheyCan)
{
    start();
    ui->todayBtn->setFocus();
    EXPECT_TRUE(disabledInEditMenu().contains(QStringLiteral("undoAction")));
    ui->filterField->setFocus();
    QTest::keyClicks(ui->filterField, QStringLiteral("abc"));
    QTest::keyClick(ui->filterField, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(ui->filterField->selectedText(), QStringLiteral("abc"));
    ui->undoAction->trigger();
    EXPECT_EQ(ui->filterField->text(), QString());
    EXPECT_TRUE(ui->saveAction->isEnabled());
}

TEST_F(MenuTest, WhileTheMenuBarHasTheKeyboardTheCommandsAreThoseOfTheControlBefore)
{
    start();
    window->activateWindow();
    ui->filterField->setFocus();
    QTest::keyClicks(ui->filterField, QStringLiteral("abc"));
    window->menuBar()->setFocus(Qt::MenuBarFocusReason);
    ASSERT_EQ(window->focusWidget(), window->menuBar());
    EXPECT_FALSE(disabledInEditMenu().contains(QStringLiteral("undoAction")));
}

TEST_F(MenuTest, TheChosenRowIsCopiedByItsKeyAndByTheMenu)
{
    putNotes({note(2024, 3, 5, "choir\rpractice")});
    start();
    TableView& notes = *ui->notesTableView;
    notes.setFocus();
    QGuiApplication::clipboard()->clear();
    QTest::keyClick(&notes, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QString()) << "no row is chosen";

    QTest::keyClick(&notes, Qt::Key_Down);
    QTest::keyClick(&notes, Qt::Key_C, Qt::ControlModifier);
    const QString copied = QGuiApplication::clipboard()->text();
    EXPECT_TRUE(copied.endsWith(QStringLiteral("\tchoir\rpractice"))) << copied.toStdString();
    QGuiApplication::clipboard()->clear();
    ui->copyAction->trigger();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), copied);
    Q_EMIT ui->editMenu->aboutToShow();
    EXPECT_TRUE(ui->copyAction->isEnabled());
    EXPECT_FALSE(ui->cutAction->isEnabled());
}

// --- What a newcomer is told -----------------------------------------------------------------------------------------

TEST_F(MenuTest, EmptyListsAndBlankDaysTellWhatToDo)
{
    putNotes({note(2024, 3, 2, "in March")});
    start();
    EXPECT_EQ(ui->notesTableView->placeholderText(), QStringLiteral("No notes to show\nClick a day and type"));
    EXPECT_EQ(ui->importantDatesTableView->placeholderText(),
              QStringLiteral("No important dates yet\nClick “Add Date” and describe the day"));
    int toldDays = 0;
    int silentDays = 0;
    for (const DayButton* day : window->findChildren<DayButton*>()) {
        if (day->title().isEmpty()) {
            EXPECT_EQ(day->toolTip(), QString()) << "a blank cell";
        } else {
            (day->toolTip().isEmpty() ? silentDays : toldDays) += 1;
        }
    }
    EXPECT_EQ(silentDays, 1);
    EXPECT_EQ(toldDays, 30);
}

} // namespace
