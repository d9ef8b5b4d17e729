#include "net/gzip_reader.h"

#include <zlib.h>

#include <algorithm>
#include <array>

namespace {

constexpr int kGzipOnly = MAX_WBITS + 16; // zlib's way of asking for a gzip head and checksum
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
    inflateEnd(&m_stream->zlib); // harmless when the initialisation failed
}

bool GzipReader::IsComplete() const
{
    return m_stream->state == Stream::State::Fresh || m_stream->state == Stream::State::AfterMember
        || m_stream->state == Stream::State::AfterBody;
}

bool GzipReader::Feed(QByteArrayView bytes, QByteArray &body, qsizetype limit)
{
    using State = Stream::State;
    z_stream &zlib = m_stream->zlib;
    State &state = m_stream->state;
    QByteArray input = bytes.toByteArray(); // zlib wants it writable; a chunk is 16 KiB at most
    zlib.next_in = reinterpret_cast<Bytef *>(input.data());
    zlib.avail_in = static_cast<uInt>(input.size());

    // What is unpacked may still wait inside zlib when all input is taken: then the output was
    // full.
    bool outputWasFull = false;
    while ((zlib.avail_in > 0 || outputWasFull) && body.size() <= limit) {
        if (state == State::Broken)
            return false;
        if (state == State::AfterMember) {
            const bool another = *zlib.next_in == static_cast<Bytef>(kMagic);
            state = another && inflateReset(&zlib) == Z_OK ? State::InMember : State::AfterBody;
        }
        if (state == State::AfterBody)
            break;

        zlib.next_out = reinterpret_cast<Bytef *>(m_stream->chunk.data());
        zlib.avail_out = static_cast<uInt>(kChunk);
        const int status = inflate(&zlib, Z_NO_FLUSH);
        outputWasFull = zlib.avail_out == 0 && status == Z_OK;
        const qsizetype unpacked = qsizetype(kChunk) - qsizetype(zlib.avail_out);
        body.append(m_stream->chunk.data(), std::min(unpacked, limit + 1 - body.size()));
        if (status == Z_STREAM_END)
            state = State::AfterMember;
        else
            state = status == Z_OK || status == Z_BUF_ERROR ? State::InMember : State::Broken;
    }
    return state != State::Broken;
}
