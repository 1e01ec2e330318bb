// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QUrl>

#include <chrono>
#include <functional>

/// The desktop's opener, xdg-open, run as a process, which exits with an error when no program opened its argument. On
/// some desktops it turns into that program and keeps running; if it still runs after a while, the opening counts as
/// successful. It is never killed, not even when this program ends: it may be the user's browser by then.
class Opener : public QObject {
    Q_OBJECT

public:
    using Completion = std::function<void(bool opened)>;

    static constexpr std::chrono::seconds usualPatience{15};

    explicit Opener(std::chrono::milliseconds patience = usualPatience, QObject* parent = nullptr)
        : QObject(parent), m_patience(patience)
    {
    }

    /// `completion` may be empty, and is not called once this object is destroyed.
    void open(const QUrl& url, Completion completion);

private:
    std::chrono::milliseconds m_patience;
};
