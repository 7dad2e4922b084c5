#pragma once

#include "Sky.h"

#include <QByteArray>
#include <QDateTime>
#include <QStringList>

namespace rxsim {

// The message sets a port can stream, in the order an epoch's sentences come.
inline const QStringList kNmeaSets = {QStringLiteral("nmea/GGA"), QStringLiteral("nmea/RMC"),
                                      QStringLiteral("nmea/GSA"), QStringLiteral("nmea/GSV"),
                                      QStringLiteral("nmea/PELSAT")};

// One epoch of the enabled `sets` (any order) for the sky at `utc` (whole seconds), seen from
// `observer`: sentences with checksums and CR LF.
QByteArray NmeaEpoch(const std::vector<SkySatellite>& sky, const QDateTime& utc,
                     const vex::POS_GEO& observer, const QStringList& sets);

// "$" + body + "*hh\r\n".
QByteArray NmeaSentence(const QByteArray& body);

} // namespace rxsim
