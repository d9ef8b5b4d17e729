#pragma once

#include "station/station.h"

#include <QString>

/// Whether a product is set up.
struct Setup
{
    QString isFor = {};   ///< Whose weather it is, in words; empty when something is missing.
    QString missing = {}; ///< What is missing, in words; empty when the product is set up.

    [[nodiscard]] bool IsComplete() const { return missing.isEmpty(); }
};

/// The name of a product in the service's messages.
[[nodiscard]] QString NameOf(Product product);

/// How a product of the station is set up. The station's files must have been loaded.
[[nodiscard]] Setup SetupOf(Product product, const Station &station);

/// Says how each product is set up, in one line each.
[[nodiscard]] QString SetupReport(const Station &station);

/// Whether any product is set up.
[[nodiscard]] bool IsAnythingSetUp(const Station &station);
