#pragma once

#include "core/clock.h"

#include <utility>

/// A clock that stands still until the test moves it.
class FixedClock final : public Clock
{
public:
    explicit FixedClock(QDateTime start) : m_now(std::move(start)) {}

    [[nodiscard]] QDateTime Now() const override { return m_now; }
    void Set(const QDateTime &now) { m_now = now; }
    void AdvanceSeconds(qint64 seconds) { m_now = m_now.addSecs(seconds); }

private:
    QDateTime m_now;
};
