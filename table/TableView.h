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

/// A table of text cells, of any number of rows, each with its own height. It keeps nothing of a row but the height and
/// asks its delegate for the cells of visible rows while it paints, so reloading and scrolling cost the same for a
/// lifetime of rows as for a page of them.
///
/// Rows and columns count from 0; -1 is no row. A row or column that does not exist is ignored by what sets something
/// and gives an empty result from what asks. Rectangles are in the coordinates of viewport(). One row is selected at
/// most.
class TableView : public QAbstractScrollArea {
    Q_OBJECT
    Q_PROPERTY(QString placeholderText READ placeholderText WRITE setPlaceholderText)
    Q_PROPERTY(double lineHeight READ lineHeight WRITE setLineHeight)

public:
    explicit TableView(QWidget* parent = nullptr);
    ~TableView() override;

    /// Data source and delegate; not owned, must outlive the table or be replaced. Null shows no rows. Reloads.
    void setDelegate(TableViewDelegate* delegate);
    TableViewDelegate* delegate() const { return m_delegate; }

    // Columns

    void addColumn(TableColumn column);
    const std::vector<TableColumn>& tableColumns() const { return m_columns; }
    int columnWithIdentifier(QStringView identifier) const;
    bool isEditable(int column) const;

    /// Whether that cell can be edited now: its column is editable, its row is not hidden, and the delegate has nothing
    /// against it.
    bool canEdit(int column, int row) const;
    void setHeaderCell(int column, HeaderCell cell);
    void setColumnWidth(int column, double width); ///< held to the column's minimum; it then stretches no more

    const TableHeaderView& header() const { return *m_header; }

    // Rows

    /// Asks the delegate for count and heights anew. An edit in progress is ended first. The selected row stays
    /// selected by its number; when the new rows do not reach that far, none is selected. Rows are hidden no more.
    void reloadData();
    int numberOfRows() const { return m_heights.count(); }

    /// The delegate's rows have one more, at `row`. Selection, hidden rows and an edit in progress move along.
    void insertRow(int row);

    /// Asks the delegate for the height of that row anew, O(log rows).
    void noteHeightOfRowChanged(int row);

    /// The row's cells are painted again; nothing else is asked anew.
    void redrawRow(int row);

    /// What the delegate shows in that cell now.
    CellView cellView(int column, int row) const;

    /// Hidden rows keep their numbers but take no room and are never selected by a key.
    const std::set<int>& hiddenRowIndexes() const { return m_hiddenRows; }
    void hideRow(int row);
    void unhideRow(int row);

    /// The height of one line of text, 17 points unless set otherwise. The delegate's row heights are its multiples.
    double lineHeight() const { return m_lineHeight; }
    void setLineHeight(double height);

    /// Shown in the middle of a table without rows; empty shows nothing.
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

    /// Makes `row` the only selected row; -1 selects none. A row that does not exist changes nothing.
    void selectRow(int row);

    /// The same as the user's choice: the delegate also hears tableViewSelectionIsChanging, and the row comes into
    /// view.
    void chooseRow(int row);

    /// While no row is selected, the arrow and page keys go on as if one stood right above `row`: Down chooses `row`,
    /// Up the one before it. Until a row is selected or the table is reloaded; without it they begin at an end of the
    /// table.
    void resumeAtRow(int row);

    /// The column whose cell stands for the selected row when it is spoken and which Return edits: the first whose text
    /// can be edited, else the first.
    int spokenColumn() const;
    SelectionHighlightStyle selectionHighlightStyle() const { return m_highlightStyle; }
    void setSelectionHighlightStyle(SelectionHighlightStyle style);

    // Sorting

    const std::vector<SortDescriptor>& sortDescriptors() const { return m_sortDescriptors; }

    /// Tells the delegate when they differ from the present ones.
    void setSortDescriptors(std::vector<SortDescriptor> descriptors);

    /// As a click on the column's header does: by the column's prototype, in the other order when it is by that
    /// already.
    void sortByColumn(int column);

    // Context menu

    /// Opens on a right click and with the menu key; not owned. Clicked row is set before it tells aboutToShow.
    void setMenu(QMenu* menu);

    /// The row under the last context-menu click; -1 beside the rows. With the menu key, the selected row.
    int clickedRow() const { return m_clickedRow; }

    // Editing in place

    /// Starts to edit that cell, after ending another edit. Nothing happens when the cell cannot be edited.
    void editColumn(int column, int row);
    int editedRow() const { return m_edit ? m_edit->row : -1; }
    int editedColumn() const { return m_edit ? m_edit->column : -1; }

    /// Ends the edit in progress: tells the delegate, then the editor is gone. What was typed stays.
    void endEditing();

    /// Tells the delegate of the text as at the end of an edit, and the edit goes on: caret and undo stay as they are.
    void commitEditing();

    /// The control that stands in that cell now (its CellEditor or what the column's factory made), else null.
    QWidget* viewAt(int column, int row) const;

    /// The row in which `view`, or the editor that holds it, stands now; -1 when it is in none of this table's cells.
    int rowForView(const QWidget& view) const;

    /// Puts the texts of the selected row's cells on the clipboard, with a tab character between them.
    void copy() const;

Q_SIGNALS:
    void textComposed(); ///< an input method changed what it composes in an editor; the text itself is as it was

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
    std::vector<ColumnSpan> m_columnSpans; ///< as wide as the viewport or wider, unscrolled
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
