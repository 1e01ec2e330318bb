// SPDX-License-Identifier: MIT
#include "reminders/NotificationRequestFormat.h"

#include "plist/PropertyList.h"

#include <utility>

namespace {

constexpr std::string_view identifierKey = "Identifier";
constexpr std::string_view titleKey = "Title";
constexpr std::string_view subtitleKey = "Subtitle";
constexpr std::string_view bodyKey = "Body";
constexpr std::string_view defaultSoundKey = "DefaultSound";
constexpr std::string_view defaultActionTitleKey = "DefaultActionTitle"; // may be absent
constexpr std::string_view userInfoKey = "UserInfo";
constexpr std::string_view triggerKey = "Trigger";
constexpr std::string_view yearKey = "Year";
constexpr std::string_view monthKey = "Month";
constexpr std::string_view dayKey = "Day";
constexpr std::string_view hourKey = "Hour";
constexpr std::string_view minuteKey = "Minute";
constexpr std::string_view secondKey = "Second";
constexpr std::string_view timeZoneKey = "TimeZone";
constexpr std::string_view repeatsKey = "Repeats";

constexpr int lastYear = 1'000'000; // well within the range of calendars

std::string key(std::string_view name)
{
    return std::string(name);
}

Value textValue(const QString& text)
{
    return Value(text.toStdString());
}

Value integerValue(int integer)
{
    return Value(Integer{static_cast<std::uint64_t>(std::abs(integer)), integer < 0});
}

/// Reads the parts of a dictionary, and remembers whether all were there, of the right type and in range.
class Parts {
public:
    explicit Parts(const DictionaryView& dictionary) : m_dictionary(dictionary) {}

    bool allGood() const { return m_allGood; }

    QString text(std::string_view name)
    {
        const std::optional<Value> value = m_dictionary.find(name);
        const std::optional<std::string_view> text = value ? value->text() : std::nullopt;
        m_allGood = m_allGood && text;
        return text ? QString::fromUtf8(text->data(), static_cast<qsizetype>(text->size())) : QString();
    }

    bool boolean(std::string_view name)
    {
        const std::optional<Value> value = m_dictionary.find(name);
        const bool* boolean = value ? value->boolean() : nullptr;
        m_allGood = m_allGood && boolean;
        return boolean && *boolean;
    }

    int integer(std::string_view name, int from, int to)
    {
        const std::optional<Value> value = m_dictionary.find(name);
        const Integer* integer = value ? value->integer() : nullptr;
        m_allGood = m_allGood && integer && !integer->negative && std::cmp_greater_equal(integer->magnitude, from) &&
                    std::cmp_less_equal(integer->magnitude, to);
        return m_allGood ? static_cast<int>(integer->magnitude) : 0;
    }

    Dictionary dictionary(std::string_view name)
    {
        const std::optional<Value> value = m_dictionary.find(name);
        const DictionaryView dictionary = value ? value->dictionary() : DictionaryView();
        m_allGood = m_allGood && dictionary;
        return dictionary ? Dictionary(dictionary) : Dictionary();
    }

private:
    const DictionaryView m_dictionary;
    bool m_allGood = true;
};

Dictionary dictionaryOf(const CalendarNotificationTrigger& trigger)
{
    return {
        {key(yearKey), integerValue(trigger.year)},     {key(monthKey), integerValue(trigger.month)},
        {key(dayKey), integerValue(trigger.day)},       {key(hourKey), integerValue(trigger.hour)},
        {key(minuteKey), integerValue(trigger.minute)}, {key(secondKey), integerValue(trigger.second)},
        {key(timeZoneKey), Value(trigger.timeZone)},    {key(repeatsKey), Value(trigger.repeats)},
    };
}

std::optional<CalendarNotificationTrigger> triggerFrom(const Dictionary& dictionary)
{
    Parts parts(dictionary);
    CalendarNotificationTrigger trigger{
        .year = parts.integer(yearKey, 1, lastYear),
        .month = parts.integer(monthKey, 1, 12),
        .day = parts.integer(dayKey, 1, 31),
        .hour = parts.integer(hourKey, 0, 23),
        .minute = parts.integer(minuteKey, 0, 59),
        .second = parts.integer(secondKey, 0, 59),
        .timeZone = parts.text(timeZoneKey).toStdString(),
        .repeats = parts.boolean(repeatsKey),
    };
    return parts.allGood() ? std::optional(std::move(trigger)) : std::nullopt;
}

} // namespace

Value NotificationRequestFormat::valueOf(const NotificationRequest& request)
{
    const NotificationContent& content = request.content;
    Dictionary dictionary{
        {key(identifierKey), textValue(request.identifier)},     {key(titleKey), textValue(content.title)},
        {key(subtitleKey), textValue(content.subtitle)},         {key(bodyKey), textValue(content.body)},
        {key(defaultSoundKey), Value(content.defaultSound)},     {key(userInfoKey), Value(content.userInfo)},
        {key(triggerKey), Value(dictionaryOf(request.trigger))},
    };
    if (!content.defaultActionTitle.isEmpty()) {
        dictionary.set(key(defaultActionTitleKey), textValue(content.defaultActionTitle));
    }
    return Value(dictionary);
}

std::optional<NotificationRequest> NotificationRequestFormat::requestFrom(const Value& value)
{
    if (!value.dictionary()) {
        return std::nullopt;
    }
    Parts parts(*value.dictionary());
    NotificationRequest request{
        .identifier = parts.text(identifierKey),
        .content = {.title = parts.text(titleKey),
                    .subtitle = parts.text(subtitleKey),
                    .body = parts.text(bodyKey),
                    .defaultSound = parts.boolean(defaultSoundKey),
                    .userInfo = parts.dictionary(userInfoKey)},
        .trigger = {},
    };
    const std::optional<CalendarNotificationTrigger> trigger = triggerFrom(parts.dictionary(triggerKey));
    if (value.dictionary()->find(defaultActionTitleKey)) {
        request.content.defaultActionTitle = parts.text(defaultActionTitleKey);
    }
    if (!parts.allGood() || !trigger) {
        return std::nullopt;
    }
    request.trigger = *trigger;
    return request;
}

std::optional<QByteArray> NotificationRequestFormat::bytesOf(const NotificationRequest& request)
{
    QByteArray bytes;
    const auto append = [&bytes](std::string_view piece) {
        if (static_cast<qsizetype>(piece.size()) > largestRequest - bytes.size()) {
            return std::make_error_code(std::errc::value_too_large);
        }
        bytes.append(piece.data(), static_cast<qsizetype>(piece.size()));
        return std::error_code();
    };
    return PropertyList::writeXml({valueOf(request)}, append) ? std::nullopt : std::optional(bytes);
}

std::optional<NotificationRequest> NotificationRequestFormat::requestFromBytes(const QByteArray& bytes)
{
    const std::optional<Table> table = PropertyList::readTable(bytes.toStdString());
    return table && table->size() == 1 ? requestFrom(table->front()) : std::nullopt;
}
