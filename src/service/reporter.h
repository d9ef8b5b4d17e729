#pragma once

#include "station/station_view.h"

#include <QString>

#include <array>
#include <functional>

/// Takes a line for whoever looks after the program.
using Say = std::function<void(const QString &line)>;

/// Says what somebody has to know who looks after the service, and that once: a log that is kept
/// for years has one line for what has happened, not one for each try.
class Reporter
{
public:
    explicit Reporter(Say say) : m_say(std::move(say)) {}

    /// @param what is missing of the product, in words; empty: nothing.
    void Missing(Product product, const QString &what);

    /// What is still missing is said again: somebody has asked for it.
    void Repeat();

    void Ended(const ProductEnd &end);

private:
    struct State
    {
        QString missing = {};
        bool isSaid = false; ///< That it does not work.
    };

    Say m_say;
    std::array<State, 2> m_states; ///< [Product].
};
