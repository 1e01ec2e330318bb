// SPDX-License-Identifier: MIT
#pragma once

#include "host/Bundle.h"
#include "host/ClockMonitor.h"
#include "host/GlobalDefaults.h"
#include "host/HostServices.h"
#include "host/LocationManager.h"
#include "host/OpenPanel.h"
#include "host/ProcessInfo.h"
#include "host/ShutdownMonitor.h"
#include "host/UserDefaults.h"
#include "host/UserNotificationCenter.h"
#include "host/VersionServer.h"
#include "host/Workspace.h"

#include <QCoreApplication>
#include <QPointer>
#include <QStringList>

#include <functional>
#include <memory>
#include <utility>

/// What was asked of the fakes, in order, for example "registerDefaults". `onCall` runs at each entry, so that a test
/// can look at the program at that very moment.
struct Journal {
    QStringList entries;
    std::function<void(const QString&)> onCall;

    void add(const QString& entry)
    {
        entries.append(entry);
        if (onCall) {
            onCall(entry);
        }
    }
};

class FakeBundle : public Bundle {
public:
    QString version = QStringLiteral("1.0");
    std::filesystem::path resources; ///< holds the "<language>.lproj" folders

    QString shortVersionString() const override { return version; }
    std::optional<std::filesystem::path> localizationFolder(const QString& language) const override
    {
        const std::filesystem::path folder = resources / (language.toStdString() + ".lproj");
        return std::filesystem::is_directory(folder) ? std::optional(folder) : std::nullopt;
    }
};

class FakeClockMonitor : public ClockMonitor {
public:
    void jump() { Q_EMIT clockJumped(); }
};

/// A desktop in the light appearance until it is told otherwise.
class FakeGlobalDefaults : public GlobalDefaults {
public:
    std::optional<QString> interfaceStyle;
    bool highContrast = false;
    QPalette colors;
    DesktopText desktopText;

    void setHighContrast(bool high)
    {
        highContrast = high;
        Q_EMIT didChange();
    }
    void setText(const DesktopText& text)
    {
        desktopText = text;
        Q_EMIT didChange();
    }
    bool prefersHighContrast() const override { return highContrast; }
    QPalette palette() const override { return colors; }
    DesktopText text() const override { return desktopText; }
    void setInterfaceStyle(const std::optional<QString>& style)
    {
        interfaceStyle = style;
        Q_EMIT didChange();
    }
    std::optional<QString> stringForKey(const QString& key) const override
    {
        return key == QStringLiteral("AppleInterfaceStyle") ? interfaceStyle : std::nullopt;
    }
};

/// Does nothing by itself: a test tells `delegate` what is found.
class FakeLocationManager : public LocationManager {
public:
    explicit FakeLocationManager(Journal& journal) : m_journal(journal) {}
    LocationManagerDelegate* delegate = nullptr;

    void setDistanceFilter(double metres) override
    {
        m_journal.add(QStringLiteral("setDistanceFilter %1").arg(metres));
    }
    void setDesiredAccuracy(double metres) override
    {
        m_journal.add(QStringLiteral("setDesiredAccuracy %1").arg(metres));
    }
    void setDelegate(LocationManagerDelegate& newDelegate) override
    {
        delegate = &newDelegate;
        m_journal.add(QStringLiteral("setDelegate of location"));
    }
    void requestAlwaysAuthorization() override { m_journal.add(QStringLiteral("requestAlwaysAuthorization")); }
    void requestWhenInUseAuthorization() override { m_journal.add(QStringLiteral("requestWhenInUseAuthorization")); }
    void startUpdatingLocation() override { m_journal.add(QStringLiteral("startUpdatingLocation")); }
    void stopUpdatingLocation() override { m_journal.add(QStringLiteral("stopUpdatingLocation")); }
    void requestLocation() override { m_journal.add(QStringLiteral("requestLocation")); }

private:
    Journal& m_journal;
};

class FakeLocationServices : public LocationServices {
public:
    explicit FakeLocationServices(Journal& journal) : m_journal(journal) {}
    bool enabled = true;
    LocationAuthorizationStatus status = LocationAuthorizationStatus::NotDetermined;
    FakeLocationManager* manager = nullptr; ///< the last one made, its maker's

    bool locationServicesEnabled() const override
    {
        m_journal.add(QStringLiteral("locationServicesEnabled"));
        return enabled;
    }
    LocationAuthorizationStatus authorizationStatus() const override
    {
        m_journal.add(QStringLiteral("authorizationStatus"));
        return status;
    }
    std::unique_ptr<LocationManager> makeLocationManager() override
    {
        m_journal.add(QStringLiteral("makeLocationManager"));
        auto made = std::make_unique<FakeLocationManager>(m_journal);
        manager = made.get();
        return made;
    }

private:
    Journal& m_journal;
};

/// Answers every panel at once with `answer`.
class FakeOpenPanel : public OpenPanel {
public:
    std::optional<std::filesystem::path> answer;
    QList<Request> requests;

    void chooseFolder(QWidget&, const Request& request, Completion completion) override
    {
        requests.append(request);
        completion(answer);
    }
};

class FakeProcessInfo : public ProcessInfo {
public:
    explicit FakeProcessInfo(Journal& journal) : m_journal(journal) {}
    SystemVersion version{.major = 10, .minor = 15};

    SystemVersion operatingSystemVersion() const override
    {
        m_journal.add(QStringLiteral("operatingSystemVersion"));
        return version;
    }

private:
    Journal& m_journal;
};

class FakeShutdownMonitor : public ShutdownMonitor {
public:
    void shutDown() { Q_EMIT machineWillShutDown(); }
};

class FakeUserDefaults : public UserDefaults {
public:
    explicit FakeUserDefaults(Journal& journal) : m_journal(journal) {}
    QHash<QString, int> registered;
    QHash<QString, int> stored;
    QHash<QString, double> storedNumbers;
    int synchronizations = 0;

    void registerDefaults(const QHash<QString, int>& defaults) override
    {
        registered = defaults;
        m_journal.add(QStringLiteral("registerDefaults"));
    }
    int integerForKey(const QString& key) const override
    {
        m_journal.add(QStringLiteral("integerForKey ") + key);
        return stored.value(key, registered.value(key));
    }
    void setInteger(int value, const QString& key) override { stored.insert(key, value); }
    std::optional<double> numberForKey(const QString& key) const override
    {
        return storedNumbers.contains(key) ? std::optional(storedNumbers.value(key)) : std::nullopt;
    }
    void setNumber(double value, const QString& key) override { storedNumbers.insert(key, value); }
    void removeObjectForKey(const QString& key) override
    {
        stored.remove(key);
        storedNumbers.remove(key);
    }
    void synchronize() override { ++synchronizations; }

private:
    Journal& m_journal;
};

class FakeUserNotificationCenter : public UserNotificationCenter {
public:
    explicit FakeUserNotificationCenter(Journal& journal) : m_journal(journal) {}
    UserNotificationCenterDelegate* delegate = nullptr;
    AuthorizationStatus status = AuthorizationStatus::Authorized;
    std::optional<QString> refusal; ///< of every request
    QList<NotificationOptions> askedFor;
    QList<NotificationRequest> requests;
    QStringList removed;

    void setDelegate(UserNotificationCenterDelegate& newDelegate) override
    {
        delegate = &newDelegate;
        m_journal.add(QStringLiteral("setDelegate"));
    }
    void requestAuthorization(NotificationOptions options, std::function<void(bool)> completion) override
    {
        askedFor.append(options);
        later([completion] { completion(true); });
    }
    void getNotificationSettings(std::function<void(AuthorizationStatus)> completion) override
    {
        later([completion, now = status] { completion(now); });
    }
    void addNotificationRequest(const NotificationRequest& request,
                                std::function<void(const std::optional<QString>&)> completion) override
    {
        requests.append(request);
        later([completion, error = refusal] { completion(error); });
    }
    void removeDeliveredNotifications(const QStringList& identifiers) override { removed.append(identifiers); }

private:
    template <typename Step> static void later(Step step)
    {
        QMetaObject::invokeMethod(qApp, std::move(step), Qt::QueuedConnection);
    }

    Journal& m_journal;
};

/// Answers with `reply`, at once or when told to.
class FakeVersionServer : public VersionServer {
public:
    std::optional<QString> reply;
    bool answersLater = false;
    int fetches = 0;
    int underWay = 0;

    [[nodiscard]] std::unique_ptr<Fetch> fetchNewestVersion(Completion completion) override
    {
        ++fetches;
        auto fetch = std::make_unique<FakeFetch>(*this, std::move(completion));
        m_last = fetch.get();
        if (!answersLater) {
            answer();
        }
        return fetch;
    }

    /// Answers the last fetch unless it was given up, from the event loop.
    void answer()
    {
        const auto complete = [fetch = m_last, now = reply] { std::exchange(fetch->completion, {})(now); };
        if (m_last) {
            QMetaObject::invokeMethod(m_last, complete, Qt::QueuedConnection);
        }
    }

private:
    class FakeFetch : public QObject, public Fetch {
    public:
        FakeFetch(FakeVersionServer& server, Completion then) : completion(std::move(then)), m_server(server)
        {
            ++m_server.underWay;
        }
        ~FakeFetch() override { --m_server.underWay; }
        Completion completion;

    private:
        FakeVersionServer& m_server;
    };

    QPointer<FakeFetch> m_last;
};

/// Opens nothing; remembers what was asked for. Answers at once, or when told to.
class FakeWorkspace : public Workspace {
public:
    bool succeeds = true;
    bool answersLater = false;
    QList<QUrl> opened;
    std::function<void(const QUrl&)> onOpen; ///< looks at the program at that very moment
    QList<std::filesystem::path> shownFolders;

    void openUrl(const QUrl& url, Completion completion) override
    {
        opened.append(url);
        if (onOpen) {
            onOpen(url);
        }
        answer(std::move(completion));
    }
    void showFolder(const std::filesystem::path& folder, Completion completion) override
    {
        shownFolders.append(folder);
        answer(std::move(completion));
    }

    /// Answers what was asked for until now.
    void answerAll()
    {
        for (const Completion& completion : std::exchange(m_waiting, {})) {
            completion(succeeds);
        }
    }

private:
    void answer(Completion completion)
    {
        if (completion) {
            m_waiting.append(std::move(completion));
        }
        if (!answersLater) {
            answerAll();
        }
    }

    QList<Completion> m_waiting;
};

/// A whole desktop of fakes that share one journal.
struct FakeHost {
    Journal journal;
    FakeBundle bundle;
    FakeClockMonitor clockMonitor;
    FakeGlobalDefaults globalDefaults;
    FakeLocationServices locationServices{journal};
    FakeOpenPanel openPanel;
    FakeProcessInfo processInfo{journal};
    FakeShutdownMonitor shutdownMonitor;
    FakeUserDefaults userDefaults{journal};
    FakeUserNotificationCenter notificationCenter{journal};
    FakeVersionServer versionServer;
    FakeWorkspace workspace;
    std::optional<std::filesystem::path> temporaryFolder;
    std::optional<std::filesystem::path> stateFolder;

    HostServices services(std::optional<std::filesystem::path> applicationSupport)
    {
        HostServices services = servicesOf(*this);
        services.applicationSupport = std::move(applicationSupport);
        services.temporaryFolder = temporaryFolder;
        services.stateFolder = stateFolder;
        return services;
    }
};
