// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QObject>
#include <QRect>

#include <filesystem>
#include <optional>

class QMainWindow;

/// `wanted` with its frame moved, and made smaller where it must be, so that it lies on one of `screens`, given by what
/// is free of panels: on the one that shows most of it, the first where none does. No smaller than `least`.
QRect placedOnScreen(const QRect& wanted, const QMargins& frame, const QSize& least, const QList<QRect>& screens);

/// Where a window opens that stood at `last`: there, if one screen holds it whole, for its frame had room there; else
/// as `placedOnScreen` says.
QRect placedAgain(const QRect& last, const QMargins& frame, const QSize& least, const QList<QRect>& screens);

/// Has a window come back with the size, the place and the state, maximised or not, that it had when it was last
/// closed. They stand in a file of a few lines; where there is none, or none that can be read, the window keeps the
/// size of its layout. Either way it fits the screens of this moment.
class WindowPlace : public QObject {
    Q_OBJECT

public:
    /// To be made before the window first shows.
    WindowPlace(std::filesystem::path file, QMainWindow& window);

    /// Writes the file, whole or not at all. A closed window has told its place when it closed.
    void save();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void restore();

    const std::filesystem::path m_file;
    QMainWindow& m_window;
};
