// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QUrl>

#include <functional>
#include <utility>

/// The desktop portal's service for opening things (org.freedesktop.portal.OpenURI). It works from within a sandbox and
/// reports the outcome.
class OpenUriPortal : public QObject {
    Q_OBJECT

public:
    using Completion = std::function<void(bool opened)>;

    explicit OpenUriPortal(QDBusConnection bus, QObject* parent = nullptr) : QObject(parent), m_bus(std::move(bus)) {}

    /// Opens a page, a file or a folder. `completion` receives false when there is no portal, when it disappears, or
    /// when it has no program for it. When the portal asks the user for a program and the user chooses none, that is a
    /// decision and counts as opened. `completion` is not called once this object is destroyed, nor while the portal
    /// never answers.
    void open(const QUrl& url, const Completion& completion);

private:
    QDBusConnection m_bus;
};
