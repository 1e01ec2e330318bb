// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"
#include "host/Bundle.h"
#include "host/Workspace.h"
#include "sheets/AboutSheet.h"
#include "sheets/SheetQueue.h"
#include "text/Localized.h"

#include <QMainWindow>
#include <QPointer>
#include <QUrl>
#include <unicode/locid.h>

namespace {

const QString helpPage = QStringLiteral("/VelumoraHelp/VelumoraHelp.htm");

} // namespace

void AppDelegate::myShowHelp()
{
    const icu::Locale locale(DateEnvironment::localePair().currentLocale.c_str());
    const QString language = QString::fromLatin1(locale.getLanguage()).toLower();
    if (const auto folder = m_host.bundle.localizationFolder(language)) {
        m_host.workspace.openUrl(QUrl::fromLocalFile(QString::fromStdString(folder->string()) + helpPage), {});
    }
}

void AppDelegate::showDataFilesInFinder()
{
    if (const auto folder = m_store.folder()) {
        m_host.workspace.showFolder(*folder, {});
    }
}

void AppDelegate::openProductWebPage(const std::function<void()>& whenDecided)
{
    const QUrl page(QStringLiteral(VELUMORA_WEB_PAGE), QUrl::StrictMode);
    const auto decided = [delegate = QPointer(this), whenDecided](bool opened) {
        if (delegate && !opened) {
            delegate->showAlertOnMainWindow(
                localized("Unexpected Error"),
                localized("Unable to Find Velumora web page, is there a live connection to the Web?"), localized("OK"),
                QString());
        }
        if (delegate && whenDecided) {
            whenDecided();
        }
    };
    if (page.isValid()) {
        m_host.workspace.openUrl(page, decided);
    } else {
        decided(false);
    }
}

void AppDelegate::showAbout()
{
    auto* sheet =
        new AboutSheet(m_host.bundle.shortVersionString(), QUrl(QStringLiteral(VELUMORA_WEB_PAGE)), &m_window);
    connect(sheet, &AboutSheet::webPageWanted, this, [this] { openProductWebPage(); });
    SheetQueue::of(m_window).begin(*sheet, [sheet](int) { sheet->deleteLater(); });
}
