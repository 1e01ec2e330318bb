// SPDX-License-Identifier: MIT
#include "sheets/AboutSheet.h"

#include "text/Localized.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QUrl>
#include <QVBoxLayout>

namespace {

constexpr int sheetMargin = 28;
constexpr int sheetGap = 6;
constexpr int wideGap = 16;
constexpr int sheetIconSize = 64;

} // namespace

AboutSheet::AboutSheet(const QString& version, const QUrl& webPage, QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("aboutSheet"));
    setWindowTitle(localized("About Velumora"));
    setAccessibleName(windowTitle());
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(sheetMargin, sheetMargin, sheetMargin, sheetMargin);
    rows->setSpacing(sheetGap);
    const auto addText = [rows](const QString& text, const char* role = nullptr) {
        auto* label = new QLabel(text);
        label->setTextFormat(Qt::PlainText);
        label->setAlignment(Qt::AlignHCenter);
        if (role) {
            label->setProperty(role, true);
        }
        rows->addWidget(label);
        return label;
    };

    auto* icon = new QLabel;
    icon->setPixmap(QApplication::windowIcon().pixmap(QSize(sheetIconSize, sheetIconSize), devicePixelRatioF()));
    icon->setAlignment(Qt::AlignHCenter);
    rows->addWidget(icon);
    rows->addSpacing(wideGap - sheetGap);
    addText(QApplication::applicationDisplayName(), "pageTitle");
    addText(localized("The day-note calendar"));
    addText(filled(localized("Version %@"), {version}), "secondary");
    rows->addSpacing(wideGap - sheetGap);
    addText(localized("© 2026 the Velumora developers"), "secondary");
    addText(localized("Free software under the MIT License, without any warranty"), "secondary");

    QLabel* address = addText(webPage.toString());
    address->setTextInteractionFlags(Qt::TextSelectableByMouse);

    auto* buttons = new QHBoxLayout;
    auto* openButton = new QPushButton(localized("Go to Velumora web page"));
    auto* okButton = new QPushButton(localized("OK"));
    openButton->setAutoDefault(false);
    okButton->setDefault(true);
    buttons->addStretch();
    buttons->addWidget(openButton);
    buttons->addWidget(okButton);
    buttons->addStretch();
    rows->addSpacing(wideGap);
    rows->addLayout(buttons);
    okButton->setFocus(); // now that both buttons are in the sheet
    connect(okButton, &QPushButton::clicked, this, &QDialog::accept);
    connect(openButton, &QPushButton::clicked, this, [this] {
        accept();
        Q_EMIT webPageWanted();
    });
}
