#include "lib/PellLib.h"
#include "resources/StringIds.h"

#include <cmath>
#include <numbers>

namespace {

struct Dms {
    bool negative;
    int degrees;
    int minutes;
    double seconds;
};

// No carry: seconds that print as 60 stay 60 and the minute is not raised.
Dms SplitAngle(double angle) {
    const double x = std::fabs(angle);
    const int d = static_cast<int>(x);
    const int m = static_cast<int>((x - d) * 60.0);
    const double s = ((x - d) - m * 0.016666666666666666) * 3600.0;
    return {angle < 0, d, m, s};
}

QString Fixed(double value, int decimals) {
    return QString::number(value, 'f', decimals);
}

double Degrees(double radians) {
    return radians * 180.0 / std::numbers::pi;
}

// 05°07'3.2500''N: degrees and minutes zero-padded, seconds not, two apostrophes as the mark.
QString AngleText(const CPellLibApp& app, double degrees, bool latitude, int decimals) {
    using namespace pell::ids;
    const Dms dms = SplitAngle(degrees);
    const unsigned letter =
        latitude ? (dms.negative ? South : North) : (dms.negative ? West : East);
    return QString::asprintf("%02d°%02d'", dms.degrees, dms.minutes) +
           Fixed(dms.seconds, decimals) + QStringLiteral("''") + app.XLoadString(letter);
}

} // namespace

QString CPellLibApp::Coordinates2String(double degrees, bool latitude) const {
    return AngleText(*this, degrees, latitude, 4);
}

QString CPellLibApp::Coordinates2String(const vex::POS_GEO& position) const {
    const QString separator = QStringLiteral("; ");
    return AngleText(*this, Degrees(position.lat), true, 6) + separator +
           AngleText(*this, Degrees(position.lon), false, 6) + separator +
           Fixed(position.height, 4) + XLoadString(pell::ids::MetreUnit);
}

QString CPellLibApp::Coordinates2String(const vex::POS_XYZ& position) const {
    const QString separator = QStringLiteral("; ");
    return Fixed(position.x, 4) + separator + Fixed(position.y, 4) + separator +
           Fixed(position.z, 4);
}
