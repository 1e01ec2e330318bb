// SPDX-License-Identifier: MIT
#include "app/Translations.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include <memory>

namespace {

bool install(const QString& file, const QString& folder)
{
    auto translator = std::make_unique<QTranslator>();
    if (!translator->load(file, folder)) {
        return false;
    }
    translator->setParent(QCoreApplication::instance());
    QCoreApplication::installTranslator(translator.release());
    return true;
}

} // namespace

void installTranslation(const std::vector<std::string>& preferredLanguages)
{
    Q_INIT_RESOURCE(translations); // it stands in a library
    for (const std::string& tag : preferredLanguages) {
        const QString language = QString::fromStdString(tag).section(QLatin1Char('-'), 0, 0).toLower();
        if (language == QLatin1String("en")) {
            return;
        }
        if (install(QStringLiteral("velumora_") + language, QStringLiteral(":/translations"))) {
            // The toolkit's own texts, those of context menus for one.
            install(QStringLiteral("qtbase_") + language, QLibraryInfo::path(QLibraryInfo::TranslationsPath));
            if (qobject_cast<QGuiApplication*>(QCoreApplication::instance())) { // a command line has no windows
                QGuiApplication::setLayoutDirection(QLocale(language).textDirection());
            }
            return;
        }
    }
}
