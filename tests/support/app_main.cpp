// SPDX-License-Identifier: MIT
#include "look/Appearance.h"
#include "look/StyleRules.h"
#include "support/PinnedFonts.h"

#include <QApplication>
#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    // No test of this kind needs or touches the desktop that it runs on.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qunsetenv("QT_SCALE_FACTOR");
    pinFonts();
    const QApplication application(argc, argv);
    Q_INIT_RESOURCE(velumora); // it stands in a library
    applyStyle();
    QApplication::setPalette(calmPalette(Appearance::Light));
    QApplication::setCursorFlashTime(0); // a picture is the same at any moment
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
