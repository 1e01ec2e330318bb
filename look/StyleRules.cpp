// SPDX-License-Identifier: MIT
#include "look/StyleRules.h"

#include "host/GlobalDefaults.h"
#include "look/NamedColor.h"
#include "look/TextSize.h"

#include <QApplication>
#include <QEvent>
#include <QFile>
#include <QFontInfo>
#include <QRegularExpression>
#include <QStyleFactory>
#include <QWidget>

namespace {

const QString followerName = QStringLiteral("textSizeFollower");

/// The rules with lengths in rem converted to pixels.
QString inPixels(const QString& rules)
{
    static const QRegularExpression rem(QStringLiteral("([0-9.]+)rem"));
    const int one = QFontInfo(QApplication::font()).pixelSize();
    QString told;
    qsizetype end = 0;
    for (auto matches = rem.globalMatch(rules); matches.hasNext();) {
        const QRegularExpressionMatch length = matches.next();
        told += rules.sliced(end, length.capturedStart() - end);
        told += QStringLiteral("%1px").arg(qRound(length.captured(1).toDouble() * one));
        end = length.capturedEnd();
    }
    return told + rules.sliced(end);
}

QString rulesOf(const QString& name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? inPixels(QString::fromUtf8(file.readAll())) : QString();
}

/// Reapplies the style rules to its window when the text size changes.
class TextSizeFollower : public QObject {
public:
    explicit TextSizeFollower(QWidget& window) : QObject(&window), m_window(window)
    {
        setObjectName(followerName);
        window.installEventFilter(this);
    }
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::ApplicationFontChange) {
            applyStyleRules(m_window);
        }
        return QObject::eventFilter(watched, event);
    }

private:
    QWidget& m_window;
};

} // namespace

void applyStyle()
{
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    applyTextSize({});
}

void applyPalette(const QPalette& palette, QWidget& window)
{
    QApplication::setPalette(palette);
    applyStyleRules(window); // again, because widgets under a style sheet keep the palette that it made for them
}

void applyStyleRules(QWidget& window)
{
    Q_INIT_RESOURCE(velumora); // needed for resources in a static library
    const QString strong =
        isHighContrast(QApplication::palette()) ? rulesOf(QStringLiteral(":/high-contrast.qss")) : QString();
    window.setStyleSheet(rulesOf(QStringLiteral(":/velumora.qss")) + strong);
    if (!window.findChild<QObject*>(followerName, Qt::FindDirectChildrenOnly)) {
        new TextSizeFollower(window); // owned by the window
    }
}
