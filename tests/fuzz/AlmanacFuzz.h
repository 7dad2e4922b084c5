#pragma once

#include "rxio/Almanac.h"

#include <cmath>
#include <cstdlib>
#include <numbers>
#include <string_view>

// What every almanac a parser accepts must give: values in range, and a finite direction from
// anywhere a day either side of its epoch.
inline void CheckAccepted(std::vector<rxio::Almanac> (*parse)(std::string_view, int),
                          std::string_view text) {
    std::vector<rxio::Almanac> almanacs;
    try {
        almanacs = parse(text, 2086);
    } catch (const rxio::CAlmanacError&) {
        return;
    }
    if (almanacs.empty() || almanacs.size() > 42)
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
