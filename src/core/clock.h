#pragma once

#include <QDateTime>

/// The local wall clock, handed in so that a test can move it.
class Clock
{
public:
    Clock() = default;
    virtual ~Clock() = default;
    Q_DISABLE_COPY_MOVE(Clock)

    /// Local date and time; its offset from UTC is the one in effect at that moment.
    [[nodiscard]] virtual QDateTime Now() const = 0;
};

/// The machine's clock.
class SystemClock final : public Clock
{
public:
    [[nodiscard]] QDateTime Now() const override { return QDateTime::currentDateTime(); }
};
