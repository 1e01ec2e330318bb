// SPDX-License-Identifier: MIT
#pragma once

#include "notes/ListRow.h"
#include "notes/NotesChoice.h"
#include "plist/Value.h"
#include "store/Draft.h"
#include "store/SortDescriptor.h"

#include <optional>
#include <string>
#include <vector>

/// The notes and the important dates in memory, and the operations on them. Nothing is shown or saved here: an
/// operation changes the tables and returns what happened to them.
///
/// Rows count from 0; operations on a row that does not exist do nothing. A note's text is edited in its row, and
/// replaces that of the saved note only when the edit ends.
class NoteBook {
public:
    /// Every note, in file order; the rows of the notes list; every important date. A table is nullopt when its file
    /// could not be read: it then behaves like an empty one and accepts nothing.
    std::optional<Table> allNotes = Table();
    std::optional<Table> shownNotes = Table();
    std::optional<Table> importantDates = Table();

    // --- What there is -----------------------------------------------------------------------------------------------

    const Table& notes() const;                             ///< every note; none when they could not be read
    const std::optional<Table>& saved(ListKind list) const; ///< what is saved of a list: every note, or every date
    const Table& rows(ListKind list) const;                 ///< the rows of a list
    ListRow row(ListKind list, int row) const;

    /// Whether text typed into that row would be kept. A row without a record, or a note without a date, would lose it.
    bool takesText(ListKind list, int row) const;

    /// Changes whenever the notes list gets other rows or another order.
    int rowsGeneration() const { return m_rowsGeneration; }

    // --- Which notes are shown ---------------------------------------------------------------------------------------

    /// Makes the notes list show what `choice` chooses, in its order.
    void choose(NotesChoice choice);

    /// The same, but changes nothing and returns false when nothing is chosen.
    bool chooseIfAny(const NotesChoice& choice);

    /// Makes the notes list show `rows` alone; notes that come later are not added.
    void showOnly(Table rows);

    struct ShownNote {
        int row = 0;
        bool isNew = false; ///< the row was inserted
    };

    /// Makes the list show the saved record of that date, if it shows the date already or its choice includes it; else
    /// returns nullopt.
    std::optional<ShownNote> showSaved(Date date);

    /// Sorts the rows of a list. Returns the new row of the element in `selectedRow`, -1 when there was none.
    int sort(ListKind list, const std::vector<SortDescriptor>& descriptors, int selectedRow);

    struct OpenedDay {
        enum class Rows { AsTheyWere, OneMore, Replaced };

        int row = -1; ///< the row of the day's note
        Rows rows = Rows::AsTheyWere;
    };

    /// Brings the note of a day into the list: a saved one together with the others of its month, else an empty one at
    /// the end. nullopt when the list could not be read.
    std::optional<OpenedDay> openDay(Date date);

    // --- Editing -----------------------------------------------------------------------------------------------------

    /// Returns false when the row has no record.
    bool changeText(ListKind list, int row, const std::string& text);
    bool changeDate(int row, Date date); ///< of an important date

    /// Whether the text of a note's row has changed since its edit began.
    bool isBeingEdited() const { return m_textBeforeEdit.has_value(); }

    /// Makes the current edit start over from the saved note.
    void restartEdit() { m_textBeforeEdit.reset(); }

    struct FinishedEdit {
        enum class Outcome { Nothing, Added, Replaced };

        Outcome outcome = Outcome::Nothing;
        bool wasChanged = false; ///< even if back to the saved text
        std::string replaced;    ///< the saved note's former text
        /// The row's text when its edit began; differs from `replaced` after an import, for example.
        std::string seen;
    };

    /// Ends the edit of a note's row: its text becomes that of the saved note. `isEdited` says that something was
    /// typed, even if it was deleted again; a day that was only looked at leaves no empty note behind.
    FinishedEdit finishEdit(int row, bool isEdited);

    // --- Adding and removing -----------------------------------------------------------------------------------------

    /// Appends an important date and returns its row; -1 when the list could not be read.
    int addImportantDate(Date date, std::string description);

    /// Removes the note of that day, and the lines that wait for it. Returns its text; nullopt when there was none.
    std::optional<std::string> removeNote(Date date);

    /// Removes every row equal to `element` from a list. Returns where the row at `row`, or the one after it, is now.
    int removeRows(ListKind list, const Value& element, int row);

    /// Restores the notes that an earlier run left unsaved. The list shows those of the days that it shows already and
    /// of the month of `today`, or all of them.
    void restoreDraftNotes(const Draft& draft, bool showsAll, Date today);
    void restoreDraftDates(const Draft& draft);

    // --- Lines added to notes ----------------------------------------------------------------------------------------

    /// Adds a line to the saved note of that day at once.
    void addSavedLine(Date date, const std::string& line);

    /// Adds a line only to the shown note of that day, where it waits for `mergeWaitingLines`; false when it could
    /// never be saved.
    bool addLine(Date date, const std::string& line);

    bool hasWaitingLines() const { return !m_waitingLines.isEmpty(); }

    /// The text of the saved note of the day of `edited` with the lines that wait for it; nullopt when none do.
    std::optional<std::string> textWithWaitingLines(const DatedText& edited) const;

    /// The waiting lines, each as a note of its day, except those that were in the text when the edit of `edited`
    /// began: they are part of what is being edited.
    Table linesBeside(const std::optional<DatedText>& edited) const;

    /// Adds the waiting lines to the saved notes. Returns the day of each.
    std::vector<Date> mergeWaitingLines();

private:
    std::optional<Table>& table(ListKind list);
    void replaceRows(Table rows);
    void listSavedNote(Date date);
    void forgetLines(Date date);
    void forgetLinesIn(const std::string& text, Date date);

    NotesChoice m_choice = NotesChoice::all();
    int m_rowsGeneration = 0;

    /// Lines added to shown notes only, each as a note of its day, until `mergeWaitingLines`.
    Table m_waitingLines;

    /// The text of the edited row before the first change; nullopt before that.
    std::optional<std::string> m_textBeforeEdit;
};
