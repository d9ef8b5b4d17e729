#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

/// The input of a fuzz target: some fields of one line each, then the rest. So a seed is a text
/// that anybody can read and write.
class FuzzInput
{
public:
    FuzzInput(const std::uint8_t *bytes, std::size_t size)
        : m_rest(reinterpret_cast<const char *>(bytes), qsizetype(size))
    {}

    /// The next line, without its line feed.
    [[nodiscard]] QByteArray Line()
    {
        const qsizetype end = m_rest.indexOf('\n');
        const QByteArrayView line = end < 0 ? m_rest : m_rest.first(end);
        m_rest = m_rest.sliced(end < 0 ? m_rest.size() : end + 1);
        return line.toByteArray();
    }

    /// Everything up to the next `line`, or to the end if there is none.
    [[nodiscard]] QByteArray UpTo(const QByteArray &line)
    {
        const QByteArray end = '\n' + line + '\n';
        const qsizetype at = m_rest.indexOf(end);
        const QByteArrayView part = at < 0 ? m_rest : m_rest.first(at + 1);
        m_rest = m_rest.sliced(at < 0 ? m_rest.size() : at + end.size());
        return part.toByteArray();
    }

    [[nodiscard]] QByteArray Rest() const { return m_rest.toByteArray(); }

private:
    QByteArrayView m_rest;
};

/// Decodes UTF-8. U+E000 and U+E001 stand for the halves of a surrogate pair, which UTF-8 lacks.
inline QString TextOf(QByteArrayView bytes)
{
    return QString::fromUtf8(bytes)
        .replace(QChar(0xE000), QChar(0xD83D))
        .replace(QChar(0xE001), QChar(0xDE00));
}

/// Aborts with `contract` on the console unless it `holds`.
inline void Demand(bool holds, const char *contract)
{
    if (holds)
        return;
    std::fprintf(stderr, "Contract broken: %s\n", contract);
    std::abort();
}
