// SPDX-License-Identifier: MIT
#include "support/Screenshot.h"

#include <QApplication>
#include <QDir>
#include <QPainter>
#include <QWidget>
#include <gtest/gtest.h>

AppearanceGuard::AppearanceGuard(Appearance appearance) : m_former(QApplication::palette())
{
    QApplication::setPalette(calmPalette(appearance));
}

AppearanceGuard::~AppearanceGuard()
{
    QApplication::setPalette(m_former);
}

QImage grabbed(QWidget& widget, int devicePixelRatio)
{
    QImage picture(widget.size() * devicePixelRatio, QImage::Format_ARGB32_Premultiplied);
    picture.setDevicePixelRatio(devicePixelRatio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setLayoutDirection(widget.layoutDirection()); // as it is on a screen
    widget.render(&painter);
    return picture;
}

QString saveScreenshot(const QImage& picture, const QString& variant)
{
    const ::testing::TestInfo& test = *::testing::UnitTest::GetInstance()->current_test_info();
    QString name = QStringLiteral("%1.%2").arg(QLatin1String(test.test_suite_name()), QLatin1String(test.name()));
    name.replace(u'/', u'-');
    if (!variant.isEmpty()) {
        name += u'-' + variant;
    }
    const QDir folder(QStringLiteral(VELUMORA_SCREENSHOTS));
    const QString path = folder.filePath(name + QStringLiteral(".png"));
    return folder.mkpath(QStringLiteral(".")) && picture.save(path) ? path : QString();
}
