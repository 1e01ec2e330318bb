// SPDX-License-Identifier: MIT
#include "host/web/WebVersionServer.h"

#include "text/VersionText.h"

#include <QObject>
#include <QTimer>

#include <condition_variable>
#include <csignal>
#include <system_error>
#include <thread>
#include <utility>

/// Counts the running downloads. Shared, because a download's thread may outlive the server.
class DownloadThreads {
public:
    void enter()
    {
        const std::scoped_lock lock(m_mutex);
        ++m_running;
    }
    void leave()
    {
        const std::scoped_lock lock(m_mutex);
        --m_running;
        m_ended.notify_all();
    }
    void waitForAll(std::chrono::milliseconds patience)
    {
        std::unique_lock lock(m_mutex);
        m_ended.wait_for(lock, patience, [this] { return m_running == 0; });
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_ended;
    int m_running = 0;
};

namespace {

constexpr std::chrono::milliseconds patienceAtEnd{
    1000}; // an abandoned download ends at once, except while it looks for a proxy

/// Blocks all signals on this thread.
void leaveSignalsToTheMainThread()
{
    sigset_t all;
    sigfillset(&all);
    pthread_sigmask(SIG_BLOCK, &all, nullptr);
}

/// A download on a thread of its own, whose result is delivered on the main thread. The thread is never waited for.
class WebFetch : public QObject, public VersionServer::Fetch {
public:
    WebFetch(const QUrl& file, const DownloadLimits& limits, const std::filesystem::path& authorities,
             const std::shared_ptr<DownloadThreads>& threads, VersionServer::Completion completion);
    ~WebFetch() override;

private:
    /// Shared by the thread and the fetch.
    struct Link {
        DownloadBreak breakOff;
        std::mutex mutex;
        WebFetch* fetch = nullptr; ///< null once it is destroyed
    };

    void start(const QUrl& file, const DownloadLimits& limits, const std::filesystem::path& authorities,
               const std::shared_ptr<DownloadThreads>& threads);
    void end(const std::optional<QByteArray>& file);

    std::shared_ptr<Link> m_link = std::make_shared<Link>();
    QTimer m_patience;
    VersionServer::Completion m_completion;
};

WebFetch::WebFetch(const QUrl& file, const DownloadLimits& limits, const std::filesystem::path& authorities,
                   const std::shared_ptr<DownloadThreads>& threads, VersionServer::Completion completion)
    : m_completion(std::move(completion))
{
    m_link->fetch = this;
    // The download itself keeps to the limit, except while it asks the desktop for proxies.
    m_patience.setSingleShot(true);
    connect(&m_patience, &QTimer::timeout, this, [this] { end(std::nullopt); });
    m_patience.start(limits.time);
    start(file, limits, authorities, threads);
}

WebFetch::~WebFetch()
{
    m_link->breakOff.request();
    const std::scoped_lock lock(m_link->mutex);
    m_link->fetch = nullptr;
}

void WebFetch::start(const QUrl& file, const DownloadLimits& limits, const std::filesystem::path& authorities,
                     const std::shared_ptr<DownloadThreads>& threads)
{
    const auto run = [file, limits, authorities, threads, link = m_link] {
        leaveSignalsToTheMainThread();
        const std::optional<QByteArray> bytes = download(file, limits, link->breakOff, authorities);
        {
            const std::scoped_lock lock(link->mutex);
            if (WebFetch* fetch = link->fetch) {
                QMetaObject::invokeMethod(
                    fetch, [fetch, bytes] { fetch->end(bytes); }, Qt::QueuedConnection);
            }
        }
        threads->leave();
    };
    threads->enter();
    try {
        std::thread(run).detach();
    } catch (const std::system_error&) {
        threads->leave();
        m_patience.start(0);
    }
}

void WebFetch::end(const std::optional<QByteArray>& file)
{
    m_patience.stop();
    m_link->breakOff.request();
    if (const VersionServer::Completion completion = std::exchange(m_completion, {})) {
        completion(file ? VersionText::fromFile(*file) : std::nullopt); // may destroy this object
    }
}

} // namespace

WebVersionServer::WebVersionServer(QUrl server, const DownloadLimits& limits, std::filesystem::path authorities)
    : m_file(std::move(server)), m_limits(limits), m_authorities(std::move(authorities)),
      m_threads(std::make_shared<DownloadThreads>())
{
    m_file.setPath(QStringLiteral("/vm/Velumora_version.txt"));
}

WebVersionServer::~WebVersionServer()
{
    m_threads->waitForAll(patienceAtEnd);
}

std::unique_ptr<VersionServer::Fetch> WebVersionServer::fetchNewestVersion(Completion completion)
{
    return std::make_unique<WebFetch>(m_file, m_limits, m_authorities, m_threads, std::move(completion));
}
