#include "receiver/Satellites.h"

namespace pell {

namespace {

using C = SatelliteInfo::EConstellation;

// The identifier ranges of docs/live-data.md, and what to subtract for the number.
struct Range {
    int first, last;
    C constellation;
    int offset;
};
constexpr Range kRanges[] = {
    {1, 37, C::GPS, 0},         {38, 59, C::GLONASS, 0},   {71, 106, C::Galileo, 70},
    {120, 158, C::SBAS, 0},     {176, 182, C::IRNSS, 175}, {193, 202, C::QZSS, 192},
    {203, 239, C::BeiDou, 202},
};

const Range* RangeOf(int usi) {
    for (const Range& range : kRanges)
        if (usi >= range.first && usi <= range.last)
            return &range;
    return nullptr;
}

} // namespace

SatelliteInfo::EConstellation ConstellationOf(const SatelliteInfo& satellite) {
    const Range* range = RangeOf(satellite.USI);
    return range ? range->constellation : C::Unused;
}

QString ConstellationName(SatelliteInfo::EConstellation constellation) {
    switch (constellation) {
    case C::GPS:
        return QStringLiteral("GPS");
    case C::GLONASS:
        return QStringLiteral("GLONASS");
    case C::Galileo:
        return QStringLiteral("Galileo");
    case C::BeiDou:
        return QStringLiteral("BeiDou");
    case C::SBAS:
        return QStringLiteral("SBAS");
    case C::QZSS:
        return QStringLiteral("QZSS");
    case C::IRNSS:
        return QStringLiteral("NavIC");
    default:
        return QStringLiteral("unknown");
    }
}

int SatelliteNumber(const SatelliteInfo& satellite) {
    const Range* range = RangeOf(satellite.USI);
    if (!range)
        return 0;
    if (range->constellation == C::GLONASS)
        return satellite.NN >= 1 && satellite.NN <= 32 ? satellite.NN : 0;
    return satellite.USI - range->offset;
}

QString SatelliteName(const SatelliteInfo& satellite) {
    static const char kLetters[] = "?GRECS?JI"; // by EConstellation, up to IRNSS
    const C constellation = ConstellationOf(satellite);
    const QChar letter = QLatin1Char(kLetters[constellation]);
    if (constellation == C::Unused)
        return letter + QString::number(satellite.USI);
    const int number = SatelliteNumber(satellite);
    if (number == 0)
        return letter + QStringLiteral("??");
    return letter + QStringLiteral("%1").arg(number, 2, 10, QLatin1Char('0'));
}

} // namespace pell
