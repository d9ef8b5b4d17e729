#include "net/curl_transfers.h"

#include "net/port_text.h"
#include "net/request_url.h"
#include "net/transfer.h"
#include "net/transfer_thread.h"
#include "net/user_agent.h"

#include <QtGlobal>

#include <limits>

#ifdef __GLIBC__
#include <malloc.h>
#endif

using namespace Qt::StringLiterals;

namespace {

constexpr int kRefusedUrl = 3; // libcurl's number for a malformed address
constexpr int kNotStarted = 2; // libcurl's number for a failed initialisation

/// Makes the C library return the memory of large replies to the system as soon as it is freed.
/// Otherwise the first large block raises the threshold for that, and the heap keeps the later
/// ones.
void ReturnLargeBlocks()
{
#ifdef __GLIBC__
    constexpr int kLargeBlock = 1024 * 1024;
    mallopt(M_MMAP_THRESHOLD, kLargeBlock); // NOLINT(concurrency-mt-unsafe): before the thread
#endif
}

TransferOptions Completed(TransferOptions options)
{
    if (options.userAgent.isEmpty())
        options.userAgent = UserAgent(qEnvironmentVariable("TAVRIN_CONTACT"));
    return options;
}

std::unique_ptr<TransferThread> StartThread(TransferOptions options)
{
    ReturnLargeBlocks();
    return std::make_unique<TransferThread>(Completed(std::move(options)));
}

Reply Refused()
{
    return {.error = kRefusedUrl, .errorText = u"Not an http or https address"_s};
}

} // namespace

CurlTransfers::CurlTransfers(TransferOptions options) : m_thread(StartThread(std::move(options))) {}

CurlTransfers::~CurlTransfers() = default;

/// Null unless the transfer has ended.
const Reply *CurlTransfers::FindReply(TransferHandle handle) const
{
    const auto found = m_open.find(handle);
    const bool started = found != m_open.end() && found->second != nullptr;
    return started ? found->second->Ended() : nullptr;
}

TransferHandle CurlTransfers::Net_HTTPThreadOpen(const QString &port)
{
    if (!IsPort(port) || !m_thread->IsUsable())
        return 0;
    do {
        m_last = m_last == std::numeric_limits<TransferHandle>::max() ? 1 : m_last + 1;
    } while (m_open.contains(m_last)); // after years of requests the numbers start over
    m_open.emplace(m_last, nullptr);
    return m_last;
}

bool CurlTransfers::Net_HTTPThreadGet(TransferHandle handle, const QString &url)
{
    const auto found = m_open.find(handle);
    if (found == m_open.end() || found->second != nullptr)
        return false;

    const auto requestUrl = RequestUrl(url);
    found->second = std::make_shared<Transfer>(requestUrl.value_or(QByteArray()));
    if (requestUrl)
        m_thread->Start(found->second);
    else
        found->second->Publish(Refused());
    return requestUrl.has_value();
}

bool CurlTransfers::Net_HTTPThreadIsDone(TransferHandle handle) const
{
    return !m_open.contains(handle) || FindReply(handle) != nullptr;
}

int CurlTransfers::Net_HTTPThreadReturnText(TransferHandle handle, QString &text)
{
    const Reply *reply = FindReply(handle);
    const bool received = reply != nullptr && reply->error == 0;
    text = received ? reply->text : QString();
    return received ? 1 : 0;
}

Reply CurlTransfers::Net_HTTPThreadReply(TransferHandle handle) const
{
    const Reply *reply = FindReply(handle);
    return reply == nullptr ? Reply{.error = kNoReply} : *reply;
}

void CurlTransfers::Net_HTTPThreadClose(TransferHandle handle)
{
    const auto found = m_open.find(handle);
    if (found == m_open.end())
        return;
    const std::shared_ptr<Transfer> transfer = found->second;
    m_open.erase(found);
    if (transfer != nullptr && transfer->Ended() == nullptr)
        m_thread->Stop(transfer);
}

int CurlTransfers::Net_HttpGetText(const QString &url, QString &text)
{
    const auto requestUrl = RequestUrl(url);
    if (!requestUrl)
        return kRefusedUrl;
    if (!m_thread->IsUsable())
        return kNotStarted;
    const auto transfer = std::make_shared<Transfer>(*requestUrl);
    m_thread->Start(transfer);
    const Reply &reply = transfer->Wait();
    if (reply.error == 0)
        text = reply.text;
    return reply.error;
}
