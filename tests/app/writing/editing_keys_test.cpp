// SPDX-License-Identifier: MIT
#include "support/AppFixture.h"
#include "table/CellEditor.h"
#include "widgets/DatePicker.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QTest>

#include <set>

namespace {

/// The standard keys that speak to a window or a page and not to a text.
const std::set<QKeySequence::StandardKey> keysOfWindows{
    QKeySequence::HelpContents,  QKeySequence::WhatsThis,  QKeySequence::Open,     QKeySequence::Close,
    QKeySequence::Save,          QKeySequence::New,        QKeySequence::Refresh,  QKeySequence::ZoomIn,
    QKeySequence::ZoomOut,       QKeySequence::Print,      QKeySequence::AddTab,   QKeySequence::NextChild,
    QKeySequence::PreviousChild, QKeySequence::Find,       QKeySequence::FindNext, QKeySequence::FindPrevious,
    QKeySequence::Replace,       QKeySequence::Forward,    QKeySequence::Back,     QKeySequence::Bold,
    QKeySequence::Italic,        QKeySequence::Underline,  QKeySequence::SaveAs,   QKeySequence::Preferences,
    QKeySequence::Quit,          QKeySequence::FullScreen, QKeySequence::Deselect, QKeySequence::Cancel};

/// Every key that edits text or moves in it, on every desktop that Qt knows the bindings of, and some more that erase.
QList<QKeySequence> editingKeys()
{
    QList<QKeySequence> keys;
    for (int key = QKeySequence::HelpContents; key <= QKeySequence::Cancel; ++key) {
        const auto standard = static_cast<QKeySequence::StandardKey>(key);
        if (!keysOfWindows.contains(standard)) {
            keys += QKeySequence::keyBindings(standard);
        }
    }
    for (const char* more : {"Ctrl+Del",      "Ctrl+Shift+Del",  "Alt+Del",   "Ctrl+Backspace", "Ctrl+Shift+Backspace",
                             "Alt+Backspace", "Shift+Backspace", "Shift+Del", "Ctrl+Left",      "Ctrl+Shift+Right",
                             "Ctrl+Home",     "Ctrl+Shift+End",  "Ctrl+Up",   "Ctrl+Down",      "Shift+PgDown",
                             "Ctrl+K",        "Ctrl+U",          "Ctrl+Y",    "Ctrl+Ins",       "Shift+Ins"}) {
        keys += QKeySequence(QString::fromLatin1(more));
    }
    return keys;
}

class EditingKeysTest : public AppFixture {
protected:
    void startWithNotesAndDates()
    {
        putNotes({note(2024, 3, 2, "one two three"), note(2024, 3, 20, "spring")});
        putEvents({event(1990, 5, 4, "one two three"), event(2001, 7, 8, "wedding")});
        start();
        window->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
        for (QAction* action : window->findChildren<QAction*>()) {
            QObject::connect(action, &QAction::triggered, window.get(),
                             [this, action] { triggered.append(action->objectName()); });
        }
    }

    QWidget* noteEditor()
    {
        ui->notesTableView->editColumn(textColumn, 0);
        return ui->notesTableView->viewAt(textColumn, 0);
    }

    QWidget* descriptionEditor()
    {
        ui->importantDatesTableView->editColumn(textColumn, 0);
        return ui->importantDatesTableView->viewAt(textColumn, 0);
    }

    QWidget* datePicker()
    {
        ui->importantDatesTableView->editColumn(dateColumn, 0);
        return ui->importantDatesTableView->viewAt(dateColumn, 0);
    }

    QWidget* searchField()
    {
        ui->filterField->setText(QStringLiteral("one two three"));
        ui->filterField->setFocus();
        return ui->filterField;
    }

    /// No editing key may reach a command of the window while `field` has the focus.
    void expectKeysToBeOf(QWidget* field)
    {
        ASSERT_TRUE(field);
        const int page = ui->myTabView->currentIndex();
        const int noteRow = ui->notesTableView->selectedRow();
        const int dateRow = ui->importantDatesTableView->selectedRow();
        for (const QKeySequence& key : editingKeys()) {
            if (key[0].key() == Qt::Key_Tab || key[0].key() == Qt::Key_Backtab) {
                continue;
            }
            SCOPED_TRACE(key.toString().toStdString());
            QTest::keyClick(field, key[0].key(), key[0].keyboardModifiers());
            EXPECT_EQ(triggered.join(u' ').toStdString(), "");
            EXPECT_FALSE(alert());
            EXPECT_EQ(ui->myTabView->currentIndex(), page);
            EXPECT_EQ(ui->notesTableView->selectedRow(), noteRow);
            EXPECT_EQ(ui->importantDatesTableView->selectedRow(), dateRow);
            if (QApplication::focusWidget() != field || HasFailure()) {
                FAIL() << "the field has lost the keys";
            }
        }
    }

    QStringList triggered;
};

TEST_F(EditingKeysTest, OfANoteReachNoCommand)
{
    startWithNotesAndDates();
    expectKeysToBeOf(noteEditor());
}

TEST_F(EditingKeysTest, OfADescriptionReachNoCommand)
{
    startWithNotesAndDates();
    expectKeysToBeOf(descriptionEditor());
}

TEST_F(EditingKeysTest, OfTheDatePickerReachNoCommand)
{
    startWithNotesAndDates();
    QWidget* picker = datePicker();
    ASSERT_TRUE(qobject_cast<DatePicker*>(picker));
    for (const char* key : {"Ctrl+Del", "Ctrl+Shift+Del", "Ctrl+Backspace", "Ctrl+Z", "Ctrl+A", "Ctrl+C", "Ctrl+V"}) {
        const QKeyCombination pressed = QKeySequence(QString::fromLatin1(key))[0];
        QTest::keyClick(picker, pressed.key(), pressed.keyboardModifiers());
        EXPECT_EQ(triggered.join(u' ').toStdString(), "") << key;
        EXPECT_FALSE(alert()) << key;
        ASSERT_EQ(QApplication::focusWidget(), picker) << key;
    }
}

TEST_F(EditingKeysTest, OfTheSearchFieldReachNoCommand)
{
    startWithNotesAndDates();
    expectKeysToBeOf(searchField());
}

TEST_F(EditingKeysTest, EraseTheWordAndNotTheNote)
{
    startWithNotesAndDates();
    auto* editor = qobject_cast<CellEditor*>(noteEditor());
    ASSERT_TRUE(editor);
    QTest::keyClick(editor, Qt::Key_Home);
    QTest::keyClick(editor, Qt::Key_Delete, Qt::ControlModifier);
    EXPECT_EQ(editor->text(), QStringLiteral("two three"));
    QTest::keyClick(editor, Qt::Key_End);
    QTest::keyClick(editor, Qt::Key_Backspace, Qt::ControlModifier);
    EXPECT_EQ(editor->text(), QStringLiteral("two "));
    QTest::keyClick(editor, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(editor->text(), QStringLiteral("two three"));

    auto* field = qobject_cast<QLineEdit*>(searchField());
    QTest::keyClick(field, Qt::Key_Home);
    QTest::keyClick(field, Qt::Key_Delete, Qt::ControlModifier);
    EXPECT_EQ(field->text(), QStringLiteral("two three"));
}

TEST_F(EditingKeysTest, AreTheMenusWhereNoTextIsEdited)
{
    startWithNotesAndDates();
    ui->notesTableView->setFocus();
    ui->notesTableView->selectRow(0);
    QTest::keyClick(ui->notesTableView, Qt::Key_Delete, Qt::ControlModifier);
    EXPECT_EQ(triggered, QStringList{QStringLiteral("deleteNoteAction")});
    EXPECT_TRUE(alert());
}

TEST_F(EditingKeysTest, LeaveTheOtherShortcutsToTheWindow)
{
    startWithNotesAndDates();
    QTest::keyClick(noteEditor(), Qt::Key_2, Qt::ControlModifier);
    EXPECT_EQ(triggered, QStringList{QStringLiteral("weeklyViewPageAction")});
}

} // namespace
