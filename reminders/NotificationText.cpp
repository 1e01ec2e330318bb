// SPDX-License-Identifier: MIT
#include "reminders/NotificationText.h"

#include "text/TextCutting.h"

namespace {

constexpr qsizetype maximumLength = 2000;
constexpr uchar normalUrgency = 1;

QString plainBody(const NotificationContent& content)
{
    QString body = content.body;
    while (body.endsWith(QLatin1Char('\n'))) {
        body.chop(1);
    }
    return shortened(content.subtitle.isEmpty() ? body : content.subtitle + QLatin1Char('\n') + body, maximumLength);
}

} // namespace

NotificationText notificationText(const NotificationContent& content, const QStringList& capabilities,
                                  NotificationSound sound)
{
    NotificationText text{
        .summary = shortened(content.title, maximumLength), .body = plainBody(content), .actions = {}, .hints = {}};
    if (capabilities.contains(QStringLiteral("body-markup"))) {
        text.body = text.body.toHtmlEscaped();
    }
    if (capabilities.contains(QStringLiteral("actions"))) {
        // The key that means a click on the notification itself. Some daemons show its label on a button.
        text.actions = {QStringLiteral("default"), content.defaultActionTitle.isEmpty()
                                                       ? QStringLiteral("Show Note")
                                                       : shortened(content.defaultActionTitle, maximumLength)};
    }
    text.hints = {{QStringLiteral("desktop-entry"), QStringLiteral("velumora")},
                  {QStringLiteral("urgency"), QVariant::fromValue(normalUrgency)}};
    const bool audible = content.defaultSound && sound == NotificationSound::Audible;
    if (!audible) {
        text.hints.insert(QStringLiteral("suppress-sound"), true);
    } else if (capabilities.contains(QStringLiteral("sound"))) {
        text.hints.insert(QStringLiteral("sound-name"), QStringLiteral("message-new-instant"));
    }
    return text;
}
