#pragma once

#include "lib/pell_export.h"
#include "rxio/Almanac.h"

#include <QPointF>
#include <cstdint>
#include <vector>

// The sky plot's geometry, free of widgets: a polar projection with the zenith at the centre,
// north up and azimuth clockwise, in pixels.
namespace pell::sky {

// Where a direction lands: azimuth in degrees clockwise from north, elevation in degrees above
// the horizon (90 at the centre, 0 on the rim of radius `radius`).
PELL_EXPORT QPointF Project(QPointF centre, double radius, double azimuthDeg, double elevationDeg);
// The same for an almanac's direction, both in radians.
PELL_EXPORT QPointF ProjectRad(QPointF centre, double radius, const rxio::AzEl& direction);

// Elevation rings inside the horizon: 2 (30° and 60°) on a small plot, 8 (every 10°) once a
// tenth of the ninth of the radius leaves room for a label between them. `scale` is the
// display's scale factor, rounded.
struct Ring {
    int radius;       // pixels
    int elevationDeg; // its label
};
PELL_EXPORT std::vector<Ring> Rings(unsigned radius, int scale);

// Radius of the elevation-mask ring; -1 for a mask below 0 (none).
PELL_EXPORT int MaskRadius(unsigned radius, double maskDeg);

// One satellite's track from the almanac, from `start` (its present place) at `reference` into
// the past or the future: points on the plot, `start` first. The time step starts at five
// minutes and adapts so that a segment stays between 10 and 20 pixels. It ends at the horizon,
// 24 hours from `reference`, where the almanac has nothing, or where the elevation stands still.
struct TrackRequest {
    const rxio::CAlmanacStorage* almanacs = nullptr;
    int usi = 0;
    rxio::GpsTime reference;
    vex::POS_GEO observer;
    QPointF centre;
    double radius = 0.0;
    QPointF start;
    double startElevationRad = 0.0;
};
struct TrackLine {
    std::vector<QPointF> points;
    std::int64_t endOffsetMs = 0; // the last point's moment, ms from the reference
};
PELL_EXPORT TrackLine Track(const TrackRequest& request, bool future);

inline constexpr std::int64_t kTrackFirstStepMs = 300000;
inline constexpr std::int64_t kTrackSpanMs = 86400000;

} // namespace pell::sky
