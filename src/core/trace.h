#pragma once

#include <QString>
#include <QStringView>

#include <concepts>

/// Reads the trace lines. Called on the user-interface thread only.
class TraceListener
{
public:
    TraceListener() = default;
    virtual ~TraceListener() = default;
    Q_DISABLE_COPY_MOVE(TraceListener)

    /// Takes one line, exactly as the program words it; it may hold line ends and NUL.
    virtual void Line(const QString &line) = 0;
};

/// Registers `listener` for the trace in place of the current one; null: nobody. It must outlive
/// its registration.
/// @return the previous listener, so that the caller can restore it.
TraceListener *SetTraceListener(TraceListener *listener);

namespace trace_detail {

extern TraceListener *listener; // null: nobody listens

inline void Append(QString &line, QStringView text)
{
    line.append(text);
}
inline void Append(QString &line, std::integral auto number)
{
    line.append(QString::number(number));
}
void Append(QString &line, double number); ///< Number to text, see number.h.

} // namespace trace_detail

/// Writes one trace line, the concatenation of `parts`: texts as they are, whole numbers in plain
/// decimal form, doubles as NumberToText() gives them.
///
/// If nobody listens, a call costs one branch, so a part may be a whole service reply.
template <typename... Parts>
void Trace(const Parts &...parts)
{
    if (trace_detail::listener == nullptr)
        return;
    QString line;
    (trace_detail::Append(line, parts), ...);
    trace_detail::listener->Line(line);
}
