// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"
#include "calendar/MonthPage.h"
#include "calendar/MonthlyGrid.h"
#include "calendar/PaperSize.h"
#include "dates/Clock.h"
#include "host/Workspace.h"
#include "store/Files.h"
#include "ui_MainWindow.h"

#include <QUrl>

namespace {

constexpr const char* printFileName = "MyPrintedView.pdf";

/// Writes the whole file or none, readable by the user alone.
void writePrivately(const std::filesystem::path& path, const QByteArray& bytes)
{
    removeStaleTemporaries(path.parent_path(), path.filename().native());
    TemporaryFile file(path);
    if (!file.write({bytes.constData(), static_cast<std::size_t>(bytes.size())}) && !file.sync()) {
        (void)file.replaceTarget(); // nothing is reported: the viewer says that there is nothing to show
    }
}

} // namespace

// The page is painted for the paper itself, in its own light colours and without the page's buttons. So neither the
// buttons nor the appearance of the window need to change for the time of the print, and neither can be left changed.
void AppDelegate::printMonthlyView()
{
    deleteMonthlyPrintFile();
    if (!m_host.temporaryFolder) {
        return;
    }
    MonthPage page = m_ui.monthlyGrid->page();
    page.title = m_ui.monthlyViewMonthYear->text();
    const std::filesystem::path path = *m_host.temporaryFolder / printFileName;
    writePrivately(path, pdfOf(page, paperSizeOf(DateEnvironment::localePair().currentLocale)));
    m_monthlyPrintFile = path;
    m_host.workspace.openUrl(QUrl::fromLocalFile(QString::fromStdString(path.native())));
}

void AppDelegate::deleteMonthlyPrintFile()
{
    if (m_monthlyPrintFile) {
        std::error_code ignored;
        std::filesystem::remove(*m_monthlyPrintFile, ignored);
        m_monthlyPrintFile.reset();
    }
}
