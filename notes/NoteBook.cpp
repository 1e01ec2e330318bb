// SPDX-License-Identifier: MIT
#include "notes/NoteBook.h"

#include "dates/DateUtilities.h"
#include "notes/NoteQueries.h"

#include <algorithm>
#include <utility>

namespace {

/// `element` with `text` under `key`, in the element itself or, if it is a list, in the first record inside. There must
/// be a record.
Value withEditedText(const Value& element, std::string_view key, const std::string& text)
{
    if (const Array* list = element.array()) {
        const auto shown = std::ranges::find_if(*list, NoteQueries::recordOf);
        Array edited = *list;
        edited[shown - list->begin()] = withEditedText(*shown, key, text);
        return Value(std::move(edited));
    }
    return withText(element, key, text);
}

std::string noteText(const Value& element)
{
    return std::string(ListRow(element, ListKind::Notes).text().value_or(""));
}

Date dayOf(const Value& line)
{
    return *dateOf(line, NoteDateKey);
}

std::string wordsOf(const Value& line)
{
    return std::string(*textOf(line, NoteDataKey));
}

} // namespace

const Table& NoteBook::notes() const
{
    return elementsOf(allNotes);
}

const std::optional<Table>& NoteBook::saved(ListKind list) const
{
    return list == ListKind::Notes ? allNotes : importantDates;
}

const Table& NoteBook::rows(ListKind list) const
{
    return elementsOf(list == ListKind::Notes ? shownNotes : importantDates);
}

std::optional<Table>& NoteBook::table(ListKind list)
{
    return list == ListKind::Notes ? shownNotes : importantDates;
}

ListRow NoteBook::row(ListKind list, int row) const
{
    const Table& all = rows(list);
    return row >= 0 && row < all.size() ? ListRow(all.at(row), list) : ListRow();
}

bool NoteBook::takesText(ListKind list, int row) const
{
    const ListRow shown = this->row(list, row);
    return shown.record() && (list == ListKind::ImportantDates || (allNotes && shown.date()));
}

void NoteBook::choose(NotesChoice choice)
{
    m_choice = std::move(choice);
    replaceRows(m_choice.of(notes()));
}

bool NoteBook::chooseIfAny(const NotesChoice& choice)
{
    Table chosen = choice.of(notes());
    if (chosen.isEmpty()) {
        return false;
    }
    m_choice = choice;
    replaceRows(std::move(chosen));
    return true;
}

void NoteBook::showOnly(Table rows)
{
    m_choice = NotesChoice::none();
    replaceRows(std::move(rows));
}

void NoteBook::replaceRows(Table rows)
{
    ++m_rowsGeneration;
    if (shownNotes) {
        shownNotes = std::move(rows);
    }
}

std::optional<NoteBook::ShownNote> NoteBook::showSaved(Date date)
{
    const std::int64_t saved = NoteQueries::doesTVDataHaveDate(notes(), date);
    if (!shownNotes || saved == DateUtilities::NotFound) {
        return std::nullopt;
    }
    const Value& note = allNotes->at(saved);
    if (const std::int64_t row = NoteQueries::doesTVDataHaveDate(*shownNotes, date); row != DateUtilities::NotFound) {
        (*shownNotes)[row] = note;
        return ShownNote{.row = static_cast<int>(row)};
    }
    if (!m_choice.holds(note)) {
        return std::nullopt;
    }
    const qsizetype place = m_choice.placeAmong(*shownNotes, note);
    ++m_rowsGeneration;
    shownNotes->insert(place, note);
    return ShownNote{.row = static_cast<int>(place), .isNew = true};
}

int NoteBook::sort(ListKind list, const std::vector<SortDescriptor>& descriptors, int selectedRow)
{
    std::optional<Table>& table = this->table(list);
    if (list == ListKind::Notes) {
        ++m_rowsGeneration;
    }
    if (!table) {
        return -1;
    }
    const ListRow row = this->row(list, selectedRow);
    const std::optional<Value> selected = row ? std::optional(*row.element()) : std::nullopt;
    NoteQueries::sortArray(*table, descriptors);
    if (!selected) {
        return -1;
    }
    const auto found =
        std::ranges::find_if(std::as_const(*table), [&](const Value& each) { return each.isSameObject(*selected); });
    return static_cast<int>(found - table->cbegin());
}

std::optional<NoteBook::OpenedDay> NoteBook::openDay(Date date)
{
    using Rows = OpenedDay::Rows;
    const auto rowOfDay = [this, date] {
        return static_cast<int>(NoteQueries::doesTVDataHaveDate(rows(ListKind::Notes), date));
    };
    if (NoteQueries::doesTVDataHaveDate(rows(ListKind::Notes), date) != DateUtilities::NotFound) {
        return OpenedDay{.row = rowOfDay()};
    }
    if (!shownNotes) {
        return std::nullopt;
    }
    if (NoteQueries::doesTVDataHaveDate(notes(), date) != DateUtilities::NotFound) {
        choose(NotesChoice::ofMonth(date));
        return OpenedDay{.row = rowOfDay(), .rows = Rows::Replaced};
    }
    shownNotes->append(makeNoteRecord(date, {}));
    return OpenedDay{.row = static_cast<int>(shownNotes->size()) - 1, .rows = Rows::OneMore};
}

bool NoteBook::changeText(ListKind list, int row, const std::string& text)
{
    const ListRow shown = this->row(list, row);
    if (!shown.record()) {
        return false;
    }
    if (list == ListKind::Notes && !m_textBeforeEdit) {
        m_textBeforeEdit = noteText(*shown.element());
    }
    Value& element = (*table(list))[row];
    element = withEditedText(element, recordKeys(list).text, text);
    return true;
}

bool NoteBook::changeDate(int row, Date date)
{
    if (!this->row(ListKind::ImportantDates, row)) {
        return false;
    }
    Value& event = (*importantDates)[row];
    event = withDate(event, EventDateKey, date);
    return true;
}

NoteBook::FinishedEdit NoteBook::finishEdit(int row, bool isEdited)
{
    using Outcome = FinishedEdit::Outcome;
    if (row < 0) {
        return {};
    }
    const std::optional<std::string> before = std::exchange(m_textBeforeEdit, std::nullopt);
    const ListRow shown = this->row(ListKind::Notes, row);
    const std::optional<DatedText> note = shown.datedText();
    if (!allNotes || !note || (note->text.empty() && !isEdited)) {
        return {};
    }
    if (before) {
        forgetLinesIn(*before, note->date); // the edited text is what the user wants
    }
    FinishedEdit edit;
    edit.wasChanged = before.has_value();
    const std::int64_t index = NoteQueries::doesTVDataHaveDate(*allNotes, note->date);
    if (index == DateUtilities::NotFound) {
        allNotes->append(*shown.record());
        edit.outcome = Outcome::Added;
        return edit;
    }
    edit.replaced = noteText(allNotes->at(index));
    if (!before || edit.replaced == note->text) {
        return edit; // visiting a row whose text differs from the saved one does not save it
    }
    (*allNotes)[index] = *shown.record();
    edit.outcome = Outcome::Replaced;
    edit.seen = *before;
    return edit;
}

int NoteBook::addImportantDate(Date date, std::string description)
{
    if (!importantDates) {
        return -1;
    }
    importantDates->append(makeEventRecord(date, std::move(description)));
    return static_cast<int>(importantDates->size()) - 1;
}

std::optional<std::string> NoteBook::removeNote(Date date)
{
    forgetLines(date);
    const std::int64_t index = NoteQueries::doesTVDataHaveDate(notes(), date);
    return index != DateUtilities::NotFound ? std::optional(noteText(allNotes->takeAt(index))) : std::nullopt;
}

int NoteBook::removeRows(ListKind list, const Value& element, int row)
{
    if (list == ListKind::Notes) {
        ++m_rowsGeneration;
    }
    std::optional<Table>& table = this->table(list);
    if (!table) {
        return 0;
    }
    Table above = table->first(std::clamp<qsizetype>(row, 0, table->size()));
    NoteQueries::removeEqual(above, element);
    NoteQueries::removeEqual(*table, element);
    return static_cast<int>(above.size());
}

void NoteBook::restoreDraftNotes(const Draft& draft, bool showsAll, Date today)
{
    if (!allNotes) {
        return;
    }
    Drafts::restoreNotes(draft, *allNotes);
    Table shown = rows(ListKind::Notes);
    for (const DraftChange& change : draft) {
        const Date date = Drafts::dateOf(change);
        const std::int64_t row = NoteQueries::doesTVDataHaveDate(shown, date);
        const std::int64_t saved = NoteQueries::doesTVDataHaveDate(*allNotes, date);
        const bool isShown = row != DateUtilities::NotFound;
        const bool isToBeShown =
            showsAll || !NoteQueries::copyArrayOfDatesHavingNotes({makeNoteRecord(date, {})}, today).isEmpty();
        if (saved == DateUtilities::NotFound) {
            if (isShown) {
                shown.removeAt(row);
            }
        } else if (isShown) {
            shown[row] = allNotes->at(saved);
        } else if (isToBeShown) {
            shown.append(allNotes->at(saved));
        }
    }
    replaceRows(std::move(shown));
}

void NoteBook::restoreDraftDates(const Draft& draft)
{
    if (importantDates) {
        Drafts::restoreEvents(draft, *importantDates);
    }
}

void NoteBook::addSavedLine(Date date, const std::string& line)
{
    if (allNotes) {
        NoteQueries::addLineToNote(*allNotes, date, line);
    }
}

bool NoteBook::addLine(Date date, const std::string& line)
{
    if (!shownNotes) {
        return false;
    }
    listSavedNote(date); // or else editing the line alone would replace a note that is not shown
    NoteQueries::addLineToNote(*shownNotes, date, line);
    if (!allNotes) {
        return false;
    }
    m_waitingLines.append(makeNoteRecord(date, line));
    return true;
}

/// Appends the saved note of that date, if there is one, to the list unless it shows that date.
void NoteBook::listSavedNote(Date date)
{
    const std::int64_t saved = NoteQueries::doesTVDataHaveDate(notes(), date);
    if (saved != DateUtilities::NotFound &&
        NoteQueries::doesTVDataHaveDate(*shownNotes, date) == DateUtilities::NotFound) {
        shownNotes->append(allNotes->at(saved));
    }
}

std::optional<std::string> NoteBook::textWithWaitingLines(const DatedText& edited) const
{
    Table note;
    const std::int64_t index = NoteQueries::doesTVDataHaveDate(notes(), edited.date);
    if (index != DateUtilities::NotFound) {
        note.append(notes().at(index));
    }
    bool hasLines = false;
    for (const Value& line : m_waitingLines) {
        if (dayOf(line) == edited.date) {
            NoteQueries::addLineToNote(note, edited.date, wordsOf(line));
            hasLines = true;
        }
    }
    return hasLines ? std::optional(noteText(note.front())) : std::nullopt;
}

Table NoteBook::linesBeside(const std::optional<DatedText>& edited) const
{
    Table lines = m_waitingLines;
    if (edited) {
        const std::string& before = m_textBeforeEdit ? *m_textBeforeEdit : edited->text;
        lines.removeIf([&](const Value& line) {
            return dayOf(line) == edited->date && before.find(wordsOf(line)) != std::string::npos;
        });
    }
    return lines;
}

std::vector<Date> NoteBook::mergeWaitingLines()
{
    std::vector<Date> days;
    if (!allNotes) {
        return days;
    }
    for (const Value& line : std::exchange(m_waitingLines, {})) {
        NoteQueries::addLineToNote(*allNotes, dayOf(line), wordsOf(line));
        days.push_back(dayOf(line));
    }
    return days;
}

/// Drops the lines of a note that is gone.
void NoteBook::forgetLines(Date date)
{
    m_waitingLines.removeIf([date](const Value& line) { return dayOf(line) == date; });
}

/// Drops the lines that `text`, the note of that date when its edit began, contains: the edited text is saved instead.
/// Lines not in `text` were out of sight and go on waiting.
void NoteBook::forgetLinesIn(const std::string& text, Date date)
{
    m_waitingLines.removeIf([date, &text](const Value& line) {
        return dayOf(line) == date && text.find(wordsOf(line)) != std::string::npos;
    });
}
