// SPDX-License-Identifier: MIT
#pragma once

#include <QFlags>
#include <QRect>
#include <QToolButton>

#include <optional>

/// A button that reacts to the pointer: it is highlighted while the pointer is over it in the active window, and shows
/// the pointing hand while it is enabled.
class ZTRButtonHover : public QToolButton {
    Q_OBJECT

public:
    enum TrackingOption { MouseEnteredAndExited = 0x01, CursorUpdate = 0x04, ActiveInKeyWindow = 0x20 };
    Q_DECLARE_FLAGS(TrackingOptions, TrackingOption)

    /// The part of the button in which the pointer is tracked.
    struct TrackingArea {
        QRect rect;
        TrackingOptions options;
    };

    explicit ZTRButtonHover(QWidget* parent = nullptr);

    /// The present tracking area.
    const std::optional<TrackingArea>& trackingArea() const { return m_trackingArea; }

    /// Replaces the tracking area by one of the button's present size.
    void updateTrackingAreas();

    void mouseEntered();
    void mouseExited();
    void cursorUpdate(); ///< a disabled button does not change the pointer

    void highlight(bool flag);
    bool isHighlighted() const { return m_highlighted; }

protected:
    void changeEvent(QEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    std::optional<TrackingArea> m_trackingArea;
    bool m_highlighted = false;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(ZTRButtonHover::TrackingOptions)
