#include "Nmea.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <numbers>

namespace rxsim {

namespace {

constexpr double kDeg = std::numbers::pi / 180.0;

// Fixed dilutions: the solution's geometry is not modelled.
constexpr const char* kHdop = "0.7";
const QByteArray kDops = QByteArray("1.2,") + kHdop + ",1.0"; // PDOP, HDOP, VDOP

struct Talker {
    const char* id;
    int systemId; // GSA system id
};

Talker TalkerOf(ESystem system) {
    switch (system) {
    case ESystem::GPS:
    case ESystem::SBAS:
        return {"GP", 1};
    case ESystem::GLONASS:
        return {"GL", 2};
    case ESystem::Galileo:
        return {"GA", 3};
    case ESystem::BeiDou:
        return {"GB", 4};
    case ESystem::QZSS:
        return {"GQ", 5};
    case ESystem::NavIC:
        return {"GI", 6};
    }
    return {"GN", 0};
}

// The satellite's number in GSV and GSA under its talker.
int NmeaNumber(const SkySatellite& s) {
    switch (s.system) {
    case ESystem::SBAS:
        return s.number - 87;
    case ESystem::GLONASS:
        return s.number + 64;
    case ESystem::QZSS:
        return s.number - 192;
    default:
        return s.number;
    }
}

QByteArray Int(int value, int width) {
    return QByteArray::number(value).rightJustified(width, '0');
}

int Elevation(const SkySatellite& s) {
    return static_cast<int>(std::lround(s.elevation));
}

int Azimuth(const SkySatellite& s) {
    return static_cast<int>(std::lround(s.azimuth)) % 360;
}

// ddmm.mmmmmm (dddmm.mmmmmm) and the hemisphere, from integer micro-minutes so that rounding
// never gives 60 minutes.
QByteArray Angle(double radians, int degreeDigits, char positive, char negative) {
    const long long micro = std::llround(std::abs(radians) / kDeg * 60e6);
    char text[32];
    std::snprintf(text, sizeof text, "%0*lld%02lld.%06lld,%c", degreeDigits, micro / 60'000'000,
                  micro / 1'000'000 % 60, micro % 1'000'000, radians < 0 ? negative : positive);
    return text;
}

// Epochs fall on whole seconds.
QByteArray TimeOfDay(const QDateTime& utc) {
    return utc.toString(QStringLiteral("HHmmss")).toLatin1() + ".00";
}

QByteArray Position(const vex::POS_GEO& observer) {
    return Angle(observer.lat, 2, 'N', 'S') + ',' + Angle(observer.lon, 3, 'E', 'W');
}

QByteArray Gga(const std::vector<SkySatellite>& sky, const QDateTime& utc,
               const vex::POS_GEO& observer) {
    int used = 0;
    for (const SkySatellite& s : sky)
        used += s.status == 0 ? 1 : 0;
    // The height is given against the ellipsoid: no geoid model, separation 0.
    return NmeaSentence("GNGGA," + TimeOfDay(utc) + ',' + Position(observer) + ",1," +
                        Int(used, 2) + ',' + kHdop + ',' +
                        QByteArray::number(observer.height, 'f', 3) + ",M,0.000,M,,");
}

QByteArray Rmc(const QDateTime& utc, const vex::POS_GEO& observer) {
    return NmeaSentence("GNRMC," + TimeOfDay(utc) + ",A," + Position(observer) + ",0.00,0.00," +
                        utc.toString(QStringLiteral("ddMMyy")).toLatin1() + ",,,A,V");
}

QByteArray Gsa(const std::vector<SkySatellite>& sky) {
    QByteArray out;
    for (int systemId = 1; systemId <= 6; ++systemId) {
        QList<QByteArray> used;
        for (const SkySatellite& s : sky)
            if (s.status == 0 && s.slotKnown && TalkerOf(s.system).systemId == systemId)
                used << Int(NmeaNumber(s), 2);
        // Twelve a sentence; more satellites take more sentences.
        for (qsizetype first = 0; first < used.size(); first += 12) {
            QList<QByteArray> fields = used.mid(first, 12);
            while (fields.size() < 12)
                fields << QByteArray();
            out += NmeaSentence("GNGSA,A,3," + fields.join(',') + ',' + kDops + ',' +
                                QByteArray::number(systemId));
        }
    }
    return out;
}

QByteArray Gsv(const std::vector<SkySatellite>& sky) {
    struct Group {
        QByteArray talker;
        char signal;
        QList<QByteArray> satellites; // "nn,ee,aaa,ss"
    };
    std::vector<Group> groups;
    for (const char* talker : {"GP", "GL", "GA", "GB", "GQ", "GI"})
        for (const SkySatellite& s : sky) {
            if (!s.slotKnown || qstrcmp(TalkerOf(s.system).id, talker) != 0)
                continue;
            for (const SkySignal& signal : s.signalList) {
                auto group = std::find_if(groups.begin(), groups.end(), [&](const Group& g) {
                    return g.talker == talker && g.signal == signal.nmeaId;
                });
                if (group == groups.end())
                    group = groups.insert(groups.end(), {talker, signal.nmeaId, {}});
                group->satellites << Int(NmeaNumber(s), 2) + ',' + Int(Elevation(s), 2) + ',' +
                                         Int(Azimuth(s), 3) + ',' + Int(signal.snr, 2);
            }
        }
    QByteArray out;
    for (const Group& g : groups) {
        const qsizetype count = (g.satellites.size() + 3) / 4;
        for (qsizetype n = 0; n < count; ++n)
            out += NmeaSentence(g.talker + "GSV," + QByteArray::number(count) + ',' +
                                QByteArray::number(n + 1) + ',' + Int(g.satellites.size(), 2) +
                                ',' + g.satellites.mid(n * 4, 4).join(',') + ',' + g.signal);
    }
    return out;
}

QByteArray Pelsat(const std::vector<SkySatellite>& sky) {
    QByteArray out;
    for (const SkySatellite& s : sky) {
        const bool slot = s.system == ESystem::GLONASS && s.slotKnown;
        QByteArray body = "PPELSAT," + QByteArray::number(s.usi) + ',' +
                          (slot ? QByteArray::number(s.number) : QByteArray()) + ',' +
                          QByteArray::number(s.status) + ',' + QByteArray::number(s.tracked) + ',' +
                          (s.scintillation ? "1," : "0,") + QByteArray::number(s.mark) + ',';
        body += s.slotKnown
                    ? QByteArray::number(Elevation(s)) + ',' + QByteArray::number(Azimuth(s))
                    : QByteArray(",");
        for (const SkySignal& signal : s.signalList)
            body += ',' + QByteArray::number(signal.slot) + ',' + QByteArray::number(signal.snr);
        out += NmeaSentence(body);
    }
    return out;
}

} // namespace

QByteArray NmeaSentence(const QByteArray& body) {
    unsigned char sum = 0;
    for (const char c : body)
        sum ^= static_cast<unsigned char>(c);
    return '$' + body + '*' + QByteArray::number(sum, 16).toUpper().rightJustified(2, '0') + "\r\n";
}

QByteArray NmeaEpoch(const std::vector<SkySatellite>& sky, const QDateTime& utc,
                     const vex::POS_GEO& observer, const QStringList& sets) {
    QByteArray out;
    if (sets.contains(kNmeaSets[0]))
        out += Gga(sky, utc, observer);
    if (sets.contains(kNmeaSets[1]))
        out += Rmc(utc, observer);
    if (sets.contains(kNmeaSets[2]))
        out += Gsa(sky);
    if (sets.contains(kNmeaSets[3]))
        out += Gsv(sky);
    if (sets.contains(kNmeaSets[4]))
        out += Pelsat(sky);
    return out;
}

} // namespace rxsim
