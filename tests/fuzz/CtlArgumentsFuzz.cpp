// Any text typed as pellctl's --at or --observer is refused or gives a moment or a place in
// range that reads back the same when written out again.
#include "Predict.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <numbers>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QString text =
        QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    if (const auto utc = pellctl::ParseUtc(text)) {
        if (!utc->isValid() || utc->timeSpec() != Qt::UTC ||
            pellctl::ParseUtc(utc->toString(Qt::ISODateWithMs)) != utc)
            std::abort();
    }
    if (const auto place = pellctl::ParseObserver(text)) {
        constexpr double kDegrees = 180.0 / std::numbers::pi;
        const double lat = place->lat * kDegrees, lon = place->lon * kDegrees;
        if (!(std::abs(lat) <= 90.0 + 1e-9 && std::abs(lon) <= 180.0 + 1e-9 &&
              std::abs(place->height) <= 100'000.0))
            std::abort();
        const auto again = pellctl::ParseObserver(QStringLiteral("%1,%2,%3")
                                                      .arg(lat, 0, 'f', 9)
                                                      .arg(lon, 0, 'f', 9)
                                                      .arg(place->height, 0, 'f', 9));
        if (!again || std::abs(again->lat - place->lat) > 1e-9 ||
            std::abs(again->lon - place->lon) > 1e-9 ||
            std::abs(again->height - place->height) > 1e-6)
            std::abort();
    }
    return 0;
}
