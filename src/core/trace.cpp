#include "core/trace.h"

#include "core/number.h"

#include <utility>

namespace trace_detail {

TraceListener *listener = nullptr;

void Append(QString &line, double number)
{
    line.append(NumberToText(number));
}

} // namespace trace_detail

TraceListener *SetTraceListener(TraceListener *listener)
{
    return std::exchange(trace_detail::listener, listener);
}
