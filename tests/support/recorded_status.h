#pragma once

#include "core/status_line.h"

#include <QStringList>

/// Keeps every status text in order.
class RecordedStatus final : public StatusLine
{
public:
    void SetStatus(const QString &text) override { texts.append(text); }

    QStringList texts;
};
