// SPDX-License-Identifier: MIT
#include "host/web/Download.h"

#include <QNetworkProxyFactory>

#include <algorithm>
#include <array>
#include <memory>
#include <vector>

#include <curl/curl.h>
#include <linux/tcp.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

using Clock = std::chrono::steady_clock;

constexpr int mostRedirects = 8;
constexpr long statusOk = 200;
constexpr std::array redirections{301L, 302L, 303L, 307L, 308L};
constexpr int receiveBuffer = 64 << 10; // bytes; the system's default would accept megabytes that nobody asked for
constexpr std::chrono::milliseconds mostSleep{1000};

struct EasyCleanup {
    void operator()(CURL* handle) const { curl_easy_cleanup(handle); }
};
struct MultiCleanup {
    void operator()(CURLM* handle) const { curl_multi_cleanup(handle); }
};
struct ListCleanup {
    void operator()(curl_slist* list) const { curl_slist_free_all(list); }
};

bool isWebAddress(const QUrl& url)
{
    return (url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https")) && !url.host().isEmpty();
}

/// Owns the sockets of a download and counts the bytes that they receive.
class Sockets {
public:
    ~Sockets()
    {
        for (const int socket : m_open) {
            ::close(socket);
        }
    }
    Sockets() = default;
    Sockets(const Sockets&) = delete;
    Sockets& operator=(const Sockets&) = delete;

    std::size_t received() const
    {
        std::size_t sum = m_receivedByClosed;
        for (const int socket : m_open) {
            sum += receivedBy(socket);
        }
        return sum;
    }

    static curl_socket_t open(void* self, curlsocktype, curl_sockaddr* address)
    {
        const int socket = ::socket(address->family, address->socktype | SOCK_CLOEXEC, address->protocol);
        if (socket >= 0) {
            ::setsockopt(socket, SOL_SOCKET, SO_RCVBUF, &receiveBuffer, sizeof receiveBuffer);
            static_cast<Sockets*>(self)->m_open.push_back(socket);
        }
        return socket >= 0 ? socket : CURL_SOCKET_BAD;
    }

    static int close(void* self, curl_socket_t socket)
    {
        auto* sockets = static_cast<Sockets*>(self);
        sockets->m_receivedByClosed += receivedBy(socket);
        std::erase(sockets->m_open, socket);
        return ::close(socket);
    }

private:
    static std::size_t receivedBy(int socket)
    {
        tcp_info info{};
        socklen_t size = sizeof info;
        const bool known = ::getsockopt(socket, IPPROTO_TCP, TCP_INFO, &info, &size) == 0;
        return known ? static_cast<std::size_t>(info.tcpi_bytes_received) : 0;
    }

    std::vector<int> m_open;
    std::size_t m_receivedByClosed = 0;
};

/// One download, on one thread.
class Transfer {
public:
    Transfer(const DownloadLimits& limits, DownloadBreak& breakOff, const std::filesystem::path& authorities);
    Transfer(const Transfer&) = delete;
    Transfer& operator=(const Transfer&) = delete;
    ~Transfer() { m_break.setSleeper(nullptr); }

    std::optional<QByteArray> run(QUrl url);

private:
    template <typename Argument> void set(CURLoption option, Argument argument)
    {
        m_isGood = m_isGood && curl_easy_setopt(m_easy.get(), option, argument) == CURLE_OK;
    }
    void setProxy(const QUrl& url);
    bool get(const QUrl& url);
    bool perform();
    bool mayGoOn() const;
    long status() const;
    QUrl redirection() const;
    static std::size_t take(const char* bytes, std::size_t one, std::size_t count, void* self);

    const DownloadLimits& m_limits;
    DownloadBreak& m_break;
    const Clock::time_point m_end = Clock::now() + m_limits.time;
    Sockets m_sockets; // declared first, as the handles close their sockets in it
    std::unique_ptr<curl_slist, ListCleanup> m_headers;
    std::unique_ptr<CURLM, MultiCleanup> m_multi{curl_multi_init()};
    std::unique_ptr<CURL, EasyCleanup> m_easy{curl_easy_init()};
    bool m_isGood = m_multi && m_easy;
    QByteArray m_file;
};

Transfer::Transfer(const DownloadLimits& limits, DownloadBreak& breakOff, const std::filesystem::path& authorities)
    : m_limits(limits), m_break(breakOff)
{
    // A compressed body would be unpacked before its length can be checked. The user's languages are not revealed.
    for (const char* header : {"Accept-Encoding: identity", "Accept-Language: en"}) {
        m_headers.reset(curl_slist_append(m_headers.release(), header));
    }
    set(CURLOPT_HTTPHEADER, m_headers.get());
    set(CURLOPT_USERAGENT, "Velumora");
    set(CURLOPT_PROTOCOLS_STR, "http,https");
    set(CURLOPT_HTTP_VERSION, static_cast<long>(CURL_HTTP_VERSION_1_1));
    set(CURLOPT_NOSIGNAL, 1L);
    set(CURLOPT_QUICK_EXIT, 1L); // does not wait for a name lookup
    set(CURLOPT_WRITEFUNCTION, &Transfer::take);
    set(CURLOPT_WRITEDATA, this);
    set(CURLOPT_OPENSOCKETFUNCTION, &Sockets::open);
    set(CURLOPT_OPENSOCKETDATA, &m_sockets);
    set(CURLOPT_CLOSESOCKETFUNCTION, &Sockets::close);
    set(CURLOPT_CLOSESOCKETDATA, &m_sockets);
    if (!authorities.empty()) {
        set(CURLOPT_CAINFO, authorities.c_str());
    }
    m_break.setSleeper(m_multi.get());
}

std::optional<QByteArray> Transfer::run(QUrl url)
{
    for (int redirects = 0; redirects <= mostRedirects; ++redirects) {
        if (!isWebAddress(url) || !get(url)) {
            return std::nullopt;
        }
        if (status() == statusOk) {
            return m_file;
        }
        const bool wasEncrypted = url.scheme() == QLatin1String("https");
        url = redirection();
        if (wasEncrypted && url.scheme() != QLatin1String("https")) {
            return std::nullopt;
        }
    }
    return std::nullopt;
}

void Transfer::setProxy(const QUrl& url)
{
    QByteArray address; // empty for none, not even the environment's
    QNetworkProxy proxy(QNetworkProxy::NoProxy);
    for (const QNetworkProxy& each : QNetworkProxyFactory::proxyForQuery(QNetworkProxyQuery(url))) {
        const bool isSocks = each.type() == QNetworkProxy::Socks5Proxy;
        if (isSocks || each.type() == QNetworkProxy::HttpProxy || each.type() == QNetworkProxy::HttpCachingProxy) {
            address = (isSocks ? "socks5h://" : "http://") + QUrl::toAce(each.hostName()) + ':' +
                      QByteArray::number(each.port());
            proxy = each;
        }
        if (!address.isEmpty() || each.type() == QNetworkProxy::NoProxy) {
            break;
        }
    }
    set(CURLOPT_PROXY, address.constData());
    set(CURLOPT_PROXYUSERNAME, proxy.user().isEmpty() ? nullptr : proxy.user().toUtf8().constData());
    set(CURLOPT_PROXYPASSWORD, proxy.user().isEmpty() ? nullptr : proxy.password().toUtf8().constData());
}

/// Fetches `url`, even if that is a redirection; false when the reply is incomplete.
bool Transfer::get(const QUrl& url)
{
    m_file.clear();
    set(CURLOPT_URL, url.toEncoded().constData());
    setProxy(url);
    if (!m_isGood || curl_multi_add_handle(m_multi.get(), m_easy.get()) != CURLM_OK) {
        return false;
    }
    const bool whole = perform();
    curl_multi_remove_handle(m_multi.get(), m_easy.get());
    return whole && mayGoOn();
}

bool Transfer::perform()
{
    int running = 0;
    do {
        if (curl_multi_perform(m_multi.get(), &running) != CURLM_OK || !mayGoOn()) {
            return false;
        }
        if (running > 0) {
            const auto left = std::chrono::ceil<std::chrono::milliseconds>(m_end - Clock::now());
            const auto sleep = std::clamp(left, std::chrono::milliseconds(0), mostSleep);
            curl_multi_poll(m_multi.get(), nullptr, 0, static_cast<int>(sleep.count()), nullptr);
        }
    } while (running > 0);
    int others = 0;
    const CURLMsg* message = curl_multi_info_read(m_multi.get(), &others);
    return message && message->msg == CURLMSG_DONE && message->data.result == CURLE_OK;
}

bool Transfer::mayGoOn() const
{
    return !m_break.isRequested() && Clock::now() < m_end && m_sockets.received() <= m_limits.received;
}

long Transfer::status() const
{
    long status = 0;
    curl_easy_getinfo(m_easy.get(), CURLINFO_RESPONSE_CODE, &status);
    return status;
}

/// The target of a redirection; an empty address when the reply is not one.
QUrl Transfer::redirection() const
{
    const char* place = nullptr;
    curl_easy_getinfo(m_easy.get(), CURLINFO_REDIRECT_URL, &place);
    const bool is = place && std::ranges::find(redirections, status()) != redirections.end();
    return is ? QUrl(QString::fromUtf8(place)) : QUrl();
}

std::size_t Transfer::take(const char* bytes, std::size_t one, std::size_t count, void* self)
{
    auto* transfer = static_cast<Transfer*>(self);
    const std::size_t size = one * count;
    if (transfer->status() == statusOk) {
        if (static_cast<std::size_t>(transfer->m_file.size()) + size > transfer->m_limits.file) {
            return 0; // ends the transfer
        }
        transfer->m_file.append(bytes, static_cast<qsizetype>(size));
    }
    return size;
}

} // namespace

void DownloadBreak::request()
{
    const std::scoped_lock lock(m_mutex);
    m_requested = true;
    if (m_sleeper) {
        curl_multi_wakeup(m_sleeper);
    }
}

bool DownloadBreak::isRequested() const
{
    const std::scoped_lock lock(m_mutex);
    return m_requested;
}

void DownloadBreak::setSleeper(void* sleeper)
{
    const std::scoped_lock lock(m_mutex);
    m_sleeper = sleeper;
}

std::optional<QByteArray> download(const QUrl& url, const DownloadLimits& limits, DownloadBreak& breakOff,
                                   const std::filesystem::path& authorities)
{
    static const bool isReady = curl_global_init(CURL_GLOBAL_DEFAULT) == CURLE_OK;
    return isReady ? Transfer(limits, breakOff, authorities).run(url) : std::nullopt;
}
