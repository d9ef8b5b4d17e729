#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <memory>

/// Unpacks a gzip body while it comes in.
///
/// libcurl's own decoder takes a body that breaks off for a complete one; here a reply counts only
/// when its last checksum was there and right.
class GzipReader
{
public:
    GzipReader();
    ~GzipReader();
    Q_DISABLE_COPY_MOVE(GzipReader)

    /// Unpacks `bytes` to the end of `body`, at most until it is one byte longer than `limit`.
    /// Several gzip members in a row are one body; anything else after a complete one is ignored.
    /// @return false when the bytes are no gzip; nothing more is to be fed then.
    [[nodiscard]] bool Feed(QByteArrayView bytes, QByteArray &body, qsizetype limit);

    /// True when the body so far is whole: also before the first byte.
    [[nodiscard]] bool IsComplete() const;

private:
    struct Stream;

    [[nodiscard]] bool BeginNextMember();
    [[nodiscard]] bool UnpackOnce(QByteArray &body, qsizetype limit);

    std::unique_ptr<Stream> m_stream;
};
