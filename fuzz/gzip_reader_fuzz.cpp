#include "fuzz_input.h"
#include "net/gzip_reader.h"

#include <zlib.h>

#include <algorithm>

namespace {

constexpr qsizetype kLimit = 65536;

struct Unpacked
{
    QByteArray body = {};
    bool accepted = true; ///< Every piece was gzip.
    bool complete = false;

    bool operator==(const Unpacked &) const = default;
};

Unpacked Unpack(const QByteArray &bytes, qsizetype piece)
{
    GzipReader reader;
    Unpacked unpacked;
    for (qsizetype at = 0; at < bytes.size() && unpacked.accepted; at += piece)
        unpacked.accepted = reader.Feed(bytes.mid(at, piece), unpacked.body, kLimit);
    unpacked.complete = unpacked.accepted && reader.IsComplete();
    return unpacked;
}

QByteArray Packed(const QByteArray &text)
{
    QByteArray packed(qsizetype(compressBound(uLong(text.size()))) + 64, '\0');
    QByteArray copy = text;
    z_stream zlib = {};
    Demand(deflateInit2(&zlib, 6, Z_DEFLATED, MAX_WBITS + 16, 8, Z_DEFAULT_STRATEGY) == Z_OK,
           "zlib starts");
    zlib.next_in = reinterpret_cast<Bytef *>(copy.data());
    zlib.avail_in = uInt(copy.size());
    zlib.next_out = reinterpret_cast<Bytef *>(packed.data());
    zlib.avail_out = uInt(packed.size());
    Demand(deflate(&zlib, Z_FINISH) == Z_STREAM_END, "zlib packs");
    packed.truncate(packed.size() - qsizetype(zlib.avail_out));
    deflateEnd(&zlib);
    return packed;
}

/// However the bytes are split, the result is the same.
void CheckForeign(const QByteArray &bytes, qsizetype piece)
{
    const Unpacked whole = Unpack(bytes, std::max<qsizetype>(bytes.size(), 1));
    const Unpacked pieces = Unpack(bytes, piece);
    Demand(whole.body.size() <= kLimit + 1 && pieces.body.size() <= kLimit + 1, "the limit holds");
    if (whole.body.size() > kLimit)
        Demand(pieces.body == whole.body, "the same text up to the limit");
    else if (whole.accepted)
        Demand(pieces == whole, "pieces make no difference");
    else
        Demand(!pieces.accepted, "what is no gzip is none in pieces");
}

/// What was packed comes out again, and nothing truncated counts as complete.
void CheckOwn(const QByteArray &text, qsizetype piece, qsizetype cut)
{
    const QByteArray packed = Packed(text);
    Demand(Unpack(packed, piece) == Unpacked{text, true, true}, "what was packed comes out");
    Demand(Unpack(packed + packed, piece).body == text + text, "members in a row are one body");
    Demand(Unpack(packed + "tail", piece) == Unpacked{text, true, true}, "a tail is ignored");
    const qsizetype length = 1 + cut % (packed.size() - 1);
    Demand(!Unpack(packed.first(length), piece).complete, "what breaks off is not complete");
    Demand(text.startsWith(Unpack(packed.first(length), piece).body), "but a beginning");
}

} // namespace

// The contract: a body comes out the same however it is split, never beyond the limit, and is only
// complete with its last checksum. The first two bytes say how it is split.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *bytes, size_t size)
{
    if (size < 2)
        return 0;
    const qsizetype piece = 1 + bytes[0];
    const QByteArray rest = FuzzInput(bytes + 2, size - 2).Rest();
    CheckForeign(rest, piece);
    CheckOwn(rest.left(kLimit / 4), piece, bytes[1]);
    return 0;
}
