#pragma once

#include "net/curl_handles.h"
#include "net/gzip_reader.h"
#include "net/transfer.h"
#include "net/transfer_options.h"

#include <array>
#include <chrono>
#include <memory>
#include <optional>

/// One running transfer: its easy handle and what has come in so far. Network thread only.
class Fetch
{
public:
    using Clock = std::chrono::steady_clock;

    /// Both `multi` and `options` must outlive the fetch.
    Fetch(std::shared_ptr<Transfer> transfer, CURLM *multi, const TransferOptions &options);
    ~Fetch();
    Q_DISABLE_COPY_MOVE(Fetch)

    [[nodiscard]] std::shared_ptr<Transfer> Target() const { return m_transfer; }
    [[nodiscard]] CURL *Easy() const { return m_easy.get(); }

    /// Passes the request to libcurl.
    /// @return how the fetch ended, if it could not even begin.
    [[nodiscard]] std::optional<Reply> Start();

    /// To be called when libcurl has ended the request: follows a redirect, or says how the fetch
    /// ended.
    [[nodiscard]] std::optional<Reply> Ended(CURLcode code);

    /// When to give the fetch up unless another byte comes in.
    [[nodiscard]] Clock::time_point IdleDeadline();

    /// The reply of a fetch that was given up.
    [[nodiscard]] Reply IdleReply() const;

    /// Adds to `reply`, with which the fetch ends now, what every end has: the status, what the
    /// headers say, the time that it took.
    void Describe(Reply &reply) const;

private:
    template <typename Value>
    void Set(CURLoption option, Value value);
    void SetUp();
    void SetUpTls();
    [[nodiscard]] std::optional<Reply> Request(const QByteArray &url);
    [[nodiscard]] std::optional<Reply> Follow(const char *location);
    [[nodiscard]] Reply Received();
    [[nodiscard]] long Status() const;
    [[nodiscard]] bool CheckHeadLine(QByteArrayView line);
    [[nodiscard]] bool KeepBody(QByteArrayView bytes);
    [[nodiscard]] bool PrepareBody();
    [[nodiscard]] bool Fail(CURLcode code);

    static size_t OnHeader(char *bytes, size_t size, size_t count, void *fetch);
    static size_t OnBody(char *bytes, size_t size, size_t count, void *fetch);

    const std::shared_ptr<Transfer> m_transfer;
    CURLM *const m_multi;
    const TransferOptions &m_options;
    const Clock::time_point m_begin = Clock::now();
    std::array<char, CURL_ERROR_SIZE> m_message = {}; ///< libcurl writes here while it works.
    HeaderList m_headers;
    QByteArray m_url;
    QByteArray m_body;
    std::unique_ptr<GzipReader> m_gzip; ///< Null: the body is not compressed.
    qsizetype m_headSize = 0;
    bool m_headComplete = false; ///< Its empty line has come.
    qsizetype m_bodySize = 0;    ///< Bytes of the body as received, unpacked or not, kept or not.
    int m_redirects = 0;
    long m_redirectStatus = 0; ///< Of the last redirect; 0: none yet.
    qint64 m_counted = -1;     ///< Bytes counted when the idle time began.
    Clock::time_point m_idleSince = m_begin;
    CURLcode m_ownFailure = CURLE_OK; ///< Why a callback stopped libcurl.
    bool m_ready = true;              ///< All options could be set.
    EasyHandle m_easy;                ///< Last: it is closed before what it points to goes away.
};
