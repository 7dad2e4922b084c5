#pragma once

#include "lib/pell_export.h"
#include "rxio/Listeners.h"

#include <QString>

namespace pell {

using SatelliteInfo = rxio::ISatListListener::SatelliteInfo;

// Which constellation a satellite record belongs to, from its universal identifier.
PELL_EXPORT SatelliteInfo::EConstellation ConstellationOf(const SatelliteInfo& satellite);
// The constellation's name in English ("GPS", "GLONASS", ...); these names are also written to
// files, so they are never translated.
PELL_EXPORT QString ConstellationName(SatelliteInfo::EConstellation constellation);
// The satellite's number within its constellation (GPS PRN, GLONASS slot, Galileo number, SBAS
// PRN, ...); 0 when not known (a GLONASS satellite without a slot).
PELL_EXPORT int SatelliteNumber(const SatelliteInfo& satellite);
// The satellite as a surveyor reads it: system letter and number, G05, R12, E30, C23, J03, I02,
// S123; R?? for a GLONASS satellite whose slot is not known, ?NNN for an unknown identifier.
PELL_EXPORT QString SatelliteName(const SatelliteInfo& satellite);

} // namespace pell
