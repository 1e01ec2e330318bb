// SPDX-License-Identifier: MIT
#pragma once

#include "notes/SortDescriptor.h"
#include "table/HeaderCell.h"

#include <QColor>
#include <QString>

#include <functional>
#include <optional>

class QWidget;

/// What a column's cell shows in one row. The text is always plain text.
struct CellView {
    QString text;
    QColor textColor = {};   ///< an invalid colour is the control text colour
    QString spokenText = {}; ///< what a screen reader says in place of the text; empty: the text
};

/// One column of a table.
struct TableColumn {
    enum class Editing { ReadOnly, Editable };

    QString identifier;    ///< unique within the table
    HeaderCell headerCell; ///< title and font above the column

    double width = 120.0;       ///< points
    double minimumWidth = 40.0; ///< points; the user cannot make the column narrower
    bool stretches = false;     ///< shares the width that the fixed columns leave; `width` is then not read

    /// What a click on the header sorts by first, the other order next; none: the header does nothing.
    std::optional<SortDescriptor> sortDescriptorPrototype;

    Editing editing = Editing::ReadOnly;

    /// Makes the control that stands in a cell of this column while it is edited, a child of `parent` (which owns it),
    /// its value already set; null refuses the edit. Without a factory an editable column edits its text (CellEditor).
    std::function<QWidget*(QWidget* parent, int row)> editorFactory;
};
