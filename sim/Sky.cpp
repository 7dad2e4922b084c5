#include "Sky.h"

#include <QStringList>
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>
#include <utility>

namespace rxsim {

namespace {

using rxio::Almanac;
using rxio::GpsTime;

// The almanac model's constants (the same as the library's orbit helper).
constexpr double kGm = 3.986005e14;
constexpr double kEarthRotation = 7.2921151467e-5;
constexpr double kEarthRadius = 6378137.0;
constexpr double kJ2 = 1.08262668e-3;
constexpr double kPi = std::numbers::pi;
constexpr double kDeg = kPi / 180.0;

// Where the nominal geometry is given: orbits are carried from here to any almanac's epoch.
constexpr GpsTime kAnchor = GpsTime::FromWeek(2300, 0.0);

double Wrap(double radians) {
    return std::remainder(radians, 2.0 * kPi);
}

// A deterministic value in -1..1 for a satellite and what it is asked about.
double Jitter(std::uint32_t a, std::uint32_t b) {
    std::uint32_t h = a * 0x9E3779B1u ^ (b + 0x7F4A7C15u) * 0x85EBCA77u;
    h ^= h >> 15;
    h *= 0x2C1B3C6Du;
    h ^= h >> 12;
    return (h % 20001u) / 10000.0 - 1.0;
}

// The square root of the semi-major axis of an orbit whose period is one sidereal day.
double GeosyncSqrtA() {
    return std::sqrt(std::cbrt(kGm / (kEarthRotation * kEarthRotation)));
}

// A medium orbit given by its plane and argument of latitude at the anchor; the node drifts as
// Earth's oblateness makes it.
Almanac Meo(GpsTime epoch, int usi, double sqrtA, double e, double iDeg, double raanDeg,
            double latitudeDeg) {
    Almanac a;
    a.usi = usi;
    a.week = epoch.Week();
    a.toa = epoch.SecondsOfWeek();
    a.sqrtA = sqrtA;
    a.eccentricity = e;
    a.inclination = iDeg * kDeg;
    const double semiMajor = sqrtA * sqrtA;
    const double motion = std::sqrt(kGm / (semiMajor * semiMajor * semiMajor));
    const double ratio = kEarthRadius / semiMajor;
    a.rateOfRightAscension =
        -1.5 * motion * kJ2 * ratio * ratio * std::cos(a.inclination) / ((1 - e * e) * (1 - e * e));
    a.argumentOfPerigee = Wrap(Jitter(usi, 1) * kPi);
    const double sinceAnchor = epoch.Seconds() - kAnchor.Seconds();
    a.meanAnomaly = Wrap(latitudeDeg * kDeg - a.argumentOfPerigee + motion * sinceAnchor);
    a.rightAscension = Wrap(raanDeg * kDeg + a.rateOfRightAscension * sinceAnchor -
                            kEarthRotation * (epoch.Seconds() - a.toa - kAnchor.Seconds()));
    return a;
}

// An orbit of one sidereal day whose ground track crosses the equator northwards at
// `nodeLonDeg` (a point when the inclination is 0); `phaseDeg` is its place on the track at the
// anchor.
Almanac Geosync(GpsTime epoch, int usi, double e, double iDeg, double nodeLonDeg, double perigeeDeg,
                double phaseDeg) {
    Almanac a;
    a.usi = usi;
    a.week = epoch.Week();
    a.toa = epoch.SecondsOfWeek();
    a.sqrtA = GeosyncSqrtA();
    a.eccentricity = e;
    a.inclination = iDeg * kDeg;
    a.argumentOfPerigee = Wrap(perigeeDeg * kDeg);
    a.meanAnomaly = Wrap(phaseDeg * kDeg + kEarthRotation * (epoch.Seconds() - kAnchor.Seconds()));
    a.rightAscension =
        Wrap(nodeLonDeg * kDeg + kEarthRotation * a.toa - a.argumentOfPerigee - a.meanAnomaly);
    return a;
}

// A Walker constellation's satellite `index`: `planes` planes, `perPlane` slots in each.
Almanac Walker(GpsTime epoch, int usi, int index, int planes, int perPlane, double sqrtA, double e,
               double iDeg, double raan0Deg) {
    const int plane = index % planes;
    const int slot = index / planes;
    const double spacing = 360.0 / perPlane;
    const double phasing = 360.0 / (planes * perPlane);
    return Meo(epoch, usi, sqrtA, e * (1.0 + 0.5 * Jitter(usi, 2)), iDeg + 0.5 * Jitter(usi, 3),
               raan0Deg + plane * 360.0 / planes, slot * spacing + plane * phasing);
}

// The published GLONASS frequency plan: slot 1..24 to channel.
constexpr int kGlonassChannel[24] = {1,  -4, 5, 6,  1, -4, 5, 6, -2, -7, 0, -1,
                                     -2, -7, 0, -1, 4, -3, 3, 2, 4,  -3, 3, 2};

// A satellite on an orbit of one sidereal day: where its track crosses the equator northwards
// and its phase on the track; a negative phase is a geostationary satellite.
struct Track {
    int prn;
    double lonDeg;
    double phaseDeg;
};

constexpr Track kBeiDouInclined[] = {{6, 118.0, 0.0}, {9, 118.0, 120.0}, {16, 118.0, 240.0}};
constexpr Track kBeiDouGeo[] = {
    {1, 140.0, -1}, {2, 80.0, -1}, {3, 110.5, -1}, {4, 160.0, -1}, {5, 58.75, -1}};
constexpr Track kQzss[] = {
    {194, 135.0, 0.0}, {195, 135.0, 120.0}, {196, 135.0, 240.0}, {199, 127.0, -1}};
constexpr Track kNavic[] = {{1, 55.0, 0.0}, {2, 55.0, 180.0}, {4, 111.75, 0.0}, {5, 111.75, 180.0},
                            {3, 83.0, -1},  {6, 32.5, -1},    {7, 129.5, -1}};
// SBAS at their stations.
constexpr Track kSbas[] = {{123, 31.5, -1},   {127, 55.0, -1}, {128, 83.0, -1},  {131, -117.0, -1},
                           {133, -129.0, -1}, {136, 5.0, -1},  {137, 127.0, -1}, {143, 110.5, -1}};

struct Signal {
    char nmeaId;
    int slot;
    int offsetDb;
};

std::vector<Signal> SignalsOf(ESystem system, int number) {
    switch (system) {
    case ESystem::GPS:
        // L5 on the newer blocks only.
        if (number % 3 == 0)
            return {{'1', 0, 0}, {'6', 3, -3}};
        return {{'1', 0, 0}, {'6', 3, -3}, {'8', 4, 2}};
    case ESystem::GLONASS:
        return {{'1', 0, -1}, {'3', 3, -4}};
    case ESystem::Galileo:
        return {{'7', 0, 0}, {'1', 4, 2}, {'2', 5, 1}};
    case ESystem::BeiDou:
        // B2a on the third generation (PRN 19 on).
        if (number < 19)
            return {{'1', 0, 0}, {'8', 4, 1}};
        return {{'1', 0, 0}, {'5', 5, 2}, {'8', 4, 1}};
    case ESystem::QZSS:
        return {{'1', 0, 0}, {'6', 3, -3}, {'8', 4, 2}};
    case ESystem::NavIC:
        return {{'1', 0, -2}};
    case ESystem::SBAS:
        return {{'1', 0, -3}};
    }
    return {};
}

constexpr double kUsedAbove = 15.0; // degrees; lower satellites are tracked but not used

} // namespace

CSky::CSky(GpsTime reference)
    : m_observer(DefaultObserver()), m_sessionStart(reference), m_last(reference) {
    // Applicable at a multiple of 4096 s of the week, as broadcast almanacs are: at most an
    // hour and a bit before `reference`.
    const GpsTime epoch =
        GpsTime::FromWeek(reference.Week(), std::floor(reference.SecondsOfWeek() / 4096) * 4096);
    const auto add = [this](ESystem system, int number, const Almanac& a, bool keplerian) {
        m_orbits.push_back({system, a.usi, number, a});
        if (keplerian)
            m_almanacs.push_back(a);
    };

    // GPS: six planes at 55 degrees, 31 satellites.
    int index = 0;
    for (int prn = 1; prn <= 32; ++prn) {
        if (prn == 20)
            continue;
        Almanac a = Walker(epoch, rxio::usi::Gps(prn), index++, 6, 6, 5153.6 + 0.4 * Jitter(prn, 4),
                           0.008, 55.0, 17.0);
        a.af0 = 2e-4 * Jitter(prn, 5);
        a.af1 = 1e-11 * Jitter(prn, 6);
        a.health = prn == 27 ? 0x3F : 0; // one satellite set unhealthy
        add(ESystem::GPS, prn, a, true);
    }
    // Galileo: Walker 24/3/1 at 56 degrees.
    index = 0;
    for (int svid :
         {1, 2, 3, 4, 5, 7, 8, 9, 10, 11, 12, 13, 15, 19, 21, 24, 25, 26, 27, 30, 31, 33, 34, 36})
        add(ESystem::Galileo, svid,
            Walker(epoch, rxio::usi::Galileo(svid), index++, 3, 8, 5440.6, 0.0004, 56.0, 75.0),
            true);
    // BeiDou: medium orbits Walker 24/3/1 at 55 degrees, inclined and geostationary ones.
    index = 0;
    for (int prn :
         {19, 20, 21, 22, 23, 24, 25, 26, 27, 28, 29, 30, 32, 33, 34, 35, 36, 37, 11, 12, 14})
        add(ESystem::BeiDou, prn,
            Walker(epoch, rxio::usi::BeiDou(prn), index++, 3, 8, 5282.6, 0.001, 55.0, 140.0), true);
    for (const Track& k : kBeiDouInclined)
        add(ESystem::BeiDou, k.prn,
            Geosync(epoch, rxio::usi::BeiDou(k.prn), 0.004, 55.0, k.lonDeg, 0.0, k.phaseDeg), true);
    for (const Track& k : kBeiDouGeo)
        add(ESystem::BeiDou, k.prn,
            Geosync(epoch, rxio::usi::BeiDou(k.prn), 0.0004, 1.0, k.lonDeg, 0.0, 0.0), true);
    // QZSS: three on the quasi-zenith figure eight (eight hours apart), one geostationary.
    for (const Track& k : kQzss)
        add(ESystem::QZSS, k.prn,
            k.phaseDeg < 0 ? Geosync(epoch, k.prn, 0.0002, 0.1, k.lonDeg, 0.0, 0.0)
                           : Geosync(epoch, k.prn, 0.075, 41.0, k.lonDeg, 270.0, k.phaseDeg),
            true);
    // NavIC: inclined pairs crossing the equator at 55 and 111.75 degrees east, three
    // geostationary.
    for (const Track& k : kNavic)
        add(ESystem::NavIC, k.prn,
            k.phaseDeg < 0
                ? Geosync(epoch, rxio::usi::Irnss(k.prn), 0.0005, 1.5, k.lonDeg, 0.0, 0.0)
                : Geosync(epoch, rxio::usi::Irnss(k.prn), 0.002, 29.0, k.lonDeg, 0.0, k.phaseDeg),
            true);
    // GLONASS: three planes at 64.8 degrees, eight slots each; USI carries the channel.
    for (int slot = 1; slot <= 24; ++slot) {
        const int plane = (slot - 1) / 8;
        const double latitude = -45.0 * ((slot - 1) % 8) + 15.0 * plane;
        add(ESystem::GLONASS, slot,
            Meo(epoch, 45 + kGlonassChannel[slot - 1], 5050.7, 0.001, 64.8, 250.0 + 120.0 * plane,
                latitude),
            false);
    }
    for (const Track& k : kSbas)
        add(ESystem::SBAS, k.prn, Geosync(epoch, k.prn, 0.0, 0.0, k.lonDeg, 0.0, 0.0), false);
}

vex::POS_GEO CSky::DefaultObserver() {
    // Singapore: the Asian regional systems and SBAS of three continents are all in view.
    return {1.3521 * kDeg, 103.8198 * kDeg, 15.0};
}

void CSky::SetObserver(const vex::POS_GEO& observer) {
    m_observer = observer;
    m_since.clear();
    m_unknownSlot = -1;
}

void CSky::StartSession(GpsTime t) {
    m_sessionStart = t;
    m_last = t;
    m_since.clear();
    m_unknownSlot = -1;
}

bool CSky::Visible(const Orbit& orbit, GpsTime t, double maskDeg) const {
    return rxio::AzimuthElevation(orbit.almanac, t, m_observer).elevation >=
           std::max(maskDeg, 0.0) * kDeg;
}

std::vector<SkySatellite> CSky::At(GpsTime t, double maskDeg, const std::set<int>& hidden) {
    const GpsTime previous(std::min(m_last.Seconds(), t.Seconds()));
    std::vector<SkySatellite> sky;
    std::vector<std::size_t> orbitOf;
    for (std::size_t i = 0; i < m_orbits.size(); ++i) {
        const Orbit& o = m_orbits[i];
        const rxio::AzEl now = rxio::AzimuthElevation(o.almanac, t, m_observer);
        const double elevation = now.elevation / kDeg;
        if (hidden.contains(o.usi) || elevation < std::max(maskDeg, 0.0)) {
            m_since.erase(i);
            continue;
        }
        auto since = m_since.find(i);
        if (since == m_since.end()) {
            // Risen since the previous epoch (or up when the session started): find when.
            double below = previous.Seconds();
            double above = t.Seconds();
            if (Visible(o, previous, maskDeg))
                above = below;
            while (above - below > 0.5) {
                const double mid = (above + below) / 2;
                (Visible(o, GpsTime(mid), maskDeg) ? above : below) = mid;
            }
            since = m_since.emplace(i, GpsTime(above)).first;
        }
        const double later =
            rxio::AzimuthElevation(o.almanac, GpsTime(t.Seconds() + 30), m_observer).elevation /
            kDeg;
        const int mark = later > elevation + 0.005 ? 1 : later < elevation - 0.005 ? 5 : 0;
        const bool healthy = o.almanac.health == 0;
        sky.push_back({o.system,
                       o.usi,
                       o.number,
                       true,
                       elevation,
                       now.azimuth / kDeg,
                       mark,
                       healthy && elevation >= kUsedAbove && o.system != ESystem::SBAS ? 0 : 6,
                       static_cast<int>(std::min(65535.0, t.Seconds() - since->second.Seconds())),
                       false,
                       {}});
        orbitOf.push_back(i);
    }
    m_last = t;

    // One GLONASS satellite whose slot the receiver has not read yet: the latest to rise, kept
    // while it stays in view.
    const auto unknown = std::find(orbitOf.begin(), orbitOf.end(), m_unknownSlot);
    if (unknown == orbitOf.end()) {
        m_unknownSlot = -1;
        std::pair<int, double> latest;
        for (std::size_t k = 0; k < sky.size(); ++k) {
            const std::pair candidate(sky[k].tracked, sky[k].elevation);
            if (sky[k].system == ESystem::GLONASS && (m_unknownSlot < 0 || candidate < latest)) {
                latest = candidate;
                m_unknownSlot = static_cast<int>(orbitOf[k]);
            }
        }
    }
    SkySatellite* scintillating = nullptr;
    for (std::size_t k = 0; k < sky.size(); ++k) {
        SkySatellite& s = sky[k];
        if (static_cast<int>(orbitOf[k]) == m_unknownSlot) {
            s.slotKnown = false;
            s.status = 6;
        } else if (scintillating == nullptr || s.elevation < scintillating->elevation) {
            scintillating = &s;
        }
    }
    // The lowest satellite crosses a disturbed patch of the ionosphere.
    if (scintillating != nullptr)
        scintillating->scintillation = true;

    const auto second = static_cast<std::uint32_t>(std::llround(t.Seconds()));
    for (SkySatellite& s : sky)
        for (const Signal& signal : SignalsOf(s.system, s.number)) {
            const auto key = static_cast<std::uint32_t>(s.usi * 8 + signal.slot);
            double snr = 34.0 + 16.0 * std::sin(s.elevation * kDeg) + signal.offsetDb +
                         1.5 * Jitter(key, second);
            if (s.scintillation)
                snr -= 8.0 + 4.0 * Jitter(key, second + 1);
            s.signalList.push_back({signal.nmeaId, signal.slot,
                                    std::clamp(static_cast<int>(std::lround(snr)), 0, 99)});
        }
    return sky;
}

QString AlmanacRecord(const std::vector<rxio::Almanac>& almanacs) {
    std::vector<const rxio::Almanac*> sorted;
    for (const rxio::Almanac& a : almanacs)
        sorted.push_back(&a);
    std::sort(sorted.begin(), sorted.end(), [](auto* l, auto* r) { return l->usi < r->usi; });
    // QString::number ignores the locale; 15 digits carry every value as computed.
    const auto n = [](double v) {
        return QString::number(v, 'g', 15);
    };
    QStringList entries;
    for (const rxio::Almanac* a : sorted)
        entries << QStringLiteral("%1={%2,%3,%4,%5,%6,%7,%8,%9,%10,%11,%12,%13}")
                       .arg(a->usi)
                       .arg(a->week)
                       .arg(n(a->toa), n(a->eccentricity), n(a->inclination),
                            n(a->rateOfRightAscension), n(a->sqrtA), n(a->rightAscension),
                            n(a->argumentOfPerigee), n(a->meanAnomaly))
                       .arg(n(a->af0), n(a->af1))
                       .arg(a->health);
    return QLatin1Char('{') + entries.join(QLatin1Char(',')) + QLatin1Char('}');
}

} // namespace rxsim
