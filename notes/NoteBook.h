// SPDX-License-Identifier: MIT
#pragma once

#include "notes/ListRow.h"
#include "notes/NotesChoice.h"
#include "notes/SortDescriptor.h"
#include "plist/Value.h"
#include "store/Draft.h"

#include <optional>
#include <string>
#include <vector>

/// What `table` holds, nothing when it is nullopt.
const Table& elementsOf(const std::optional<Table>& table);

/// The notes and the important dates as the program holds them, and what happens to them. Nothing here is shown, and
/// nothing is saved: an operation changes the tables and tells what became of them.
///
/// Rows count from 0; a row that does not exist is left alone. The text of a note is edited in its row, and only when
/// the edit ends does it become that of the saved note.
class NoteBook {
public:
    /// Every note in file order; the rows of the notes list; every important date. A table is nullopt when its file
    /// could not be read: it answers every question as an empty one does and takes nothing.
    std::optional<Table> allNotes = Table();
    std::optional<Table> shownNotes = Table();
    std::optional<Table> importantDates = Table();

    // --- What there is -----------------------------------------------------------------------------------------------

    const Table& notes() const;             ///< every note, none when they could not be read
    const Table& rows(ListKind list) const; ///< those of a list
    std::optional<Table>& table(ListKind list);
    ListRow row(ListKind list, int row) const;

    /// Whether a text that is typed into that row has a place to go: a row without a record, or a note without a day,
    /// would lose it.
    bool takesText(ListKind list, int row) const;

    /// Another one whenever other rows, or the same elsewhere, stand in the notes list.
    int rowsGeneration() const { return m_rowsGeneration; }

    // --- Which notes are shown ---------------------------------------------------------------------------------------

    /// The notes list shows what is chosen, in its order.
    void choose(NotesChoice choice);

    /// The same, unless nothing is chosen by it: then nothing changes, and the answer is false.
    bool chooseIfAny(const NotesChoice& choice);

    /// The notes list shows `rows` alone; a note that comes later is not among them.
    void showOnly(Table rows);

    struct ShownNote {
        int row = 0;
        bool isNew = false; ///< it has come between the others
    };

    /// The list shows the very record that is saved, where it shows that day or should; nullopt where it does neither.
    std::optional<ShownNote> showSaved(Date date);

    /// Sorts the rows of a list. Gives the row where what stood in `selectedRow` stands now, -1 when there was none.
    int sort(ListKind list, const std::vector<SortDescriptor>& descriptors, int selectedRow);

    struct OpenedDay {
        enum class Rows { AsTheyWere, OneMore, Replaced };

        int row = -1; ///< of the day's note
        Rows rows = Rows::AsTheyWere;
    };

    /// Brings the note of a day into the list: a saved one with the others of its month, else an empty one at the end.
    /// nullopt when the list takes none.
    std::optional<OpenedDay> openDay(Date date);

    // --- Editing -----------------------------------------------------------------------------------------------------

    /// False where there is no record whose text it could be.
    bool changeText(ListKind list, int row, const std::string& text);
    bool changeDate(int row, Date date); ///< of an important date

    /// The text of a note's row was changed since its edit began.
    bool isBeingEdited() const { return m_textBeforeEdit.has_value(); }

    /// From here on it is the saved note that is edited.
    void beginEditAnew() { m_textBeforeEdit.reset(); }

    struct FinishedEdit {
        enum class Outcome { Nothing, Added, Replaced };

        Outcome outcome = Outcome::Nothing;
        bool wasChanged = false; ///< though perhaps back to what is saved
        std::string replaced;    ///< the text of the saved note before
        std::string seen;        ///< the text of the row when its edit began: another one, after an import for example
    };

    /// The edit of a note's row ends: its text becomes that of the saved note. `isEdited` tells that something was
    /// typed, even if it is gone again; a day that was only looked at leaves no empty note behind.
    FinishedEdit finishEdit(int row, bool isEdited);

    // --- Adding and removing -----------------------------------------------------------------------------------------

    /// Appends an important date; gives its row, -1 when the list takes none.
    int addImportantDate(Date date, std::string description);

    /// Takes the note of that day, and the lines that wait for it, from the notes. Gives its text; nullopt when there
    /// was none.
    std::optional<std::string> removeNote(Date date);

    /// Takes every row equal to `element` from a list. Gives the row that stands where `row` stood.
    int removeRows(ListKind list, const Value& element, int row);

    /// Takes in what an earlier run left unsaved. The list shows the days that it shows already, and those of the month
    /// of `today`, or all of them.
    void takeInDraftNotes(const Draft& draft, bool showsAll, Date today);
    void takeInDraftDates(const Draft& draft);

    // --- Lines added to notes ----------------------------------------------------------------------------------------

    /// Adds a line to the note of that day at once.
    void addSavedLine(Date date, const std::string& line);

    /// Adds a line to the shown note of that day alone, where it waits to be taken in; false when no save could take it
    /// in.
    bool addLine(Date date, const std::string& line);

    bool hasWaitingLines() const { return !m_waitingLines.isEmpty(); }

    /// The text of the saved note of `edited` with the lines that wait for it; nullopt when none do.
    std::optional<std::string> textWithWaitingLines(const DatedText& edited) const;

    /// The waiting lines, each as a note of its day, without those that the edit of `edited` began with: they are part
    /// of what is typed.
    Table linesBeside(const std::optional<DatedText>& edited) const;

    /// The lines go into the notes. Gives the day of each.
    std::vector<Date> takeInLines();

private:
    void replaceRows(Table rows);
    void listSavedNote(Date date);
    void forgetLines(Date date);
    void forgetLinesIn(const std::string& text, Date date);

    NotesChoice m_choice = NotesChoice::all();
    int m_rowsGeneration = 0;

    /// Lines added to shown notes, each as a note of its day, until the notes are saved.
    Table m_waitingLines;

    /// The text that the note's row had before it was edited, from the first change on.
    std::optional<std::string> m_textBeforeEdit;
};
