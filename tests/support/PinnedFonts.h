// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QtGlobal>

/// Has this process see the fonts of one configuration in tests/support/fonts and no others, whatever is installed: the
/// one that TEST_FONTS names, DejaVu alone where it names none. To be called before the application is made.
inline void pinFonts()
{
    const QByteArray name = qEnvironmentVariableIsEmpty("TEST_FONTS") ? "dejavu" : qgetenv("TEST_FONTS");
    qputenv("FONTCONFIG_FILE", VELUMORA_FONT_CONFIGURATIONS "/" + name + ".conf");
    qputenv("XDG_CACHE_HOME", VELUMORA_FONT_CACHE);
}
