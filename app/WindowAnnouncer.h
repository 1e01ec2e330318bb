// SPDX-License-Identifier: MIT
#pragma once

#include "look/Announcer.h"

class QMainWindow;
class QWidget;

namespace Ui {
class MainWindow;
}

/// Has a screen reader announce what changed in the window outside the focused control. The texts are read from the
/// window, so call it after the change is shown.
class WindowAnnouncer {
public:
    /// `layout` is set up on `window`; both outlive the announcer.
    WindowAnnouncer(QMainWindow& window, const Ui::MainWindow& layout);

    void announceMonthOfMiniCal();
    void announceWeek();
    void announceMonthOfPage();
    void announcePage(const QWidget& page); ///< the mini calendar's says nothing

    /// How many notes a search has found.
    void announceFoundNotes();

    /// What was chosen to be shown in the notes list, and how many notes that are.
    void announceRows(const QString& choice);

private:
    const Ui::MainWindow& m_ui;
    Announcer& m_announcer; ///< the window's
};
