#pragma once

#include "rxio/Almanac.h"

#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <numbers>
#include <string_view>

// What every almanac a parser accepts must give: a count within what the input can hold, values
// in range, and a finite direction from anywhere a day either side of its epoch.
template <typename Parse> void CheckAccepted(Parse parse, std::size_t least, std::size_t most) {
    std::vector<rxio::Almanac> almanacs;
    try {
        almanacs = parse();
    } catch (const rxio::CAlmanacError&) {
        return;
    }
    if (almanacs.size() < least || almanacs.size() > most)
        std::abort();
    for (const rxio::Almanac& a : almanacs) {
        rxio::Validate(a);
        for (const double day : {-1.0, 0.0, 1.0}) {
            const rxio::GpsTime t(a.Epoch().Seconds() + day * 86400.0);
            const rxio::AzEl azel = rxio::AzimuthElevation(a, t, {0.8, -2.0, 300.0});
            if (!(azel.azimuth >= 0.0 && azel.azimuth < 2.0 * std::numbers::pi) ||
                !(std::abs(azel.elevation) <= std::numbers::pi / 2.0))
                std::abort();
        }
    }
}
