// SPDX-License-Identifier: MIT
#pragma once

#include "notes/ListRow.h"

#include <QString>

#include <string_view>

class QAbstractButton;
class TableView;

/// The pages of the window, in the order of its tabs.
enum class Page { MiniCalendar, Week, Month };

/// The segments that choose what the notes list shows, in their order.
enum class NotesSegment { CurrentMonth, All, ShownMonth, CurrentYear };

/// What differs between the two lists, so that one handler serves both. Nothing of it is owned.
struct ListBinding {
    ListKind kind;
    TableView& view;
    QAbstractButton& saveButton;
    QAbstractButton& deleteButton;
    double lineHeight;         ///< in points
    std::string_view fileName; ///< in the data folder
    QString name;              ///< as an alert calls it
    QString editorName;        ///< of the field in which a text is edited, for a screen reader; "%@" is its day
};
