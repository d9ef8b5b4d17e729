#pragma once

#include "core/trace.h"

#include <QStringList>

/// Collects the trace lines while it lives.
class RecordedTrace final : public TraceListener
{
public:
    RecordedTrace() : m_before(SetTraceListener(this)) {}
    ~RecordedTrace() override { SetTraceListener(m_before); }
    Q_DISABLE_COPY_MOVE(RecordedTrace)

    void Line(const QString &line) override { lines.append(line); }

    QStringList lines;

private:
    TraceListener *m_before;
};
