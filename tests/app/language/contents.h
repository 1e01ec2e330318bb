// SPDX-License-Identifier: MIT
#pragma once

#include <QFile>
#include <gtest/gtest.h>

/// The bytes of a file that must be there.
inline QByteArray contents(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}
