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

/// A single query for the position to the desktop's location service, GeoClue (org.freedesktop.GeoClue2 on the system
/// bus).
///
/// Nothing here blocks. The service may take minutes, since it may ask the user first; its first position counts, then
/// it is told to stop. Qt Positioning's plugin (6.4) is not used because it blocks on every property that it sets and
/// reads: with a service that took two seconds for each, the event loop stood still for 16 seconds.
class GeoClueClient : public QObject {
    Q_OBJECT

public:
    struct Request {
        QString desktopId;   ///< the name of the program's desktop file, by which the user grants or refuses access
        double accuracy = 0; ///< metres
        double distanceFilter = 0; ///< metres between two updates; 0 and below for every update
    };

    explicit GeoClueClient(QDBusConnection bus, QObject* parent = nullptr);

    /// Must be called once only.
    void ask(const Request& request);

Q_SIGNALS:
    void granted();
    void refused();

    /// The service is missing or answers with an error; a position may follow all the same.
    void failed(const QString& error);

    /// Emitted at most once.
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
    QString m_service; ///< the unique name of the service on the bus
    QString m_client;  ///< the path of the client object in the service
    bool m_located = false;
};

/// The place in a location object's properties: `Latitude` and `Longitude` in degrees. nullopt when one of them is
/// missing, not a number or out of range.
std::optional<Coordinate> placeFromProperties(const QVariantMap& properties);
