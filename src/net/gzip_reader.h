#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <memory>

/// Decompresses a gzip body as it comes in.
///
/// libcurl's own decoder accepts a truncated body; here a reply counts only if its last checksum is
/// present and correct.
class GzipReader
{
public:
    GzipReader();
    ~GzipReader();
    Q_DISABLE_COPY_MOVE(GzipReader)

    /// Decompresses `bytes` to the end of `body`, at most until it is one byte longer than `limit`.
    /// Several gzip members in a row are one body; anything else after a complete one is ignored.
    /// @return false if the bytes are not gzip; do not pass any more bytes then.
    [[nodiscard]] bool Feed(QByteArrayView bytes, QByteArray &body, qsizetype limit);

    /// True if the body so far is complete: also before the first byte.
    [[nodiscard]] bool IsComplete() const;

private:
    struct Stream;

    [[nodiscard]] bool BeginNextMember();
    [[nodiscard]] bool UnpackOnce(QByteArray &body, qsizetype limit);

    std::unique_ptr<Stream> m_stream;
};
