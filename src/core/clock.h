#pragma once

#include <QDateTime>

#include <chrono>

/// The clocks of this machine, handed in so that a test can move them.
class Clock
{
public:
    Clock() = default;
    virtual ~Clock() = default;
    Q_DISABLE_COPY_MOVE(Clock)

    /// Local date and time; its offset from UTC is the one in effect at that moment.
    [[nodiscard]] virtual QDateTime Now() const = 0;

    /// Time since the machine was started, asleep or awake. Nobody can set it.
    [[nodiscard]] virtual std::chrono::nanoseconds SinceBoot() const = 0;
};

/// The machine's clocks.
class SystemClock final : public Clock
{
public:
    [[nodiscard]] QDateTime Now() const override { return QDateTime::currentDateTime(); }
    [[nodiscard]] std::chrono::nanoseconds SinceBoot() const override;
};
