// SPDX-License-Identifier: MIT
#pragma once

#include "host/bus/BusCall.h"
#include "place/Coordinate.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QObject>
#include <QString>

#include <optional>

/// One question to the desktop's location service, GeoClue (org.freedesktop.GeoClue2 on the system bus): where are we?
///
/// Nothing here waits. The service may answer after minutes, since it may ask the user first; the first position that
/// it tells is taken, then it is told that no more are needed. The program speaks to it directly, because Qt
/// Positioning's plugin (6.4) waits at every property that it sets and reads: with a service that took two seconds for
/// each, the event loop stood still for 16 seconds.
class GeoClueClient : public QObject {
    Q_OBJECT

public:
    struct Request {
        QString desktopId;         ///< the name of the program's desktop file, by which the user grants or refuses
        double accuracy = 0;       ///< metres
        double distanceFilter = 0; ///< metres between two updates; every one counts at 0 and below
    };

    explicit GeoClueClient(QDBusConnection bus, QObject* parent = nullptr);

    /// To be called once.
    void ask(const Request& request);

Q_SIGNALS:
    void granted();
    void refused();

    /// There is no such service, or it answers with an error; a position may follow all the same.
    void failed(const QString& error);

    /// At most once.
    void located(Coordinate place);

private:
    using Answer = BusCall::Answer;

    Q_SLOT void locationUpdated(const QDBusObjectPath& oldLocation, const QDBusObjectPath& newLocation);
    void call(const QDBusMessage& message, const Answer& answer);
    void callClient(const QString& interface, const QString& method, const QVariantList& arguments,
                    const Answer& answer = {});
    void setProperty(const QString& name, const QVariant& value);
    void start();
    void take(Coordinate place);

    QDBusConnection m_bus;
    Request m_request;
    QString m_service; ///< the unique name of the service that made the client
    QString m_client;  ///< the path of our object in the service
    bool m_located = false;
};

/// The place that a location object's properties tell: `Latitude` and `Longitude` in degrees. Nothing when one of them
/// is missing, no number or off the globe.
std::optional<Coordinate> placeFromProperties(const QVariantMap& properties);
