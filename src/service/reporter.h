#pragma once

#include "station/station_view.h"

#include <QString>

#include <array>
#include <functional>

/// Passes a line to whoever looks after the program.
using Say = std::function<void(const QString &line)>;

/// Tells whoever looks after the service what they need to know, and only once: a log that is kept
/// for years gets one line per event, not one per try.
class Reporter
{
public:
    explicit Reporter(Say say) : m_say(std::move(say)) {}

    /// @param what the product lacks, in words; empty: nothing.
    void Missing(Product product, const QString &what);

    /// Lets Missing() say again what is still missing, because somebody asked.
    void Repeat();

    void Ended(const ProductEnd &end);

private:
    struct State
    {
        QString missing = {};
        bool isSaid = false; ///< Whether it was said that it fails.
    };

    Say m_say;
    std::array<State, 2> m_states; ///< [Product].
};
