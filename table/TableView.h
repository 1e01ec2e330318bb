// SPDX-License-Identifier: MIT
#pragma once

#include "table/ColumnLayout.h"
#include "table/RowHeights.h"
#include "table/TableColumn.h"
#include "table/TableRowView.h"

#include <QAbstractScrollArea>
#include <QPointer>

#include <optional>
#include <set>
#include <vector>

class CellEditor;
class FocusRing;
class QHelpEvent;
class QMenu;
class TableHeaderView;
class TableViewDelegate;

/// A table of text cells with any number of rows, each with its own height. It stores nothing but the rows' heights and
/// asks its delegate for the cells of visible rows while it paints, so scrolling costs the same for a lifetime of rows
/// as for a page of them.
///
/// Rows and columns count from 0; -1 means no row. For a row or column that does not exist, setters do nothing and
/// getters return an empty result. Rectangles are in the coordinates of viewport(). At most one row is selected.
class TableView : public QAbstractScrollArea {
    Q_OBJECT
    Q_PROPERTY(QString placeholderText READ placeholderText WRITE setPlaceholderText)
    Q_PROPERTY(double lineHeight READ lineHeight WRITE setLineHeight)

public:
    explicit TableView(QWidget* parent = nullptr);
    ~TableView() override;

    /// Sets data source and delegate, and reloads; not owned, must outlive the table or be replaced. Null shows no
    /// rows.
    void setDelegate(TableViewDelegate* delegate);
    TableViewDelegate* delegate() const { return m_delegate; }

    // Columns

    void addColumn(TableColumn column);
    const std::vector<TableColumn>& tableColumns() const { return m_columns; }
    int columnWithIdentifier(QStringView identifier) const;
    bool isEditable(int column) const;

    /// Whether the cell can be edited now: its column is editable, its row is not hidden, and the delegate allows it.
    bool canEdit(int column, int row) const;
    void setHeaderCell(int column, HeaderCell cell);
    void setColumnWidth(int column, double width); ///< at least the column's minimum; the column no longer stretches

    const TableHeaderView& header() const { return *m_header; }

    // Rows

    /// Asks the delegate for the number of rows and all heights. Ends an edit first. The same row number stays selected
    /// or, when there are fewer rows now, none. No row stays hidden.
    void reloadData();
    int numberOfRows() const { return m_heights.count(); }

    /// Inserts a row that the delegate has added at `row`. Selection, hidden rows and an edit move along.
    void insertRow(int row);

    /// Asks the delegate for the height of that row, O(log rows).
    void noteHeightOfRowChanged(int row);

    /// Repaints the row's cells; nothing else is asked again.
    void redrawRow(int row);

    /// What the delegate shows in that cell now.
    CellView cellView(int column, int row) const;

    /// Hidden rows keep their numbers, but take no room and are never selected by a key.
    const std::set<int>& hiddenRowIndexes() const { return m_hiddenRows; }
    void hideRow(int row);
    void unhideRow(int row);

    /// The height of a line of text, 17 points by default. Row heights are multiples of it.
    double lineHeight() const { return m_lineHeight; }
    void setLineHeight(double height);

    /// Shown in the middle of a table without visible rows; empty for nothing.
    QString placeholderText() const { return m_placeholderText; }
    void setPlaceholderText(const QString& text);

    // Places

    QRect rectOfRow(int row) const;
    QRect rectOfCell(int column, int row) const;
    int rowAt(QPoint position) const;
    int columnAt(QPoint position) const;
    void scrollRowToVisible(int row);

    // Selection

    int selectedRow() const { return m_selectedRow; }

    /// Selects `row`, or nothing for -1. A row that does not exist changes nothing.
    void selectRow(int row);

    /// The same as if the user chose it: the delegate also gets tableViewSelectionIsChanging, and the row is scrolled
    /// into view.
    void chooseRow(int row);

    /// While no row is selected, makes the arrow and page keys go on as if a row just above `row` were selected: Down
    /// chooses `row`, Up the one before it. Applies until a row is selected or the table is reloaded; otherwise the
    /// keys begin at an end of the table.
    void resumeAtRow(int row);

    /// The column whose cell represents the selected row for screen readers, and which Return edits: the first with
    /// editable text, else the first.
    int spokenColumn() const;
    SelectionHighlightStyle selectionHighlightStyle() const { return m_highlightStyle; }
    void setSelectionHighlightStyle(SelectionHighlightStyle style);

    // Sorting

    const std::vector<SortDescriptor>& sortDescriptors() const { return m_sortDescriptors; }

    /// Notifies the delegate when they differ from the present ones.
    void setSortDescriptors(std::vector<SortDescriptor> descriptors);

    /// Sorts as a click on the column's header does: by the column's prototype, reversed when that is the present
    /// order.
    void sortByColumn(int column);

    // Context menu

    /// The menu for a right click and the menu key; not owned. clickedRow is set before it emits aboutToShow.
    void setMenu(QMenu* menu);

    /// The row of the last context menu; -1 outside the rows. With the menu key, the selected row.
    int clickedRow() const { return m_clickedRow; }

    // Editing in place

    /// Starts to edit the cell, ending another edit first. Does nothing when the cell cannot be edited.
    void editColumn(int column, int row);
    int editedRow() const { return m_edit ? m_edit->row : -1; }
    int editedColumn() const { return m_edit ? m_edit->column : -1; }

    /// Ends the present edit: notifies the delegate, then removes the editor. What was typed is kept.
    void endEditing();

    /// Notifies the delegate as at the end of an edit, but the edit goes on with its caret and undo history.
    void commitEditing();

    /// The control in that cell now (its CellEditor or what the column's factory made), else null.
    QWidget* viewAt(int column, int row) const;

    /// The row of `view`, or of the editor that contains it; -1 when it is in no cell of this table.
    int rowForView(const QWidget& view) const;

    /// Copies the texts of the selected row's cells to the clipboard, separated by tab characters.
    void copy() const;

Q_SIGNALS:
    void textComposed(); ///< an input method changed what it composes in an editor; the text itself has not changed

protected:
    bool viewportEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    friend class TableHeaderView;

    struct Edit {
        int column;
        int row;
        QPointer<QWidget> view;
    };
    struct Cell {
        int column = -1;
        int row = -1;
        bool operator==(const Cell&) const = default;
    };
    enum class Origin { User, Program };

    // TableView.cpp
    bool hasRow(int row) const { return row >= 0 && row < numberOfRows(); }
    bool hasColumn(int column) const { return column >= 0 && column < static_cast<int>(m_columns.size()); }
    void select(int row, Origin origin);
    void setRowHeight(int row, double height);
    void layoutContents();
    int contentsX() const;

    // TableView+Painting.cpp
    void paintRow(QPainter& painter, int row, const QRect& exposed) const;
    void paintCell(QPainter& painter, int column, int row, const QRect& exposed) const;
    void paintPlaceholder(QPainter& painter) const;
    void showToolTip(QHelpEvent& event) const;

    // TableView+Input.cpp
    Cell cellAt(QPoint position) const;
    int visibleRowFrom(int row, int step) const;
    int rowBeside(int direction) const;
    int rowPageAway(int direction) const;
    bool moveSelection(const QKeyEvent& event);
    void openMenu(int row, QPoint globalPosition);

    // TableView+Editing.cpp
    void beginEdit(Cell cell, std::optional<QPoint> clicked);
    QWidget* makeEditor(Cell cell);
    CellEditor* textEditor() const;
    void moveEdit(int step);
    void commitText();
    void editorTextChanged();
    void layoutEditor();
    void showCaret();
    void placeCaret(std::optional<QPoint> clicked);
    void openEditorMenu(QPoint globalPosition);
    void focusMoved(QWidget* now);

    TableViewDelegate* m_delegate = nullptr;
    std::vector<TableColumn> m_columns;
    /// Unscrolled. Together they are at least as wide as the viewport when a column stretches.
    std::vector<ColumnSpan> m_columnSpans;
    RowHeights m_heights;
    std::set<int> m_hiddenRows;
    std::vector<SortDescriptor> m_sortDescriptors;
    std::optional<Edit> m_edit;
    QPointer<QMenu> m_menu;
    TableHeaderView* m_header;
    FocusRing* m_focusRing; ///< around the table
    FocusRing* m_editRing;  ///< around the edited cell
    QString m_placeholderText;
    Cell m_pressed;
    double m_lineHeight = 17.0;
    int m_selectedRow = -1;
    int m_resumeRow = -1;
    int m_clickedRow = -1;
    int m_menuRow = -1; ///< the row outlined while its menu is open
    SelectionHighlightStyle m_highlightStyle = SelectionHighlightStyle::Regular;
    bool m_endingEdit = false;
};
