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

constexpr int kRefusedUrl = 3; // libcurl's number for an address that is none
constexpr int kNotStarted = 2; // libcurl's number for "could not be brought up"

/// Lets the memory of large replies go back to the system as soon as they are let go of. Else the
/// C library's limit for such blocks grows with the first large one, and the heap keeps the rest.
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

TransferResult Refused()
{
    return {.error = kRefusedUrl, .text = {}, .errorText = u"Not an http or https address"_s};
}

} // namespace

CurlTransfers::CurlTransfers(TransferOptions options) : m_thread(StartThread(std::move(options))) {}

CurlTransfers::~CurlTransfers() = default;

const Transfer *CurlTransfers::Find(TransferHandle handle) const
{
    const auto found = m_open.find(handle);
    return found == m_open.end() ? nullptr : found->second.get();
}

TransferHandle CurlTransfers::Net_HTTPThreadOpen(const QString &port)
{
    if (!IsPort(port) || !m_thread->IsUsable())
        return 0;
    do {
        m_last = m_last == std::numeric_limits<TransferHandle>::max() ? 1 : m_last + 1;
    } while (m_open.contains(m_last)); // after years of requests the numbers begin again
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
    if (!m_open.contains(handle))
        return true;
    const Transfer *transfer = Find(handle);
    return transfer != nullptr && transfer->Result() != nullptr;
}

int CurlTransfers::Net_HTTPThreadReturnText(TransferHandle handle, QString &text)
{
    const Transfer *transfer = Find(handle);
    const TransferResult *result = transfer == nullptr ? nullptr : transfer->Result();
    const bool received = result != nullptr && result->error == 0;
    text = received ? result->text : QString();
    return received ? 1 : 0;
}

void CurlTransfers::Net_HTTPThreadClose(TransferHandle handle)
{
    const auto found = m_open.find(handle);
    if (found == m_open.end())
        return;
    const std::shared_ptr<Transfer> transfer = found->second;
    m_open.erase(found);
    if (transfer != nullptr && transfer->Result() == nullptr)
        m_thread->Stop(transfer);
}

QString CurlTransfers::ErrorText(TransferHandle handle) const
{
    const Transfer *transfer = Find(handle);
    const TransferResult *result = transfer == nullptr ? nullptr : transfer->Result();
    return result == nullptr ? QString() : result->errorText;
}

int CurlTransfers::ErrorNumber(TransferHandle handle) const
{
    const Transfer *transfer = Find(handle);
    const TransferResult *result = transfer == nullptr ? nullptr : transfer->Result();
    return result == nullptr ? 0 : result->error;
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
    const TransferResult &result = transfer->Wait();
    if (result.error == 0)
        text = result.text;
    return result.error;
}
