#pragma once

#include "core/clock.h"

#include <chrono>
#include <utility>

/// A clock that stands still until the test moves it. Set() is what a person does to a clock: no
/// time passes.
class FixedClock final : public Clock
{
public:
    explicit FixedClock(QDateTime start) : m_now(std::move(start)) {}

    [[nodiscard]] QDateTime Now() const override { return m_now; }
    void Set(const QDateTime &now) { m_now = now; }
    [[nodiscard]] std::chrono::nanoseconds SinceBoot() const override { return m_sinceBoot; }
    void AdvanceSeconds(qint64 seconds) { Advance(std::chrono::seconds(seconds)); }
    void Advance(std::chrono::milliseconds time)
    {
        m_now = m_now.addMSecs(time.count());
        m_sinceBoot += time;
    }

private:
    QDateTime m_now;
    std::chrono::nanoseconds m_sinceBoot{std::chrono::hours(1)};
};
