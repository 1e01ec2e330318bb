// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QUrl>

#include <functional>
#include <utility>

/// The desktop portal's service that opens things (org.freedesktop.portal.OpenURI). It works from within a sandbox and
/// tells what became of it.
class OpenUriPortal : public QObject {
    Q_OBJECT

public:
    using Completion = std::function<void(bool opened)>;

    explicit OpenUriPortal(QDBusConnection bus, QObject* parent = nullptr) : QObject(parent), m_bus(std::move(bus)) {}

    /// Opens a page, a file or a folder. `completion` hears false when there is no portal, when it goes away, or when
    /// it has no program for it. A user whom the portal asks for a program and who chooses none has decided: that
    /// counts as opened. Not answered any more once this object is gone, nor by a portal that never makes up its mind.
    void open(const QUrl& url, const Completion& completion);

private:
    QDBusConnection m_bus;
};
