// SPDX-License-Identifier: MIT
#include "widgets/SegmentedControl.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QToolButton>

namespace {

constexpr int cornerRadius = 6;
constexpr int dividerInset = 7;

} // namespace

SegmentedControl::SegmentedControl(QWidget* parent) : QWidget(parent)
{
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void SegmentedControl::setLabels(const QStringList& labels)
{
    while (m_segments.size() > labels.size()) {
        delete m_segments.takeLast();
    }
    while (m_segments.size() < labels.size()) {
        const int index = static_cast<int>(m_segments.size());
        auto* segment = new QToolButton(this);
        segment->setObjectName(QStringLiteral("segment%1").arg(index));
        segment->setAutoRaise(true);
        segment->setFocusPolicy(Qt::StrongFocus);
        segment->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        connect(segment, &QToolButton::clicked, this, [this, index] {
            m_selected = index;
            Q_EMIT segmentPressed(index);
        });
        layout()->addWidget(segment);
        m_segments.append(segment);
    }
    for (qsizetype i = 0; i < labels.size(); ++i) {
        m_segments.at(i)->setText(labels.at(i));
    }
}

QStringList SegmentedControl::labels() const
{
    QStringList labels;
    for (const QToolButton* segment : m_segments) {
        labels.append(segment->text());
    }
    return labels;
}

void SegmentedControl::setLabelForSegment(const QString& label, int segment)
{
    if (labelForSegment(segment) != label) { // an unchanged label is not announced again
        m_segments.at(segment)->setText(label);
    }
}

QString SegmentedControl::labelForSegment(int segment) const
{
    return m_segments.at(segment)->text();
}

void SegmentedControl::setTabOrderAfter(QWidget& before)
{
    QWidget* last = &before;
    for (QToolButton* segment : std::as_const(m_segments)) {
        setTabOrder(last, segment);
        last = segment;
    }
}

void SegmentedControl::press(int segment)
{
    m_segments.at(segment)->click();
}

void SegmentedControl::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor line = palette().color(QPalette::Mid);
    painter.setPen(line);
    painter.setBrush(palette().color(QPalette::Button));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), cornerRadius, cornerRadius);
    for (qsizetype i = 1; i < m_segments.size(); ++i) {
        const QRect left = m_segments.at(layoutDirection() == Qt::RightToLeft ? i - 1 : i)->geometry();
        painter.drawLine(left.left(), dividerInset, left.left(), height() - dividerInset);
    }
}

void SegmentedControl::keyPressEvent(QKeyEvent* event)
{
    const bool towardsEnd = event->key() == (layoutDirection() == Qt::RightToLeft ? Qt::Key_Left : Qt::Key_Right);
    const bool towardsStart = event->key() == (layoutDirection() == Qt::RightToLeft ? Qt::Key_Right : Qt::Key_Left);
    if (towardsEnd || towardsStart) {
        focusNextPrevChild(towardsEnd);
    } else {
        QWidget::keyPressEvent(event);
    }
}
