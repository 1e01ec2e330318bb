// SPDX-License-Identifier: MIT
#include "look/FocusRing.h"
#include "look/TableMetrics.h"
#include "table/CellEditor.h"
#include "table/TableView.h"
#include "table/TableViewDelegate.h"

#include <QAccessible>
#include <QApplication>
#include <QInputMethod>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QScrollBar>

#include <algorithm>
#include <cmath>

namespace {

/// Whether `widget` is `owner` or inside it. Unlike QWidget::isAncestorOf this crosses windows, because a control's
/// popup belongs to the control.
bool belongsTo(const QWidget* widget, const QWidget* owner)
{
    while (widget && widget != owner) {
        widget = widget->parentWidget();
    }
    return widget != nullptr;
}

/// Suppresses accessibility events while a control is set up. A screen reader would otherwise take the control for
/// focused at its first text, and not say its name when it really gets the focus.
class Unheard {
public:
    Unheard() : m_former(QAccessible::installUpdateHandler([](QAccessibleEvent*) {})) {}
    Unheard(const Unheard&) = delete;
    Unheard& operator=(const Unheard&) = delete;
    ~Unheard() { QAccessible::installUpdateHandler(m_former); }

private:
    QAccessible::UpdateHandler m_former;
};

} // namespace

bool TableView::isEditable(int column) const
{
    return hasColumn(column) && m_columns[static_cast<std::size_t>(column)].editing == TableColumn::Editing::Editable;
}

bool TableView::canEdit(int column, int row) const
{
    return isEditable(column) && hasRow(row) && !m_hiddenRows.contains(row) && m_delegate &&
           m_delegate->shouldEditTableColumn(*this, m_columns[static_cast<std::size_t>(column)], row);
}

void TableView::editColumn(int column, int row)
{
    beginEdit({column, row}, std::nullopt);
}

void TableView::beginEdit(Cell cell, std::optional<QPoint> clicked)
{
    if (m_endingEdit || !isEditable(cell.column)) {
        return;
    }
    endEditing();
    if (!canEdit(cell.column, cell.row)) { // the delegate may have reloaded the table when the former edit ended
        return;
    }
    select(cell.row, Origin::User);
    QWidget* const editor = makeEditor(cell);
    if (!editor) {
        return;
    }
    if (!clicked) {
        scrollRowToVisible(cell.row);
    }
    m_edit = Edit{cell.column, cell.row, editor};
    layoutEditor();
    editor->show();
    m_editRing->show();
    m_editRing->raise();
    editor->setFocus(Qt::OtherFocusReason);
    placeCaret(clicked);
    viewport()->update();
}

QWidget* TableView::makeEditor(Cell cell)
{
    const Unheard whileMade;
    const TableColumn& column = m_columns[static_cast<std::size_t>(cell.column)];
    if (column.editorFactory) {
        QWidget* const control = column.editorFactory(viewport(), cell.row);
        if (control) {
            control->installEventFilter(this);
        }
        return control;
    }
    auto* editor = new CellEditor(cellView(cell.column, cell.row).text, m_lineHeight, viewport());
    editor->setAccessibleName(m_delegate->accessibleEditorName(*this, column, cell.row));
    connect(editor, &CellEditor::edited, this, &TableView::editorTextChanged);
    connect(editor, &CellEditor::composed, this, &TableView::textComposed);
    connect(editor, &CellEditor::endRequested, this, &TableView::endEditing);
    connect(editor, &CellEditor::moveRequested, this, &TableView::moveEdit);
    connect(editor, &CellEditor::menuRequested, this, &TableView::openEditorMenu);
    connect(editor, &QTextEdit::cursorPositionChanged, this, &TableView::showCaret);
    return editor;
}

CellEditor* TableView::textEditor() const
{
    return m_edit ? qobject_cast<CellEditor*>(m_edit->view) : nullptr;
}

/// Puts the caret at the clicked point of the viewport, or at the end of the text.
void TableView::placeCaret(std::optional<QPoint> clicked)
{
    CellEditor* const editor = textEditor();
    if (!editor) {
        return;
    }
    QTextCursor caret = editor->textCursor();
    caret.movePosition(QTextCursor::End);
    if (clicked) {
        caret = editor->cursorForPosition(editor->mapFrom(viewport(), *clicked));
    }
    editor->setTextCursor(caret);
    showCaret();
}

void TableView::commitEditing()
{
    if (m_edit && !m_endingEdit) {
        commitText();
    }
}

void TableView::commitText()
{
    if (belongsTo(QApplication::focusWidget(), m_edit->view)) {
        QGuiApplication::inputMethod()->commit(); // includes half-composed text
    }
    if (CellEditor* const editor = textEditor(); editor && m_delegate) {
        m_delegate->controlTextDidEndEditing(*editor);
    }
}

void TableView::endEditing()
{
    if (!m_edit || m_endingEdit) {
        return;
    }
    m_endingEdit = true;
    const QPointer<QWidget> view = m_edit->view;
    const bool hadFocus = belongsTo(QApplication::focusWidget(), view);
    commitText();
    QGuiApplication::inputMethod()->reset(); // so that a dead key pressed here does not affect the next text
    m_edit.reset();
    if (hadFocus) {
        setFocus(Qt::OtherFocusReason);
    }
    if (view) {
        view->hide();
        view->deleteLater();
    }
    m_editRing->hide();
    viewport()->update();
    m_endingEdit = false;
}

/// Edits the next or the previous editable cell of the row, with its text selected; beyond the last one the edit ends.
void TableView::moveEdit(int step)
{
    if (!m_edit) {
        return;
    }
    const int row = m_edit->row;
    int column = m_edit->column + step;
    while (hasColumn(column) && !isEditable(column)) {
        column += step;
    }
    endEditing();
    beginEdit({column, row}, std::nullopt);
    if (CellEditor* const editor = textEditor()) {
        editor->selectAll();
    }
}

void TableView::editorTextChanged()
{
    if (CellEditor* const editor = textEditor(); editor && m_delegate) {
        m_delegate->controlTextDidChange(*editor);
    }
    if (m_edit && rectOfRow(m_edit->row).height() <= viewport()->height()) {
        scrollRowToVisible(m_edit->row); // the row may have grown past the edge
    }
    showCaret();
}

QWidget* TableView::viewAt(int column, int row) const
{
    return m_edit && m_edit->column == column && m_edit->row == row ? m_edit->view.data() : nullptr;
}

int TableView::rowForView(const QWidget& view) const
{
    return m_edit && m_edit->view && belongsTo(&view, m_edit->view) ? m_edit->row : -1;
}

/// A text editor covers only the visible lines of its cell, so that a note of any number of lines can be edited as
/// quickly as a short one.
void TableView::layoutEditor()
{
    if (!m_edit || !m_edit->view) {
        return;
    }
    const QRect cell = rectOfCell(m_edit->column, m_edit->row);
    m_editRing->setGeometry(cell);
    CellEditor* const editor = textEditor();
    if (!editor) {
        m_edit->view->setGeometry(cell);
        return;
    }
    const int lines = std::max(1, static_cast<int>(std::lround(cell.height() / m_lineHeight)));
    const int first = std::clamp(static_cast<int>(std::floor(-cell.top() / m_lineHeight)), 0, lines - 1);
    const int end =
        std::clamp(static_cast<int>(std::ceil((viewport()->height() - cell.top()) / m_lineHeight)), first + 1, lines);
    editor->setGeometry(cell.left() + cellPadding, cell.top() + static_cast<int>(std::lround(first * m_lineHeight)),
                        cell.width() - 2 * cellPadding, static_cast<int>(std::lround((end - first) * m_lineHeight)));
    editor->setFirstLine(first);
}

void TableView::showCaret()
{
    const CellEditor* const editor = textEditor();
    if (!editor) {
        return;
    }
    const QRect cell = rectOfCell(m_edit->column, m_edit->row);
    const int top = cell.top() + static_cast<int>(std::lround(editor->caretLine() * m_lineHeight));
    const int below = top + static_cast<int>(std::lround(m_lineHeight)) - viewport()->height();
    QScrollBar& bar = *verticalScrollBar();
    if (top < 0) {
        bar.setValue(bar.value() + top);
    } else if (below > 0) {
        bar.setValue(bar.value() + below);
    }
}

/// Shows the text's own menu, followed by the table's for the edited row.
void TableView::openEditorMenu(QPoint globalPosition)
{
    CellEditor* const editor = textEditor();
    if (!editor) {
        return;
    }
    m_clickedRow = m_edit->row;
    QMenu* const menu = editor->createStandardContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    if (m_menu) {
        Q_EMIT m_menu->aboutToShow();
        menu->addSeparator();
        menu->addActions(m_menu->actions());
    }
    menu->popup(globalPosition);
}

/// Ends the edit when the focus moves to another control of this window, but not when a menu opens, when the menu bar
/// takes the focus (which it returns), or when another window comes to the front.
void TableView::focusMoved(QWidget* now)
{
    const bool isElsewhere = now && now->window() == window() && !qobject_cast<QMenuBar*>(now);
    if (m_edit && isElsewhere && !belongsTo(now, m_edit->view)) {
        endEditing();
    }
}

/// Handles the keys of a control made by a column's factory.
bool TableView::eventFilter(QObject* watched, QEvent* event)
{
    if (m_edit && watched == m_edit->view && event->type() == QEvent::KeyPress) {
        switch (static_cast<QKeyEvent*>(event)->key()) {
        case Qt::Key_Tab:
            moveEdit(1);
            return true;
        case Qt::Key_Backtab:
            moveEdit(-1);
            return true;
        case Qt::Key_Escape:
        case Qt::Key_Return:
        case Qt::Key_Enter:
            endEditing();
            return true;
        default:
            break;
        }
    }
    return QAbstractScrollArea::eventFilter(watched, event);
}
