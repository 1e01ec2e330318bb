// SPDX-License-Identifier: MIT
#include "look/FittingScrollArea.h"

#include <QEvent>
#include <QLayout>
#include <QScrollBar>
#include <QVBoxLayout>

namespace {

constexpr QSize enoughToWork(560, 280); ///< enough to work with a page, though it scrolls

} // namespace

FittingScrollArea::FittingScrollArea(QWidget* parent) : QScrollArea(parent)
{
    setFrameShape(NoFrame);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    viewport()->setAutoFillBackground(false);
}

QSize FittingScrollArea::sizeHint() const
{
    return widget() ? widget()->sizeHint() + scrollBarRoom() : QSize();
}

QSize FittingScrollArea::minimumSizeHint() const
{
    return widget() ? (widget()->minimumSizeHint() + scrollBarRoom()).boundedTo(enoughToWork) : QSize();
}

/// The width of the vertical bar is reserved, so that content that is too high does not become too wide as well.
QSize FittingScrollArea::scrollBarRoom() const
{
    return {verticalScrollBar()->sizeHint().width(), 0};
}

bool FittingScrollArea::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == widget() && event->type() == QEvent::LayoutRequest) {
        updateGeometry(); // the area's sizes depend on it
    }
    return QScrollArea::eventFilter(watched, event);
}

void makeScrollable(QWidget& page)
{
    auto* content = new QWidget;
    content->setLayout(page.layout()); // and all widgets in it
    auto* area = new FittingScrollArea(&page);
    area->setWidget(content);
    content->setAutoFillBackground(false); // setWidget turned it on
    auto* whole = new QVBoxLayout(&page);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->addWidget(area);
}
