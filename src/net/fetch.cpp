#include "net/fetch.h"

#include "net/answer_head.h"
#include "net/body_text.h"
#include "net/reply_headers.h"
#include "net/request_url.h"

#include <QByteArrayView>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr long kFirstSuccess = 200;
constexpr long kPartialContent = 206;
constexpr long kDifference = 226;
constexpr long kFirstRedirect = 300;
constexpr long kFirstError = 400;

/// True when the body is what was asked for. A part or a difference is not: the program never asks
/// for one.
bool IsSuccess(long status)
{
    return status >= kFirstSuccess && status < kFirstRedirect && status != kPartialContent
        && status != kDifference;
}

bool IsRedirect(long status)
{
    constexpr std::array<long, 5> kRedirects = {301, 302, 303, 307, 308};
    return std::find(kRedirects.begin(), kRedirects.end(), status) != kRedirects.end();
}

Reply Failed(int error, const QString &text)
{
    return {.error = error, .errorText = text};
}

QString OwnWords(CURLcode code)
{
    return QString::fromUtf8(curl_easy_strerror(code));
}

} // namespace

Fetch::Fetch(std::shared_ptr<Transfer> transfer, CURLM *multi, const TransferOptions &options)
    : m_transfer(std::move(transfer))
    , m_multi(multi)
    , m_options(options)
    , m_easy(curl_easy_init())
{
    if (m_easy == nullptr)
        m_ready = false;
    else
        SetUp();
}

Fetch::~Fetch()
{
    if (m_easy != nullptr)
        curl_multi_remove_handle(m_multi, m_easy.get()); // harmless if it was never added
}

template <typename Value>
void Fetch::Set(CURLoption option, Value value)
{
    m_ready = curl_easy_setopt(m_easy.get(), option, value) == CURLE_OK && m_ready;
}

void Fetch::SetUp()
{
    // libcurl's own decoder is not used, because it accepts a truncated body.
    m_headers.reset(curl_slist_append(nullptr, "Accept-Encoding: gzip"));
    m_ready = m_headers != nullptr;

    Set(CURLOPT_HTTPHEADER, m_headers.get());
    Set(CURLOPT_USERAGENT, m_options.userAgent.constData());
    Set(CURLOPT_PROTOCOLS_STR, "http,https");
    Set(CURLOPT_FOLLOWLOCATION, 0L); // Follow() decides: no protocol list forbids https to http
    Set(CURLOPT_HTTP_VERSION, static_cast<long>(CURL_HTTP_VERSION_2TLS));
    Set(CURLOPT_NOSIGNAL, 1L);
    Set(CURLOPT_QUICK_EXIT, 1L); // or closing waits for a name server that does not answer
    Set(CURLOPT_CONNECTTIMEOUT_MS, static_cast<long>(m_options.connectTimeout.count()));
    Set(CURLOPT_SUPPRESS_CONNECT_HEADERS, 1L); // a proxy's head is not part of the reply
    Set(CURLOPT_ERRORBUFFER, m_message.data());
    Set(CURLOPT_HEADERFUNCTION, &Fetch::OnHeader);
    Set(CURLOPT_HEADERDATA, this);
    Set(CURLOPT_WRITEFUNCTION, &Fetch::OnBody);
    Set(CURLOPT_WRITEDATA, this);
    Set(CURLOPT_PRIVATE, this);
    SetUpTls();
}

void Fetch::SetUpTls()
{
    Set(CURLOPT_SSL_VERIFYPEER, 1L);
    Set(CURLOPT_SSL_VERIFYHOST, 2L);
    Set(CURLOPT_SSLVERSION, static_cast<long>(CURL_SSLVERSION_TLSv1_2));
    if (m_options.trustedRoots.isEmpty())
        return;
    curl_blob roots = {};
    roots.data = const_cast<char *>(m_options.trustedRoots.constData()); // copied, not written to
    roots.len = static_cast<size_t>(m_options.trustedRoots.size());
    roots.flags = CURL_BLOB_COPY;
    Set(CURLOPT_CAINFO_BLOB, &roots);
    Set<const char *>(CURLOPT_CAPATH, nullptr); // these and no others
}

std::optional<Reply> Fetch::Start()
{
    return Request(m_transfer->Url());
}

std::optional<Reply> Fetch::Request(const QByteArray &url)
{
    const auto passed =
        std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - m_begin);
    const auto left = m_options.totalTimeout - passed;
    if (left.count() <= 0)
        return Failed(CURLE_OPERATION_TIMEDOUT, OwnWords(CURLE_OPERATION_TIMEDOUT));

    m_url = url;
    m_headSize = 0;
    m_headComplete = false;
    m_bodySize = 0;
    m_counted = -1;
    m_message.front() = '\0';
    if (m_ready) {
        Set(CURLOPT_URL, m_url.constData());
        Set(CURLOPT_TIMEOUT_MS, static_cast<long>(left.count()));
    }
    if (!m_ready || curl_multi_add_handle(m_multi, m_easy.get()) != CURLM_OK)
        return Failed(CURLE_FAILED_INIT, OwnWords(CURLE_FAILED_INIT));
    return std::nullopt;
}

std::optional<Reply> Fetch::Ended(CURLcode code)
{
    curl_multi_remove_handle(m_multi, m_easy.get());
    if (code == CURLE_OK && !m_headComplete)
        code = CURLE_GOT_NOTHING;
    const long status = Status();
    if (code == CURLE_OK && IsSuccess(status))
        return Received();

    char *location = nullptr;
    const bool pointsOn = code == CURLE_OK && IsRedirect(status)
                       && curl_easy_getinfo(Easy(), CURLINFO_REDIRECT_URL, &location) == CURLE_OK
                       && location != nullptr;
    if (pointsOn)
        return Follow(location);

    // An error reply is an error, however its page ended.
    if (status >= kFirstError || (code == CURLE_OK && status > 0))
        return Failed(int(status), u"HTTP "_s + QString::number(status));
    if (m_ownFailure != CURLE_OK)
        return Failed(m_ownFailure, OwnWords(m_ownFailure));
    return Failed(code,
                  m_message.front() != '\0' ? QString::fromUtf8(m_message.data()) : OwnWords(code));
}

std::optional<Reply> Fetch::Follow(const char *location)
{
    const auto next = RequestUrl(QByteArrayView(location));
    if (!next)
        return Failed(CURLE_UNSUPPORTED_PROTOCOL, u"Redirect to a refused address"_s);
    if (IsHttps(m_url) && !IsHttps(*next))
        return Failed(CURLE_UNSUPPORTED_PROTOCOL, u"Redirect from https to http refused"_s);
    if (m_redirects == m_options.maxRedirects)
        return Failed(CURLE_TOO_MANY_REDIRECTS, OwnWords(CURLE_TOO_MANY_REDIRECTS));
    ++m_redirects;
    m_redirectStatus = Status();
    return Request(*next);
}

Reply Fetch::Received()
{
    if (m_gzip != nullptr && !m_gzip->IsComplete())
        return Failed(CURLE_BAD_CONTENT_ENCODING, OwnWords(CURLE_BAD_CONTENT_ENCODING));

    char *contentType = nullptr;
    const bool typed = curl_easy_getinfo(Easy(), CURLINFO_CONTENT_TYPE, &contentType) == CURLE_OK;
    const QByteArrayView type =
        typed && contentType != nullptr ? QByteArrayView(contentType) : QByteArrayView();
    const QByteArray body = std::exchange(m_body, {});
    return {.text = BodyText(body, type), .complete = m_gzip != nullptr || MarksItsEnd(Easy())};
}

void Fetch::Describe(Reply &reply) const
{
    const long status = Status();
    reply.took = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - m_begin);
    reply.status = int(status > 0 ? status : m_redirectStatus);
    if (reply.error == 0 || reply.error == reply.status) // else no answer ended the fetch
        ApplyHeaders(HeadersOf(Easy()), QDateTime::currentDateTimeUtc(), reply);
}

long Fetch::Status() const
{
    long status = 0;
    return curl_easy_getinfo(Easy(), CURLINFO_RESPONSE_CODE, &status) == CURLE_OK ? status : 0;
}

Fetch::Clock::time_point Fetch::IdleDeadline()
{
    curl_off_t body = 0;
    curl_easy_getinfo(Easy(), CURLINFO_SIZE_DOWNLOAD_T, &body);
    const qint64 counted = qint64(body) + m_headSize;
    if (counted != m_counted) {
        m_counted = counted;
        m_idleSince = Clock::now();
    }
    return m_idleSince + m_options.idleTimeout;
}

Reply Fetch::IdleReply() const
{
    const QString span = QString::number(m_options.idleTimeout.count());
    return Failed(CURLE_OPERATION_TIMEDOUT, u"No data received for "_s + span + u" milliseconds"_s);
}

bool Fetch::Fail(CURLcode code)
{
    m_ownFailure = code;
    return false;
}

bool Fetch::CheckHeadLine(QByteArrayView line)
{
    // libcurl accepts a truncated head, and treats its reply as an empty one.
    if (line.startsWith("HTTP/"))
        m_headComplete = false; // the head before it was an interim reply's
    else if (line == "\r\n" || line == "\n")
        m_headComplete = true;
    m_headSize += line.size();
    return m_headSize <= m_options.headLimit || Fail(CURLE_FILESIZE_EXCEEDED);
}

/// Called with the first bytes of a body, when the head is complete.
bool Fetch::PrepareBody()
{
    curl_header *encoding = nullptr;
    const CURLHcode found =
        curl_easy_header(Easy(), "Content-Encoding", 0, CURLH_HEADER, -1, &encoding);
    if (found == CURLHE_OK) {
        const QByteArray name = QByteArray(encoding->value).trimmed().toLower();
        if (encoding->amount > 1)
            return Fail(CURLE_BAD_CONTENT_ENCODING);
        if (name == "gzip" || name == "x-gzip")
            m_gzip = std::make_unique<GzipReader>();
        else if (!name.isEmpty() && name != "identity")
            return Fail(CURLE_BAD_CONTENT_ENCODING);
    }

    curl_off_t length = -1;
    curl_easy_getinfo(Easy(), CURLINFO_CONTENT_LENGTH_DOWNLOAD_T, &length);
    if (m_gzip == nullptr && length > 0)
        m_body.reserve(qsizetype(std::min<curl_off_t>(length, m_options.bodyLimit)));
    return true;
}

bool Fetch::KeepBody(QByteArrayView bytes)
{
    const bool first = m_bodySize == 0;
    m_bodySize += bytes.size();
    // An error's or a redirect's page is dropped, but read, or the connection could not be reused.
    if (!IsSuccess(Status()))
        return m_bodySize <= m_options.bodyLimit || Fail(CURLE_FILESIZE_EXCEEDED);
    if (first && !PrepareBody())
        return false;

    if (m_gzip != nullptr) {
        if (!m_gzip->Feed(bytes, m_body, m_options.bodyLimit))
            return Fail(CURLE_BAD_CONTENT_ENCODING);
    } else if (m_body.size() + bytes.size() > m_options.bodyLimit) {
        return Fail(CURLE_FILESIZE_EXCEEDED);
    } else {
        m_body.append(bytes.data(), bytes.size());
    }
    return m_body.size() <= m_options.bodyLimit || Fail(CURLE_FILESIZE_EXCEEDED);
}

size_t Fetch::OnHeader(char *bytes, size_t size, size_t count, void *fetch)
{
    const QByteArrayView line(bytes, qsizetype(size * count));
    const bool taken = static_cast<Fetch *>(fetch)->CheckHeadLine(line);
    return taken ? size * count : 0;
}

size_t Fetch::OnBody(char *bytes, size_t size, size_t count, void *fetch)
{
    const QByteArrayView view(bytes, qsizetype(size * count));
    // An empty block must not fail: libcurl could not tell its 0 from success.
    const bool taken = view.isEmpty() || static_cast<Fetch *>(fetch)->KeepBody(view);
    return taken ? size * count : 0;
}
