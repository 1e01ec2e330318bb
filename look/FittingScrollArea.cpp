// SPDX-License-Identifier: MIT
#include "look/FittingScrollArea.h"

#include <QEvent>
#include <QLayout>
#include <QScrollBar>
#include <QVBoxLayout>

namespace {

constexpr QSize enoughToWork(560, 280); ///< in which a page can be worked with, though it scrolls

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
    return widget() ? widget()->sizeHint() + besides() : QSize();
}

QSize FittingScrollArea::minimumSizeHint() const
{
    return widget() ? (widget()->minimumSizeHint() + besides()).boundedTo(enoughToWork) : QSize();
}

/// Where content is too high, the bar beside it does not make it too wide as well.
QSize FittingScrollArea::besides() const
{
    return {verticalScrollBar()->sizeHint().width(), 0};
}

bool FittingScrollArea::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == widget() && event->type() == QEvent::LayoutRequest) {
        updateGeometry(); // its sizes are this area's too
    }
    return QScrollArea::eventFilter(watched, event);
}

void makeScrollable(QWidget& page)
{
    auto* content = new QWidget;
    content->setLayout(page.layout()); // with all that stands in it
    auto* area = new FittingScrollArea(&page);
    area->setWidget(content);
    content->setAutoFillBackground(false); // which an area turns on
    auto* whole = new QVBoxLayout(&page);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->addWidget(area);
}
