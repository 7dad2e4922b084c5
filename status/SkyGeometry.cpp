#include "status/SkyGeometry.h"

#include <cmath>
#include <numbers>

namespace pell::sky {

QPointF Project(QPointF centre, double radius, double azimuthDeg, double elevationDeg) {
    const double r = (90.0 - elevationDeg) / 90.0 * radius;
    const double az = azimuthDeg * std::numbers::pi / 180.0;
    return {centre.x() + r * std::sin(az), centre.y() - r * std::cos(az)};
}

QPointF ProjectRad(QPointF centre, double radius, const rxio::AzEl& direction) {
    constexpr double halfPi = std::numbers::pi / 2.0;
    const double r = (halfPi - direction.elevation) / halfPi * radius;
    return {centre.x() + r * std::sin(direction.azimuth),
            centre.y() - r * std::cos(direction.azimuth)};
}

std::vector<Ring> Rings(unsigned radius, int scale) {
    const int n = static_cast<int>(radius / 9) <= 20 * scale ? 3 : 9;
    std::vector<Ring> rings;
    for (int i = 1; i < n; ++i)
        rings.push_back({static_cast<int>(radius) * (n - i) / n, 90 * i / n});
    return rings;
}

int MaskRadius(unsigned radius, double maskDeg) {
    if (maskDeg < 0.0)
        return -1;
    return static_cast<int>(radius * (90.0 - maskDeg) / 90.0);
}

TrackLine Track(const TrackRequest& request, bool future) {
    TrackLine track{{request.start}, 0};
    std::vector<QPointF>& points = track.points;
    if (!request.almanacs)
        return track;
    std::int64_t step = kTrackFirstStepMs;
    std::int64_t offset = 0; // ms from the reference moment
    double previousElevation = request.startElevationRad;
    for (;;) {
        offset += future ? step : -step;
        if (offset > kTrackSpanMs || offset < -kTrackSpanMs)
            break;
        const rxio::GpsTime moment(request.reference.Seconds() +
                                   static_cast<double>(offset) / 1000.0);
        const auto direction =
            request.almanacs->CalculateAZ_EL(request.usi, moment, request.observer);
        if (!direction || direction->elevation <= 0.0 || direction->elevation == previousElevation)
            break;
        previousElevation = direction->elevation;
        const QPointF point = ProjectRad(request.centre, request.radius, *direction);
        const QPointF delta = point - points.back();
        const double d2 = delta.x() * delta.x() + delta.y() * delta.y();
        points.push_back(point);
        track.endOffsetMs = offset;
        if (d2 < 100.0)
            step = step * 3 / 2;
        else if (d2 > 400.0)
            step = step * 2 / 3;
    }
    return track;
}

} // namespace pell::sky
