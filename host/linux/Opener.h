// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QUrl>

#include <chrono>
#include <functional>

/// The desktop's opener, xdg-open, run as a process whose end is heard: it ends with an error when no program opened
/// what it was given. On some desktops it becomes that program and runs on; one that does so for a while has opened it.
/// It is never ended from here, not with this program either: it may be the user's browser by then.
class Opener : public QObject {
    Q_OBJECT

public:
    using Completion = std::function<void(bool opened)>;

    static constexpr std::chrono::seconds usualPatience{15};

    explicit Opener(std::chrono::milliseconds patience = usualPatience, QObject* parent = nullptr)
        : QObject(parent), m_patience(patience)
    {
    }

    /// Not answered any more once this object is gone. The completion may be empty.
    void open(const QUrl& url, Completion completion);

private:
    std::chrono::milliseconds m_patience;
};
