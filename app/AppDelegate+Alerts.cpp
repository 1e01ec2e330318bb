// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"

#include <QMainWindow>
#include <QPushButton>

namespace {

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

/// Adds the button, unless its title is empty; then there is none.
QPushButton* addTitledButton(Alert& alert, const QString& title)
{
    return title.isEmpty() ? nullptr : &alert.addButton(title);
}

/// The style rules make it so.
void makeSmall(QPushButton& button)
{
    button.setProperty("controlSize", QStringLiteral("small"));
}

} // namespace

void AppDelegate::doSheetAlert(QWidget& window, const QString& errorString, const QString& titleString,
                               const QString& okBtnTitle, const QString& canBtnTitle, Alert::Preparation preparation,
                               Alert::Completion completion)
{
    std::unique_ptr<Alert> alert = makeAlert(errorString, titleString);
    for (const QString& title : {okBtnTitle, canBtnTitle}) {
        if (!title.isNull()) {
            alert->addButton(title);
        }
    }
    Alert::beginSheet(std::move(alert), window, std::move(completion), std::move(preparation));
}

std::unique_ptr<Alert> AppDelegate::copySheetAlertWithErrorString(const QString& errorString,
                                                                  const QString& titleString, const QString& okBtnTitle,
                                                                  const QString& canBtnTitle,
                                                                  const QString& okBtnToolTip,
                                                                  const QString& canBtnToolTip)
{
    std::unique_ptr<Alert> alert = makeAlert(errorString, titleString);
    if (QPushButton* button = addTitledButton(*alert, okBtnTitle)) {
        button->setToolTip(okBtnToolTip);
        makeSmall(*button);
    }
    if (QPushButton* button = addTitledButton(*alert, canBtnTitle)) {
        button->setToolTip(canBtnToolTip);
        makeSmall(*button);
    }
    return alert;
}

std::unique_ptr<Alert> AppDelegate::copySheetAlertWithErrorString(const QString& errorString,
                                                                  const QString& titleString,
                                                                  const QString& firstBtnTitle,
                                                                  const QString& secondBtnTitle)
{
    std::unique_ptr<Alert> alert = makeAlert(errorString, titleString);
    addTitledButton(*alert, firstBtnTitle);
    addTitledButton(*alert, secondBtnTitle);
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
