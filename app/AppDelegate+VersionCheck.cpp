// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"
#include "host/Bundle.h"
#include "host/VersionServer.h"
#include "text/Localized.h"
#include "text/VersionText.h"
#include "ui_MainWindow.h"

#include <QAction>
#include <QMainWindow>

namespace {

/// The alert about the reply of the version server; nullopt stands for no reply.
std::unique_ptr<Alert> alertAbout(const std::optional<QString>& reply, const QString& ownVersion)
{
    if (!reply) {
        return AppDelegate::copySheetAlertWithErrorString(localized("The Velumora web site could not be contacted."),
                                                          localized("Version check failed."), localized("OK"), {});
    }
    if (VersionText::isNewer(*reply, ownVersion)) {
        return AppDelegate::copySheetAlertWithErrorString(
            localized("It can be downloaded from the Velumora web site. "),
            localized("A new version of Velumora (") + *reply + localized(") is available."),
            localized("Go to web site"), localized("OK"));
    }
    return AppDelegate::copySheetAlertWithErrorString(localized("This version of Velumora (") + ownVersion +
                                                          localized(") is the current version."),
                                                      {}, localized("OK"), {});
}

} // namespace

void AppDelegate::doNewVersionCheck()
{
    if (m_versionFetch) {
        return;
    }
    m_ui.versionCheckAction->setEnabled(false);
    m_window.setCursor(Qt::BusyCursor);
    m_versionFetch = m_host.versionServer.fetchNewestVersion([this](const std::optional<QString>& reply) {
        m_versionFetch.reset();
        m_window.unsetCursor();
        m_ui.versionCheckAction->setEnabled(true);
        Alert::beginSheet(alertAbout(reply, m_host.bundle.shortVersionString()), m_window, [this](int answer) {
            if (answer == Alert::secondButtonReturn) { // "OK"; "Go to web site" closes the sheet alone
                openProductWebPage();
            }
        });
    });
}
