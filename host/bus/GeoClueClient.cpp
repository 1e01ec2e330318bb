// SPDX-License-Identifier: MIT
#include "host/bus/GeoClueClient.h"

#include "host/bus/BusCall.h"

#include <QDBusArgument>
#include <QDBusError>
#include <QDBusReply>
#include <QDBusVariant>

#include <algorithm>
#include <utility>

namespace {

const QString wellKnownName = QStringLiteral("org.freedesktop.GeoClue2");
const QString managerPath = QStringLiteral("/org/freedesktop/GeoClue2/Manager");
const QString managerInterface = QStringLiteral("org.freedesktop.GeoClue2.Manager");
const QString clientInterface = QStringLiteral("org.freedesktop.GeoClue2.Client");
const QString locationInterface = QStringLiteral("org.freedesktop.GeoClue2.Location");
const QString propertiesInterface = QStringLiteral("org.freedesktop.DBus.Properties");
const QString locationUpdatedSignal = QStringLiteral("LocationUpdated");

/// The service's accuracy level for an accuracy in metres.
uint accuracyLevel(double metres)
{
    enum Level : uint { City = 4, Neighborhood = 5, Street = 6, Exact = 8 };
    if (metres >= 15'000) {
        return City;
    }
    if (metres >= 3'000) {
        return Neighborhood;
    }
    return metres >= 1'000 ? Street : Exact;
}

} // namespace

std::optional<Coordinate> placeFromProperties(const QVariantMap& properties)
{
    bool isLatitude = false;
    bool isLongitude = false;
    const double latitude = properties.value(QStringLiteral("Latitude")).toDouble(&isLatitude);
    const double longitude = properties.value(QStringLiteral("Longitude")).toDouble(&isLongitude);
    return isLatitude && isLongitude ? coordinateFrom(latitude, longitude) : std::nullopt;
}

GeoClueClient::GeoClueClient(QDBusConnection bus, QObject* parent) : QObject(parent), m_bus(std::move(bus)) {}

void GeoClueClient::ask(const Request& request)
{
    if (!m_bus.isConnected()) { // a call would never be answered
        Q_EMIT failed(m_bus.lastError().message());
        return;
    }
    m_request = request;
    call(QDBusMessage::createMethodCall(wellKnownName, managerPath, managerInterface, QStringLiteral("GetClient")),
         [this](const QDBusMessage& message) {
             const QDBusReply<QDBusObjectPath> client(message);
             if (!client.isValid()) {
                 Q_EMIT failed(client.error().message());
                 return;
             }
             m_service = message.service();
             m_client = client.value().path();
             start();
         });
}

void GeoClueClient::start()
{
    // Connected before the start, so that no answer is missed, and to the unique name: a well-known one would be looked
    // up first, which blocks.
    m_bus.connect(m_service, m_client, clientInterface, locationUpdatedSignal, this,
                  SLOT(locationUpdated(QDBusObjectPath, QDBusObjectPath)));
    setProperty(QStringLiteral("DesktopId"), m_request.desktopId);
    setProperty(QStringLiteral("DistanceThreshold"), static_cast<uint>(std::max(m_request.distanceFilter, 0.0)));
    setProperty(QStringLiteral("RequestedAccuracyLevel"), accuracyLevel(m_request.accuracy));
    callClient(clientInterface, QStringLiteral("Start"), {}, [this](const QDBusMessage& reply) {
        if (reply.type() != QDBusMessage::ErrorMessage) {
            Q_EMIT granted();
        } else if (QDBusError(reply).type() == QDBusError::AccessDenied) {
            Q_EMIT refused();
        } else {
            Q_EMIT failed(reply.errorMessage());
        }
    });
}

void GeoClueClient::locationUpdated(const QDBusObjectPath&, const QDBusObjectPath& newLocation)
{
    QDBusMessage read =
        QDBusMessage::createMethodCall(m_service, newLocation.path(), propertiesInterface, QStringLiteral("GetAll"));
    read << locationInterface;
    call(read, [this](const QDBusMessage& message) {
        const QDBusReply<QVariantMap> properties(message);
        const std::optional<Coordinate> place =
            properties.isValid() ? placeFromProperties(properties.value()) : std::nullopt;
        if (m_located) {
            return;
        }
        if (place) {
            take(*place);
        } else {
            Q_EMIT failed(QStringLiteral("no position in the location service's answer"));
        }
    });
}

void GeoClueClient::take(Coordinate place)
{
    m_located = true;
    m_bus.disconnect(m_service, m_client, clientInterface, locationUpdatedSignal, this,
                     SLOT(locationUpdated(QDBusObjectPath, QDBusObjectPath)));
    callClient(clientInterface, QStringLiteral("Stop"), {});
    QDBusMessage remove =
        QDBusMessage::createMethodCall(m_service, managerPath, managerInterface, QStringLiteral("DeleteClient"));
    remove << QVariant::fromValue(QDBusObjectPath(m_client));
    call(remove, {});
    Q_EMIT located(place);
}

void GeoClueClient::setProperty(const QString& name, const QVariant& value)
{
    callClient(propertiesInterface, QStringLiteral("Set"),
               {clientInterface, name, QVariant::fromValue(QDBusVariant(value))});
}

void GeoClueClient::callClient(const QString& interface, const QString& method, const QVariantList& arguments,
                               const Answer& answer)
{
    QDBusMessage message = QDBusMessage::createMethodCall(m_service, m_client, interface, method);
    message.setArguments(arguments);
    call(message, answer);
}

void GeoClueClient::call(const QDBusMessage& message, const Answer& answer)
{
    if (answer) {
        BusCall::send(m_bus, message, *this, answer, BusCall::noTimeout);
    } else {
        m_bus.asyncCall(message, BusCall::noTimeout);
    }
}
