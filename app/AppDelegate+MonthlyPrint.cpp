// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"
#include "calendar/MonthlyGrid.h"
#include "dates/Clock.h"
#include "dates/PaperSize.h"
#include "host/Workspace.h"
#include "print/MonthPage.h"
#include "store/Files.h"
#include "ui_MainWindow.h"

#include <QApplication>
#include <QPointer>
#include <QUrl>

#include <initializer_list>
#include <vector>

namespace {

constexpr const char* printFileName = "MyPrintedView.pdf";

/// Takes controls out of sight while it lives, and puts the keyboard back where it was.
class HiddenControls {
public:
    explicit HiddenControls(std::initializer_list<QWidget*> controls)
        : m_controls(controls), m_focused(QApplication::focusWidget())
    {
        for (QWidget* control : m_controls) {
            control->hide();
        }
    }
    HiddenControls(const HiddenControls&) = delete;
    HiddenControls& operator=(const HiddenControls&) = delete;
    ~HiddenControls()
    {
        for (QWidget* control : m_controls) {
            control->show();
        }
        if (m_focused) {
            m_focused->setFocus();
        }
    }

private:
    std::vector<QWidget*> m_controls;
    QPointer<QWidget> m_focused;
};

} // namespace

// The page is painted for the paper itself, in its own light colours: the appearance of the window need not change for
// the time of the print, so it cannot be left changed.
void AppDelegate::printMonthlyView()
{
    const HiddenControls buttons({m_ui.monthlyViewPrintBtn, m_ui.monthlyViewForwardBtn, m_ui.monthlyViewBackBtn});
    deleteMonthlyPrintFile();
    if (!m_host.temporaryFolder) {
        return;
    }
    colorTodayOnMonthlyView(); // the day may have changed since the last minute
    MonthPage page = m_ui.monthlyGrid->page();
    page.title = m_ui.monthlyViewMonthYear->text();
    const std::filesystem::path path = *m_host.temporaryFolder / printFileName;
    const QByteArray pdf = pdfOf(page, paperSizeOf(DateEnvironment::localePair().currentLocale));
    // No error is reported: the viewer says that there is nothing to show.
    (void)replaceFile(path, {pdf.constData(), static_cast<std::size_t>(pdf.size())});
    m_monthlyPrintFile = path;
    m_host.workspace.openUrl(QUrl::fromLocalFile(QString::fromStdString(path.native())), {});
}

void AppDelegate::deleteMonthlyPrintFile()
{
    if (m_monthlyPrintFile) {
        std::error_code ignored;
        std::filesystem::remove(*m_monthlyPrintFile, ignored);
        m_monthlyPrintFile.reset();
    }
}
