#include "net/gzip_reader.h"

#include <zlib.h>

#include <algorithm>
#include <array>

namespace {

constexpr int kGzipOnly = MAX_WBITS + 16; // asks zlib for a gzip header and checksum
constexpr char kMagic = '\x1F';
constexpr size_t kChunk = 32768;

} // namespace

struct GzipReader::Stream
{
    enum class State
    {
        Fresh,
        InMember,
        AfterMember,
        AfterBody,
        Broken
    };

    z_stream zlib = {};
    State state = State::Fresh;
    std::array<char, kChunk> chunk = {};
};

GzipReader::GzipReader() : m_stream(std::make_unique<Stream>())
{
    if (inflateInit2(&m_stream->zlib, kGzipOnly) != Z_OK)
        m_stream->state = Stream::State::Broken;
}

GzipReader::~GzipReader()
{
    inflateEnd(&m_stream->zlib); // harmless if the initialisation failed
}

bool GzipReader::IsComplete() const
{
    return m_stream->state == Stream::State::Fresh || m_stream->state == Stream::State::AfterMember
        || m_stream->state == Stream::State::AfterBody;
}

/// Called after a complete member: goes on if another one follows.
/// @return false at the end of the body.
bool GzipReader::BeginNextMember()
{
    z_stream &zlib = m_stream->zlib;
    const bool another = *zlib.next_in == static_cast<Bytef>(kMagic);
    const bool begun = another && inflateReset(&zlib) == Z_OK;
    m_stream->state = begun ? Stream::State::InMember : Stream::State::AfterBody;
    return begun;
}

/// Unpacks as much as fits into one chunk.
/// @return true if the same input may hold more.
bool GzipReader::UnpackOnce(QByteArray &body, qsizetype limit)
{
    z_stream &zlib = m_stream->zlib;
    zlib.next_out = reinterpret_cast<Bytef *>(m_stream->chunk.data());
    zlib.avail_out = static_cast<uInt>(kChunk);
    const int status = inflate(&zlib, Z_NO_FLUSH);

    const qsizetype unpacked = qsizetype(kChunk) - qsizetype(zlib.avail_out);
    body.append(m_stream->chunk.data(), std::min(unpacked, limit + 1 - body.size()));
    if (status == Z_STREAM_END)
        m_stream->state = Stream::State::AfterMember;
    else if (status == Z_OK || status == Z_BUF_ERROR)
        m_stream->state = Stream::State::InMember;
    else
        m_stream->state = Stream::State::Broken;
    return status == Z_OK && zlib.avail_out == 0;
}

bool GzipReader::Feed(QByteArrayView bytes, QByteArray &body, qsizetype limit)
{
    using State = Stream::State;
    z_stream &zlib = m_stream->zlib;
    QByteArray input = bytes.toByteArray(); // zlib wants it writable; a chunk is 16 KiB at most
    zlib.next_in = reinterpret_cast<Bytef *>(input.data());
    zlib.avail_in = static_cast<uInt>(input.size());

    bool mayHoldMore = false;
    while ((zlib.avail_in > 0 || mayHoldMore) && body.size() <= limit) {
        if (m_stream->state == State::Broken)
            return false;
        if (m_stream->state == State::AfterMember && !BeginNextMember())
            return true;
        if (m_stream->state == State::AfterBody)
            return true;
        mayHoldMore = UnpackOnce(body, limit);
    }
    return m_stream->state != State::Broken;
}
