// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QWidget>

class QToolButton;

/// A row of joined buttons. A press reports which one it was; none stays pressed.
class SegmentedControl : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QStringList labels READ labels WRITE setLabels)

public:
    explicit SegmentedControl(QWidget* parent = nullptr);

    /// Makes one segment for each label.
    void setLabels(const QStringList& labels);
    QStringList labels() const;

    void setLabelForSegment(const QString& label, int segment);
    QString labelForSegment(int segment) const;

    /// The segment that was pressed last, -1 before the first press.
    int selectedSegment() const { return m_selected; }

    /// Puts the segments after `before`, a widget of the same window, in the tab order. Otherwise they come last,
    /// because they are made after the page is laid out.
    void setTabOrderAfter(QWidget& before);

    /// Does what a click on `segment` does.
    void press(int segment);

Q_SIGNALS:
    void segmentPressed(int segment);

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QList<QToolButton*> m_segments;
    int m_selected = -1;
};
