#pragma once

#include <zlib.h>

#include <cstdlib>
#include <string>

/// `text` as one gzip member, packed as small as it gets.
inline std::string Gzip(std::string text)
{
    z_stream zlib = {};
    constexpr int kGzipHead = MAX_WBITS + 16;
    constexpr int kMemory = 8;
    if (deflateInit2(&zlib, Z_BEST_COMPRESSION, Z_DEFLATED, kGzipHead, kMemory, Z_DEFAULT_STRATEGY)
        != Z_OK)
        std::abort();
    std::string packed(deflateBound(&zlib, text.size()), '\0');
    zlib.next_in = reinterpret_cast<Bytef *>(text.data());
    zlib.avail_in = static_cast<uInt>(text.size());
    zlib.next_out = reinterpret_cast<Bytef *>(packed.data());
    zlib.avail_out = static_cast<uInt>(packed.size());
    if (deflate(&zlib, Z_FINISH) != Z_STREAM_END)
        std::abort();
    packed.resize(zlib.total_out);
    deflateEnd(&zlib);
    return packed;
}
