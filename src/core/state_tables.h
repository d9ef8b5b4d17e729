#pragma once

#include <QStringView>

#include <array>

// The tables are named like the program's shared state.
// NOLINTBEGIN(readability-identifier-naming)

/// The states of the USA in alphabetical order; no district, no territory.
inline constexpr std::array<QStringView, 50> StateNames{
    u"ALABAMA",       u"ALASKA",      u"ARIZONA",        u"ARKANSAS",      u"CALIFORNIA",
    u"COLORADO",      u"CONNECTICUT", u"DELAWARE",       u"FLORIDA",       u"GEORGIA",
    u"HAWAII",        u"IDAHO",       u"ILLINOIS",       u"INDIANA",       u"IOWA",
    u"KANSAS",        u"KENTUCKY",    u"LOUISIANA",      u"MAINE",         u"MARYLAND",
    u"MASSACHUSETTS", u"MICHIGAN",    u"MINNESOTA",      u"MISSISSIPPI",   u"MISSOURI",
    u"MONTANA",       u"NEBRASKA",    u"NEVADA",         u"NEW HAMPSHIRE", u"NEW JERSEY",
    u"NEW MEXICO",    u"NEW YORK",    u"NORTH CAROLINA", u"NORTH DAKOTA",  u"OHIO",
    u"OKLAHOMA",      u"OREGON",      u"PENNSYLVANIA",   u"RHODE ISLAND",  u"SOUTH CAROLINA",
    u"SOUTH DAKOTA",  u"TENNESSEE",   u"TEXAS",          u"UTAH",          u"VERMONT",
    u"VIRGINIA",      u"WASHINGTON",  u"WEST VIRGINIA",  u"WISCONSIN",     u"WYOMING",
};

/// Their two-letter postal codes, in the order of StateNames.
inline constexpr std::array<QStringView, 50> StateCodes{
    u"AL", u"AK", u"AZ", u"AR", u"CA", u"CO", u"CT", u"DE", u"FL", u"GA", u"HI", u"ID", u"IL",
    u"IN", u"IA", u"KS", u"KY", u"LA", u"ME", u"MD", u"MA", u"MI", u"MN", u"MS", u"MO", u"MT",
    u"NE", u"NV", u"NH", u"NJ", u"NM", u"NY", u"NC", u"ND", u"OH", u"OK", u"OR", u"PA", u"RI",
    u"SC", u"SD", u"TN", u"TX", u"UT", u"VT", u"VA", u"WA", u"WV", u"WI", u"WY",
};

// NOLINTEND(readability-identifier-naming)

// A list that is too short would compile and end in empty names.
static_assert(!StateNames.back().isEmpty());
static_assert(!StateCodes.back().isEmpty());
