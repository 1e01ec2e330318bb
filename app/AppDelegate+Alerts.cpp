// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"

#include <QMainWindow>
#include <QPushButton>

namespace {

constexpr int smallSystemFontPixelSize = 11;

/// Never seen; the panel is laid out as wide as it needs, so that long texts wrap less.
const QString wideningTitle = QStringLiteral("Some Dummy Text to make the alert panel wider. Okay then");

std::unique_ptr<Alert> makeAlert(const QString& errorString, const QString& titleString)
{
    auto alert = std::make_unique<Alert>();
    alert->setMessageText(titleString);
    alert->setInformativeText(errorString);
    alert->setAlertStyle(Alert::Style::Warning);
    return alert;
}

void addTitledButtons(Alert& alert, const QString& first, const QString& second)
{
    for (const QString& title : {first, second}) {
        if (!title.isEmpty()) {
            alert.addButton(title);
        }
    }
}

void makeSmall(QPushButton& button)
{
    QFont small = button.font();
    small.setPixelSize(smallSystemFontPixelSize);
    button.setFont(small);
    button.setProperty("controlSize", QStringLiteral("small"));
}

} // namespace

void AppDelegate::doSheetAlert(QWidget& window, const QString& errorString, const QString& titleString,
                               const QString& okBtnTitle, const QString& canBtnTitle)
{
    std::unique_ptr<Alert> alert = makeAlert(errorString, titleString);
    for (const QString& title : {okBtnTitle, canBtnTitle}) {
        if (!title.isNull()) {
            alert->addButton(title);
        }
    }
    Alert::beginSheet(std::move(alert), window);
}

std::unique_ptr<Alert> AppDelegate::copySheetAlertWithErrorString(const QString& errorString,
                                                                  const QString& titleString, const QString& okBtnTitle,
                                                                  const QString& canBtnTitle,
                                                                  const QString& okBtnToolTip,
                                                                  const QString& canBtnToolTip)
{
    std::unique_ptr<Alert> alert = makeAlert(errorString, titleString);
    addTitledButtons(*alert, okBtnTitle, canBtnTitle);
    const QStringList toolTips{okBtnToolTip, canBtnToolTip};
    for (qsizetype i = 0; i < alert->buttons().size(); ++i) {
        QPushButton& button = *alert->buttons().at(i);
        button.setToolTip(toolTips.at(i));
        makeSmall(button);
    }
    return alert;
}

std::unique_ptr<Alert> AppDelegate::copySheetAlertWithErrorString(const QString& errorString,
                                                                  const QString& titleString,
                                                                  const QString& firstBtnTitle,
                                                                  const QString& secondBtnTitle)
{
    std::unique_ptr<Alert> alert = makeAlert(errorString, titleString);
    addTitledButtons(*alert, firstBtnTitle, secondBtnTitle);
    Alert::hideButton(alert->addButton(wideningTitle));
    return alert;
}

void AppDelegate::showAlertOnMainWindow(const QString& titleString, const QString& errorString,
                                        const QString& firstBtnTitle, const QString& secondBtnTitle)
{
    Alert::beginSheet(copySheetAlertWithErrorString(errorString, titleString, firstBtnTitle, secondBtnTitle), m_window,
                      [this, offersWebPage = !secondBtnTitle.isEmpty()](int answer) {
                          if (answer == Alert::firstButtonReturn && offersWebPage) {
                              openProductWebPage();
                          }
                      });
}
