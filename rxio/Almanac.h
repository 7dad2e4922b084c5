#pragma once

#include "rxio/Positions.h"
#include "rxio/rxio_export.h"

#include <QDateTime>
#include <QString>
#include <QStringView>
#include <map>
#include <optional>
#include <stdexcept>
#include <string_view>
#include <vector>

namespace rxio {

// A moment in GPS time: seconds since 1980-01-06 00:00:00 GPS, without leap seconds.
class RXIO_EXPORT GpsTime {
public:
    static constexpr double kSecondsPerWeek = 604800.0;

    constexpr GpsTime() = default;
    constexpr explicit GpsTime(double seconds) : m_seconds(seconds) {}
    static constexpr GpsTime FromWeek(int week, double secondsOfWeek) {
        return GpsTime(week * kSecondsPerWeek + secondsOfWeek);
    }
    // UTC to GPS time with the leap seconds announced so far (18 s since 2017-01-01); a moment
    // before 1980-01-06 gives negative seconds.
    static GpsTime FromUtc(const QDateTime& utc);
    // GPS minus UTC in seconds at a UTC moment.
    static int LeapSeconds(const QDateTime& utc);

    constexpr double Seconds() const { return m_seconds; }
    int Week() const;
    // Seconds of the GPS week, 0 to 604800.
    double SecondsOfWeek() const;

private:
    double m_seconds = 0.0;
};

// The full GPS week nearest to `referenceWeek` whose low ten bits are `week10`: within 512 weeks
// of the reference (about ten years either way).
RXIO_EXPORT int ResolveWeek(int week10, int referenceWeek);

// Universal satellite identifiers of the Keplerian constellations.
namespace usi {
constexpr int Gps(int prn) {
    return prn;
}
constexpr int Galileo(int svid) {
    return 70 + svid;
}
constexpr int Irnss(int prn) {
    return 175 + prn;
}
constexpr int Qzss(int prn) {
    return 192 + prn;
}
constexpr int BeiDou(int prn) {
    return 202 + prn;
}
} // namespace usi

// One satellite's Keplerian almanac. Every constellation's almanac is held on the GPS time scale:
// whoever fills one from Galileo or BeiDou time converts the week and time of applicability.
struct Almanac {
    int usi = 0;
    int week = 0;                      // full GPS week of the reference epoch (not 10-bit)
    double toa = 0.0;                  // time of applicability, seconds of that GPS week
    double eccentricity = 0.0;         // dimensionless
    double inclination = 0.0;          // radians
    double rateOfRightAscension = 0.0; // radians per second
    double sqrtA = 0.0;                // square root of the semi-major axis, m^(1/2)
    double rightAscension = 0.0;    // longitude of the ascending node at the week's start, radians
    double argumentOfPerigee = 0.0; // radians
    double meanAnomaly = 0.0;       // at toa, radians
    double af0 = 0.0;               // clock offset, seconds
    double af1 = 0.0;               // clock drift, seconds per second
    unsigned health = 0;            // 8 bits as broadcast; 0 is healthy

    GpsTime Epoch() const { return GpsTime::FromWeek(week, toa); }
};

// Azimuth in radians clockwise from north, 0 to 2π; elevation in radians above the horizon,
// -π/2 to π/2 (the sky plot turns them into degrees).
struct AzEl {
    double azimuth = 0.0;
    double elevation = 0.0;
};

// A file or almanac the store refuses; the message names the line and the reason.
class RXIO_EXPORT CAlmanacError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Files larger than this are refused unread: a full YUMA file of 64 satellites is about 40 KiB.
inline constexpr qint64 kMaxAlmanacFileSize = 1 << 20;

// YUMA and SEM text, GPS and QZSS satellites (USI = PRN). A 10-bit week is resolved against
// `referenceWeek` (a full GPS week, usually the current one); a week from 1024 up is taken as it
// is. Throw CAlmanacError on any fault.
RXIO_EXPORT std::vector<Almanac> ParseYuma(std::string_view text, int referenceWeek);
RXIO_EXPORT std::vector<Almanac> ParseSem(std::string_view text, int referenceWeek);

// The receiver's almanacs as `print,alm` answers them (docs/commands.md): a record of
// USI={week,toa,e,i,rate,sqrtA,right ascension,perigee,mean anomaly,af0,af1,health}, full weeks,
// GPS time. Throws CAlmanacError on any fault, naming the member.
RXIO_EXPORT std::vector<Almanac> ParseAlmanacRecord(QStringView reply);

// Throws CAlmanacError when a value is out of the range any Keplerian navigation orbit has.
RXIO_EXPORT void Validate(const Almanac& almanac);

// The satellite's Earth-centred, Earth-fixed position (WGS-84, metres) at `t`.
RXIO_EXPORT vex::POS_XYZ SatellitePosition(const Almanac& almanac, GpsTime t);
// Direction of the satellite at `t` from a WGS-84 observer.
RXIO_EXPORT AzEl AzimuthElevation(const Almanac& almanac, GpsTime t, const vex::POS_GEO& observer);

// The almanacs a receiver or a file gave, one per satellite. Not thread-safe: it belongs to the
// thread of the window that draws from it.
class RXIO_EXPORT CAlmanacStorage {
public:
    // Replaces the satellite's almanac; throws CAlmanacError and keeps the old one when invalid.
    void Set(const Almanac& almanac);
    // Replaces the almanacs of these satellites, all or none.
    void Set(const std::vector<Almanac>& almanacs);
    // Reads a YUMA or SEM file (told apart by its first line) and replaces the almanacs of the
    // satellites in it. On any fault throws CAlmanacError and leaves the store as it was.
    void LoadFile(const QString& path, int referenceWeek);
    void Clear();

    const Almanac* Find(int usi) const;
    std::vector<int> Satellites() const;

    // Azimuth and elevation of satellite `usi` at `t` seen from `observer`; nothing when the
    // store holds no almanac for it (GLONASS, SBAS and unknown satellites).
    std::optional<AzEl> CalculateAZ_EL(int usi, GpsTime t, const vex::POS_GEO& observer) const;

private:
    std::map<int, Almanac> m_almanacs;
};

} // namespace rxio
