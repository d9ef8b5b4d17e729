#include "net/answer_head.h"

#include <algorithm>

namespace {

/// The line number `index` of those with that name; null if there are fewer.
const curl_header *HeaderAt(CURL *easy, const char *name, size_t index)
{
    constexpr int kLastRequest = -1;
    curl_header *header = nullptr;
    const CURLHcode found =
        curl_easy_header(easy, name, index, CURLH_HEADER, kLastRequest, &header);
    return found == CURLHE_OK ? header : nullptr;
}

QByteArray FirstOf(CURL *easy, const char *name)
{
    const curl_header *const header = HeaderAt(easy, name, 0);
    return header == nullptr ? QByteArray() : QByteArray(header->value);
}

QByteArray AllOf(CURL *easy, const char *name)
{
    constexpr size_t kMostLines = 16; // for each of them libcurl searches all lines
    QByteArray all;
    for (size_t index = 0; index < kMostLines; ++index) {
        const curl_header *const header = HeaderAt(easy, name, index);
        if (header == nullptr)
            break;
        all += (index > 0 ? "," : "") + QByteArray(header->value);
    }
    return all;
}

bool ComesInChunks(CURL *easy)
{
    const QByteArray encodings = AllOf(easy, "Transfer-Encoding").toLower();
    const auto parts = encodings.split(',');
    return std::any_of(parts.begin(), parts.end(),
                       [](const QByteArray &part) { return part.trimmed() == "chunked"; });
}

} // namespace

bool MarksItsEnd(CURL *easy)
{
    curl_off_t length = -1;
    long version = 0;
    curl_easy_getinfo(easy, CURLINFO_CONTENT_LENGTH_DOWNLOAD_T, &length);
    curl_easy_getinfo(easy, CURLINFO_HTTP_VERSION, &version);
    return length >= 0 || version >= CURL_HTTP_VERSION_2_0 || ComesInChunks(easy);
}

ReplyHeaders HeadersOf(CURL *easy)
{
    return {.retryAfter = FirstOf(easy, "Retry-After"),
            .eTag = FirstOf(easy, "ETag"),
            .lastModified = FirstOf(easy, "Last-Modified"),
            .cacheControl = AllOf(easy, "Cache-Control"),
            .age = FirstOf(easy, "Age"),
            .expires = FirstOf(easy, "Expires")};
}
