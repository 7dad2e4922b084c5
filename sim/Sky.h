#pragma once

#include "rxio/Almanac.h"
#include "rxio/Positions.h"

#include <QString>
#include <map>
#include <set>
#include <vector>

namespace rxsim {

enum class ESystem { GPS, GLONASS, Galileo, BeiDou, QZSS, NavIC, SBAS };

// One signal of a tracked satellite: its NMEA signal id, the satellite record's slot, dB-Hz.
struct SkySignal {
    char nmeaId;
    int slot;
    int snr;
};

// A satellite as the receiver reports it in one epoch.
struct SkySatellite {
    ESystem system;
    int usi;
    int number;       // within the constellation: PRN, GLONASS slot, SBAS PRN
    bool slotKnown;   // false: a GLONASS satellite reported by its USI only
    double elevation; // degrees
    double azimuth;   // degrees, 0 to 360
    int mark;         // 1 rising, 5 setting, 0 neither (geostationary)
    int status;       // 0 used in the solution, 6 tracked only
    int tracked;      // seconds
    bool scintillation;
    std::vector<SkySignal> signalList;
};

// The orbits of every constellation and what a receiver at the observer tracks of them.
// Keplerian almanacs (GPS, Galileo, BeiDou, QZSS, NavIC) applicable shortly before `reference`
// are made from nominal geometry anchored at a fixed moment, so the same UTC gives the same sky
// in every run. GLONASS and SBAS run on orbits of the same form that are never handed out.
class CSky {
public:
    explicit CSky(rxio::GpsTime reference);

    const std::vector<rxio::Almanac>& Almanacs() const { return m_almanacs; }
    const vex::POS_GEO& Observer() const { return m_observer; }
    // Radians, radians, metres. Tracking starts again.
    void SetObserver(const vex::POS_GEO& observer);

    // Tracking times count from here (a new session).
    void StartSession(rxio::GpsTime t);
    // What is tracked at `t` above `maskDeg`, without the satellites of `hidden` (by USI).
    // Calls should move forward in time: tracking times follow risings and settings between
    // them.
    std::vector<SkySatellite> At(rxio::GpsTime t, double maskDeg, const std::set<int>& hidden);

    // The default observer: a site from which every constellation's regional satellites rise.
    static vex::POS_GEO DefaultObserver();

private:
    struct Orbit {
        ESystem system;
        int usi;
        int number;
        rxio::Almanac almanac;
    };
    bool Visible(const Orbit& orbit, rxio::GpsTime t, double maskDeg) const;

    std::vector<rxio::Almanac> m_almanacs;
    std::vector<Orbit> m_orbits;
    vex::POS_GEO m_observer;
    rxio::GpsTime m_sessionStart;
    rxio::GpsTime m_last;
    std::map<std::size_t, rxio::GpsTime> m_since; // orbit index -> moment it rose
    int m_unknownSlot = -1;                       // orbit index of the GLONASS satellite
};

// The almanacs as `print,alm` answers them: {usi={week,toa,e,...,health},...}.
QString AlmanacRecord(const std::vector<rxio::Almanac>& almanacs);

} // namespace rxsim
