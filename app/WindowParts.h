// SPDX-License-Identifier: MIT
#pragma once

#include "notes/ListRow.h"

#include <QString>

class QAbstractButton;
class SaveButton;
class TableView;

/// The pages of the window, in the order of its tabs.
enum class Page { MiniCalendar, Week, Month };

/// The segments that choose what the notes list shows, in their order.
enum class NotesSegment { CurrentMonth, All, ShownMonth, CurrentYear };

/// What differs between the two lists, so that one handler serves both. Nothing of it is owned.
struct ListBinding {
    ListKind kind;
    TableView& view;
    SaveButton& saveButton;
    QAbstractButton& deleteButton;
    double lineHeight;  ///< in points
    QString name;       ///< as an alert calls it
    QString editorName; ///< of the field in which a text is edited, for a screen reader; "%@" is its day
};
