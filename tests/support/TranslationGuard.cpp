// SPDX-License-Identifier: MIT
#include "support/TranslationGuard.h"

#include "app/Translations.h"

#include <QGuiApplication>
#include <QTranslator>

TranslationGuard::TranslationGuard(const std::vector<std::string>& preferredLanguages)
    : m_former(QGuiApplication::layoutDirection())
{
    installTranslation(preferredLanguages);
}

TranslationGuard::~TranslationGuard()
{
    // A translator takes itself out of the application when it is deleted.
    qDeleteAll(qApp->findChildren<QTranslator*>(QString(), Qt::FindDirectChildrenOnly));
    QGuiApplication::setLayoutDirection(m_former);
}
