#pragma once

#include "rxio/Positions.h"
#include "rxio/SolutionType.h"
#include "rxio/rxio_export.h"

#include <QDateTime>
#include <cstdint>
#include <map>
#include <vector>

namespace rxio {

// Told the receiver's sky once per epoch; see docs/live-data.md.
class RXIO_EXPORT ISatListListener {
public:
    struct SatelliteInfo {
        enum EConstellation : int {
            Unused = 0,
            GPS = 1,
            GLONASS = 2,
            Galileo = 3,
            BeiDou = 4,
            SBAS = 5,
            SAIF = 6,
            QZSS = 7,
            IRNSS = 8,
            Reserved = 9,
        };

        std::uint8_t USI = 255;            // universal satellite identifier; 0 empty, 255 none
        std::uint32_t ElevationMark = 0;   // 0: no marker
        std::int8_t Elevation = 127;       // whole degrees; 127 unknown
        std::uint16_t Azimuth = 0xFFFF;    // whole degrees clockwise from north; 0xFFFF unknown
        std::map<int, std::uint8_t> SNR{}; // signal slot -> dB-Hz; a missing slot is no value
        std::uint16_t TC = 0;              // seconds tracked
        std::uint8_t SS = 255;             // navigation status code; 255 unknown
        std::uint8_t NN = 255;             // GLONASS slot number; 255 unknown
        std::uint8_t Scintillation = 0;    // non-zero under ionospheric scintillation
    };

    virtual ~ISatListListener();
    // Every satellite reported for one epoch.
    virtual void OnSatellites(const std::vector<SatelliteInfo>& sky) = 0;
};

// Told the receiver's position once per epoch; see docs/live-data.md.
class RXIO_EXPORT IPositionListener {
public:
    struct Position {
        vex::POS_GEO geo;                             // radians, metres above the ellipsoid
        ESolutionType solution = ESolutionType::None; // None: no fix, `geo` means nothing
        QDateTime utc;                                // invalid until a date was reported
        int satellitesUsed = -1;                      // -1 unknown
    };

    virtual ~IPositionListener();
    virtual void OnPosition(const Position& position) = 0;
};

} // namespace rxio
