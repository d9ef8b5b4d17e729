#pragma once

#include <QByteArray>

#include <chrono>

/// Limits of every transfer. The program uses these defaults; a test shortens them.
struct TransferOptions
{
    std::chrono::milliseconds connectTimeout = std::chrono::seconds(10); ///< Name look-up and TLS
                                                                         ///< included.
    std::chrono::milliseconds idleTimeout = std::chrono::seconds(20);    ///< Without any byte.
    std::chrono::milliseconds totalTimeout = std::chrono::seconds(60);   ///< Redirects included.
    qsizetype bodyLimit = qsizetype(16) * 1024 * 1024; ///< Bytes, after decompression.
    qsizetype headLimit = qsizetype(256) * 1024;       ///< Bytes of all header lines of a reply.
    int maxRedirects = 5;
    QByteArray userAgent = {};    ///< The User-Agent header's value, see UserAgent().
    QByteArray trustedRoots = {}; ///< PEM certificates to trust; empty: the system's.
};
