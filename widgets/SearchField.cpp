// SPDX-License-Identifier: MIT
#include "widgets/SearchField.h"

#include "look/NamedColor.h"

#include <QAction>
#include <QIconEngine>
#include <QKeyEvent>
#include <QPainter>
#include <QStyle>

#include <algorithm>
#include <utility>

namespace {

/// An exclamation mark on a red disc, in the colours that `field` has when it is painted.
class NothingFoundSign : public QIconEngine {
public:
    explicit NothingFoundSign(const QWidget& field) : m_field(field) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode, QIcon::State) override
    {
        const double side = std::min(rect.width(), rect.height());
        const double unit = side / 16; // the sign is designed on a square of 16 units
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(QRectF(rect).center());
        painter->scale(unit, unit);
        painter->setPen(Qt::NoPen);
        painter->setBrush(namedColor(u"SystemRedColor", m_field.palette()));
        painter->drawEllipse(QPointF(0, 0), 7, 7);
        painter->setBrush(namedColor(u"ControlBackgroundColor", m_field.palette()));
        painter->drawRoundedRect(QRectF(-1, -4.5, 2, 5.5), 1, 1);
        painter->drawEllipse(QPointF(0, 3.5), 1.2, 1.2);
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(&painter, picture.rect(), mode, state);
        return picture;
    }

    QIconEngine* clone() const override { return new NothingFoundSign(m_field); }

private:
    const QWidget& m_field;
};

} // namespace

SearchField::SearchField(QWidget* parent)
    : QLineEdit(parent), m_sign(new QAction(QIcon(new NothingFoundSign(*this)), QString(), this))
{
    addAction(m_sign, TrailingPosition);
    m_sign->setVisible(false); // after adding it, which shows it
    connect(this, &QLineEdit::textChanged, this, [this] { setFoundNothing({}); });
}

void SearchField::setFoundNothing(const QString& message)
{
    const bool foundNothing = !message.isEmpty();
    if (!m_foundNothing && !foundNothing) {
        return;
    }
    setAccessibleDescription({});
    setAccessibleDescription(message);
    m_sign->setText(message);
    m_sign->setVisible(foundNothing);
    if (std::exchange(m_foundNothing, foundNothing) != foundNothing) {
        style()->unpolish(this); // the style rules depend on the property
        style()->polish(this);
    }
}

void SearchField::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape && event->modifiers() == Qt::NoModifier && !text().isEmpty()) {
        clear(); // undo restores it
        return;
    }
    QLineEdit::keyPressEvent(event);
}
