// SPDX-License-Identifier: MIT
#include "app/Appearance.h"

#include <QApplication>
#include <QFile>
#include <QFont>
#include <QStyleFactory>

namespace {

constexpr int basePixelSize = 13;

} // namespace

void applyAppearance(QApplication& application)
{
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QFont base = QApplication::font();
    base.setPixelSize(basePixelSize);
    QApplication::setFont(base);

    Q_INIT_RESOURCE(velumora); // it stands in a library
    QFile rules(QStringLiteral(":/velumora.qss"));
    if (rules.open(QIODevice::ReadOnly)) {
        application.setStyleSheet(QString::fromUtf8(rules.readAll()));
    }
}
