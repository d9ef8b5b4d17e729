#pragma once

#include "net/curl_handles.h"
#include "net/reply_headers.h"

// What libcurl knows of the head of the last answer; heads of interim answers and of redirects
// before it do not count. Network thread only.

/// True when the answer's head marks where its body ends: by a length, by chunks, or as a stream of
/// HTTP/2. libcurl fails such a body when it ends earlier. False: it ends with the connection.
[[nodiscard]] bool MarksItsEnd(CURL *easy);

/// Of several lines with one name the first, of Cache-Control the first sixteen.
[[nodiscard]] ReplyHeaders HeadersOf(CURL *easy);
