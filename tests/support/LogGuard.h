// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>
#include <QtGlobal>

/// Keeps what qInfo() and its kin tell for its lifetime, and has it told nowhere else. One at a time.
class LogGuard {
public:
    LogGuard() : m_former(qInstallMessageHandler(&LogGuard::take)) { s_lines.clear(); }
    LogGuard(const LogGuard&) = delete;
    LogGuard& operator=(const LogGuard&) = delete;
    ~LogGuard() { qInstallMessageHandler(m_former); }

    const QStringList& lines() const { return s_lines; }

private:
    static void take(QtMsgType, const QMessageLogContext&, const QString& line) { s_lines.append(line); }

    static inline QStringList s_lines;
    QtMessageHandler m_former;
};
