// SPDX-License-Identifier: MIT
#pragma once

#include "store/SortDescriptor.h"
#include "table/HeaderCell.h"

#include <QColor>
#include <QString>

#include <functional>
#include <optional>

class QWidget;

/// What a cell shows. The text is always plain text.
struct CellView {
    QString text;
    QColor textColor = {};   ///< invalid for the control text colour
    QString spokenText = {}; ///< what a screen reader says instead of the text; empty for the text
};

/// One column of a table.
struct TableColumn {
    enum class Editing { ReadOnly, Editable };

    QString identifier;    ///< unique within the table
    HeaderCell headerCell; ///< title and font above the column

    double width = 120.0;       ///< points
    double minimumWidth = 40.0; ///< points; the user cannot make the column narrower
    bool stretches = false;     ///< shares the width that the fixed columns leave; `width` is then ignored

    /// The order that a first click on the header sorts by; the next click reverses it. Without one, clicking does
    /// nothing.
    std::optional<SortDescriptor> sortDescriptorPrototype;

    Editing editing = Editing::ReadOnly;

    /// Makes the control for editing a cell of this column, with its value already set, as a child of `parent`, which
    /// owns it; null refuses the edit. Without a factory, the text of an editable column is edited (CellEditor).
    std::function<QWidget*(QWidget* parent, int row)> editorFactory;
};
