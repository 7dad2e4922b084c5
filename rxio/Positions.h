#pragma once

namespace vex {

// Geodetic position: latitude and longitude in radians, height in metres above the ellipsoid.
struct POS_GEO {
    double lat = 0.0;
    double lon = 0.0;
    double height = 0.0;
};

// Earth-centred Cartesian position in metres.
struct POS_XYZ {
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
};

// Local offsets in metres: north, east, height.
struct POS_NEH {
    double north = 0.0;
    double east = 0.0;
    double height = 0.0;
};

} // namespace vex
