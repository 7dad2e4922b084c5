#include "rxio/NmeaDecoder.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <optional>

namespace rxio {

ISatListListener::~ISatListListener() = default;
IPositionListener::~IPositionListener() = default;

namespace {

using Sat = ISatListListener::SatelliteInfo;

constexpr std::size_t kMaxFields = 40;

// Which numbering a satellite number follows: the talker's, or the system id of a GSA.
enum class ENumbering { Mixed, Glonass, Galileo, BeiDou, Qzss, NavIc, Unknown };

ENumbering FromTalker(QByteArrayView talker) {
    if (talker == "GP" || talker == "GN")
        return ENumbering::Mixed;
    if (talker == "GL")
        return ENumbering::Glonass;
    if (talker == "GA")
        return ENumbering::Galileo;
    if (talker == "GB" || talker == "BD")
        return ENumbering::BeiDou;
    if (talker == "GQ" || talker == "QZ")
        return ENumbering::Qzss;
    if (talker == "GI")
        return ENumbering::NavIc;
    return ENumbering::Unknown;
}

std::uint16_t Key(Sat::EConstellation constellation, int number) {
    return static_cast<std::uint16_t>(constellation << 8 | number);
}

// The satellite an NMEA number names: the constellation and its own number (PRN for SBAS, slot
// for GLONASS). Receivers use several numberings; every one in use is taken.
std::optional<std::uint16_t> Resolve(ENumbering numbering, int n) {
    const auto in = [n](int low, int high) {
        return n >= low && n <= high;
    };
    switch (numbering) {
    case ENumbering::Mixed:
        if (in(1, 32))
            return Key(Sat::GPS, n);
        if (in(33, 64))
            return Key(Sat::SBAS, n + 87);
        if (in(65, 96))
            return Key(Sat::GLONASS, n - 64);
        if (in(120, 158))
            return Key(Sat::SBAS, n);
        if (in(193, 202))
            return Key(Sat::QZSS, n - 192);
        if (in(301, 336))
            return Key(Sat::Galileo, n - 300);
        if (in(401, 437))
            return Key(Sat::BeiDou, n - 400);
        break;
    case ENumbering::Glonass:
        if (in(65, 96))
            return Key(Sat::GLONASS, n - 64);
        if (in(1, 32))
            return Key(Sat::GLONASS, n);
        break;
    case ENumbering::Galileo:
        for (const int base : {0, 100, 300})
            if (in(base + 1, base + 36))
                return Key(Sat::Galileo, n - base);
        break;
    case ENumbering::BeiDou:
        // The satellite record numbers BeiDou 1..37 only.
        for (const int base : {0, 200, 400})
            if (in(base + 1, base + 37))
                return Key(Sat::BeiDou, n - base);
        break;
    case ENumbering::Qzss:
        if (in(1, 10))
            return Key(Sat::QZSS, n);
        if (in(193, 202))
            return Key(Sat::QZSS, n - 192);
        break;
    case ENumbering::NavIc:
        if (in(1, 7))
            return Key(Sat::IRNSS, n);
        break;
    case ENumbering::Unknown:
        break;
    }
    return std::nullopt;
}

// GLONASS frequency channel of slots 1..24 (antipodal slots share one, so no two satellites in
// one sky do); the identifier carries the channel.
constexpr std::array<int, 24> kGlonassChannel = {1,  -4, 5, 6,  1, -4, 5, 6, -2, -7, 0, -1,
                                                 -2, -7, 0, -1, 4, -3, 3, 2, 4,  -3, 3, 2};

std::uint8_t Usi(Sat::EConstellation constellation, int n) {
    int usi = 255;
    switch (constellation) {
    case Sat::GPS:
    case Sat::SBAS:
        usi = n;
        break;
    case Sat::GLONASS:
        // Slots without a known channel get identifiers above the channels' 38..51.
        usi = n <= 24 ? 45 + kGlonassChannel[static_cast<std::size_t>(n - 1)] : 52 + (n - 25);
        break;
    case Sat::Galileo:
        usi = 70 + n;
        break;
    case Sat::BeiDou:
        usi = 202 + n;
        break;
    case Sat::QZSS:
        usi = 192 + n;
        break;
    case Sat::IRNSS:
        usi = 175 + n;
        break;
    default:
        break;
    }
    return static_cast<std::uint8_t>(usi <= 254 ? usi : 255);
}

// The record's signal slot for an NMEA signal id (0: not given, the primary signal); -1 for a
// signal the record has no column for.
int Slot(Sat::EConstellation constellation, int signal) {
    static constexpr int kNone = -1;
    // Indexed by signal id 0..15.
    static constexpr std::array<int, 16> kGps = {
        0, 0, 1, 1, 2, 3, 3, 4, 4, kNone, kNone, kNone, kNone, kNone, kNone, kNone};
    static constexpr std::array<int, 16> kSbas = {0,     0,     kNone, kNone, kNone, kNone,
                                                  kNone, 5,     5,     kNone, kNone, kNone,
                                                  kNone, kNone, kNone, kNone};
    static constexpr std::array<int, 16> kGlonass = {
        0, 0, 1, 3, 2, kNone, kNone, kNone, kNone, kNone, kNone, kNone, kNone, kNone, kNone, kNone};
    static constexpr std::array<int, 16> kGalileo = {
        0, 4, 5, 6, 7, 7, 0, 0, kNone, kNone, kNone, kNone, kNone, kNone, kNone, kNone};
    static constexpr std::array<int, 16> kBeiDou = {0, 0, 0, 1, 1, 5,     3,     kNone,
                                                    4, 4, 4, 3, 3, kNone, kNone, kNone};
    static constexpr std::array<int, 16> kQzss = {0, 0, 1, 1,     kNone, 3,     3,     4,
                                                  4, 7, 7, kNone, kNone, kNone, kNone, kNone};
    const auto index = static_cast<std::size_t>(signal);
    switch (constellation) {
    case Sat::GPS:
        return kGps[index];
    case Sat::SBAS:
        return kSbas[index];
    case Sat::GLONASS:
        return kGlonass[index];
    case Sat::Galileo:
        return kGalileo[index];
    case Sat::BeiDou:
        return kBeiDou[index];
    case Sat::QZSS:
        return kQzss[index];
    case Sat::IRNSS:
        return signal <= 1 ? 0 : kNone;
    default:
        return kNone;
    }
}

// Unsigned decimal; nullopt when empty, -1 when not a number.
std::optional<int> Int(QByteArrayView field) {
    if (field.isEmpty())
        return std::nullopt;
    if (field.size() > 6)
        return -1;
    int value = 0;
    for (const char c : field) {
        if (c < '0' || c > '9')
            return -1;
        value = value * 10 + (c - '0');
    }
    return value;
}

// Optionally signed decimal fraction; nullopt when empty or malformed (`ok` says which).
std::optional<double> Real(QByteArrayView field, bool& ok) {
    ok = true;
    if (field.isEmpty())
        return std::nullopt;
    bool negative = false;
    qsizetype i = 0;
    if (field[0] == '-' || field[0] == '+') {
        negative = field[0] == '-';
        ++i;
    }
    double value = 0;
    double scale = 0;
    bool digits = false;
    for (; i < field.size(); ++i) {
        const char c = field[i];
        if (c == '.' && scale == 0) {
            scale = 1;
        } else if (c >= '0' && c <= '9') {
            digits = true;
            value = value * 10 + (c - '0');
            if (scale != 0)
                scale *= 10;
        } else {
            ok = false;
            return std::nullopt;
        }
    }
    if (!digits) {
        ok = false;
        return std::nullopt;
    }
    if (scale != 0)
        value /= scale;
    return negative ? -value : value;
}

// ddmm.mmmm with its hemisphere, in radians.
std::optional<double> Angle(QByteArrayView value, QByteArrayView hemisphere, int degreeDigits,
                            bool& ok) {
    const std::optional<double> raw = Real(value, ok);
    if (!ok || !raw)
        return std::nullopt;
    const qsizetype dot = value.indexOf('.');
    if ((dot < 0 ? value.size() : dot) != degreeDigits + 2 || *raw < 0 || hemisphere.size() != 1) {
        ok = false;
        return std::nullopt;
    }
    const double degrees = std::floor(*raw / 100);
    const double minutes = *raw - degrees * 100;
    const char h = hemisphere[0];
    const double limit = degreeDigits == 2 ? 90 : 180;
    if (minutes >= 60 || degrees + minutes / 60 > limit ||
        !(h == 'N' || h == 'S' || h == 'E' || h == 'W')) {
        ok = false;
        return std::nullopt;
    }
    const double radians = (degrees + minutes / 60) * std::numbers::pi / 180;
    return h == 'S' || h == 'W' ? -radians : radians;
}

int HexDigit(char c) {
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    return -1;
}

} // namespace

void CNmeaDecoder::Feed(QByteArrayView bytes) {
    for (const char c : bytes) {
        if (c == '$') {
            // A sentence cut short by the next one is lost; a bare "$" ("$$GPGGA") is not one.
            if (m_inSentence && m_line.size() > 1)
                ++m_dropped;
            m_line.clear();
            m_line.append('$');
            m_inSentence = true;
            m_overlong = false;
        } else if (!m_inSentence) {
            ++m_skipped;
        } else if (c == '\n' || c == '\r') {
            m_inSentence = false;
            if (m_overlong)
                ++m_dropped;
            else
                Decode(m_line);
        } else if (m_line.size() < kMaxSentence) {
            m_line.append(c);
        } else {
            m_overlong = true;
        }
    }
}

void CNmeaDecoder::Decode(QByteArrayView sentence) {
    while (!sentence.isEmpty() && (sentence.back() == '\n' || sentence.back() == '\r'))
        sentence.chop(1);
    if (sentence.size() < 7 || sentence.size() > kMaxSentence || sentence[0] != '$') {
        ++m_dropped;
        return;
    }
    QByteArrayView body = sentence.sliced(1);
    if (const qsizetype star = body.lastIndexOf('*'); star >= 0) {
        const QByteArrayView sum = body.sliced(star + 1);
        body.truncate(star);
        std::uint8_t computed = 0;
        for (const char c : body)
            computed ^= static_cast<std::uint8_t>(c);
        const int high = sum.size() == 2 ? HexDigit(sum[0]) : -1;
        const int low = sum.size() == 2 ? HexDigit(sum[1]) : -1;
        if (high < 0 || low < 0 || computed != (high << 4 | low)) {
            ++m_dropped;
            return;
        }
    }
    m_fields.clear();
    for (qsizetype start = 0;;) {
        const qsizetype comma = body.indexOf(',', start);
        if (m_fields.size() == kMaxFields) {
            ++m_dropped;
            return;
        }
        if (comma < 0) {
            m_fields.push_back(body.sliced(start));
            break;
        }
        m_fields.push_back(body.sliced(start, comma - start));
        start = comma + 1;
    }
    const QByteArrayView address = m_fields[0];
    if (address == "PPELSAT") {
        if (DecodePelsat(m_fields))
            ++m_decoded;
        else
            ++m_dropped;
        return;
    }
    if (address.size() != 5 || address[0] == 'P')
        return; // another maker's or unknown: not ours to judge
    const QByteArrayView talker = address.first(2);
    const QByteArrayView type = address.sliced(2);
    bool ok = true;
    if (type == "GSV")
        ok = DecodeGsv(talker, m_fields);
    else if (type == "GSA")
        ok = DecodeGsa(talker, m_fields);
    else if (type == "GGA")
        ok = DecodeGga(m_fields);
    else if (type == "RMC")
        ok = DecodeRmc(m_fields);
    else
        return;
    if (ok)
        ++m_decoded;
    else
        ++m_dropped;
}

void CNmeaDecoder::Flush() {
    EndEpoch();
}

void CNmeaDecoder::Reset() {
    m_line.clear();
    m_inSentence = false;
    m_overlong = false;
    m_sky.clear();
    m_used.clear();
    m_groups.clear();
    m_gsaLeading.clear();
}

CNmeaDecoder::Satellite& CNmeaDecoder::SatelliteFor(std::uint16_t key) {
    for (Satellite& s : m_sky)
        if (s.key == key)
            return s;
    Satellite& added = m_sky.emplace_back(Satellite{key, {}, {}, {}});
    const auto constellation = static_cast<Sat::EConstellation>(key >> 8);
    added.info.USI = Usi(constellation, key & 0xFF);
    if (constellation == Sat::GLONASS)
        added.info.NN = static_cast<std::uint8_t>(key & 0xFF);
    return added;
}

bool CNmeaDecoder::DecodeGsv(QByteArrayView talker, const Fields& f) {
    // GSV,total,number,in view,{sv,elevation,azimuth,snr}...[,signal]
    if (f.size() < 4)
        return false;
    qsizetype blocks = f.size() - 4;
    int signal = 0;
    if (blocks % 4 == 1) {
        const QByteArrayView id = f.back();
        signal = id.isEmpty() ? 0 : id.size() == 1 ? HexDigit(id[0]) : -1;
        if (signal < 0)
            return false;
        --blocks;
    }
    const std::optional<int> total = Int(f[1]);
    const std::optional<int> number = Int(f[2]);
    if (blocks % 4 != 0 || !total || !number || *total < 1 || *number < 1 || *number > *total)
        return false;
    const ENumbering numbering = FromTalker(talker);
    if (numbering == ENumbering::Unknown)
        return true;
    // Without times, a group seen again starts the next epoch.
    const auto group = static_cast<std::uint16_t>(static_cast<int>(numbering) << 8 | signal);
    if (*number == 1) {
        if (!m_timed && std::ranges::find(m_groups, group) != m_groups.end())
            EndEpoch();
        if (std::ranges::find(m_groups, group) == m_groups.end())
            m_groups.push_back(group);
    }
    for (qsizetype i = 4; i + 4 <= 4 + blocks; i += 4) {
        const std::optional<int> sv = Int(f[i]);
        const std::optional<int> elevation =
            Int(f[i + 1].startsWith('-') ? f[i + 1].sliced(1) : f[i + 1]);
        const std::optional<int> azimuth = Int(f[i + 2]);
        const std::optional<int> snr = Int(f[i + 3]);
        if ((sv && *sv < 0) || (elevation && (*elevation < 0 || *elevation > 90)) ||
            (azimuth && (*azimuth < 0 || *azimuth > 360)) || (snr && (*snr < 0 || *snr > 99)))
            return false;
        if (!sv)
            continue; // an empty block pads the last sentence of a group
        const std::optional<std::uint16_t> key = Resolve(numbering, *sv);
        if (!key)
            continue;
        SatelliteInfo& satellite = SatelliteFor(*key).info;
        if (elevation)
            satellite.Elevation =
                static_cast<std::int8_t>(f[i + 1].startsWith('-') ? -*elevation : *elevation);
        if (azimuth)
            satellite.Azimuth = static_cast<std::uint16_t>(*azimuth);
        const int slot = Slot(static_cast<Sat::EConstellation>(*key >> 8), signal);
        if (snr && slot >= 0)
            satellite.SNR[slot] = static_cast<std::uint8_t>(*snr);
    }
    return true;
}

bool CNmeaDecoder::DecodeGsa(QByteArrayView talker, const Fields& f) {
    // GSA,mode,fix,sv x 12,pdop,hdop,vdop[,system]
    if (f.size() < 6)
        return false;
    qsizetype svs = f.size() - 6;
    ENumbering numbering = FromTalker(talker);
    // A system id after the DOPs: a whole number 1..6 (a DOP has a decimal point).
    if (const std::optional<int> system = f.size() >= 19 ? Int(f.back()) : std::nullopt;
        system && *system >= 1 && *system < 7) {
        --svs;
        static constexpr std::array<ENumbering, 7> kSystems = {
            ENumbering::Unknown, ENumbering::Mixed, ENumbering::Glonass, ENumbering::Galileo,
            ENumbering::BeiDou,  ENumbering::Qzss,  ENumbering::NavIc};
        numbering = kSystems[static_cast<std::size_t>(*system)];
    }
    const std::optional<int> fix = Int(f[2]);
    if (fix && *fix < 0)
        return false;
    // Without times, a system's GSA seen again after the GSV groups starts the next epoch (a
    // stream that sends GSA first); one after the groups alone still belongs to this epoch.
    const int system = static_cast<int>(numbering);
    const bool leading = std::ranges::find(m_gsaLeading, system) != m_gsaLeading.end();
    if (!m_timed && leading && !m_groups.empty())
        EndEpoch();
    if (m_groups.empty() && !leading)
        m_gsaLeading.push_back(system);
    for (qsizetype i = 3; i < 3 + svs; ++i) {
        const std::optional<int> sv = Int(f[i]);
        if (sv && *sv < 0)
            return false;
        if (!sv || !fix || *fix < 2)
            continue;
        if (const std::optional<std::uint16_t> key = Resolve(numbering, *sv))
            if (std::ranges::find(m_used, *key) == m_used.end())
                m_used.push_back(*key);
    }
    return true;
}

bool CNmeaDecoder::DecodePelsat(const Fields& f) {
    // PPELSAT,usi,slot,status,tracked,scintillation,mark,elevation,azimuth[,signal slot,snr]...
    if (f.size() < 9 || (f.size() - 9) % 2 != 0)
        return false;
    const std::optional<int> usi = Int(f[1]);
    const std::optional<int> slot = Int(f[2]);
    const std::optional<int> status = Int(f[3]);
    const std::optional<int> tracked = Int(f[4]);
    const std::optional<int> scintillation = Int(f[5]);
    const std::optional<int> mark = Int(f[6]);
    const bool below = f[7].startsWith('-');
    const std::optional<int> elevation = Int(below ? f[7].sliced(1) : f[7]);
    const std::optional<int> azimuth = Int(f[8]);
    const auto within = [](const std::optional<int>& v, int low, int high) {
        return !v || (*v >= low && *v <= high);
    };
    if (!usi || !within(usi, 1, 254) || !within(status, 0, 254) || !within(tracked, 0, 0xFFFF) ||
        !within(scintillation, 0, 1) || !within(mark, 0, 255) || !within(elevation, 0, 90) ||
        !within(azimuth, 0, 360) || (below && !elevation))
        return false;
    const bool glonass = *usi >= 38 && *usi <= 70;
    if (slot && !(glonass && *slot >= 1 && *slot <= 32))
        return false;
    std::vector<std::pair<int, std::uint8_t>> strengths;
    for (std::size_t i = 9; i < f.size(); i += 2) {
        const std::optional<int> signal = Int(f[i]);
        const std::optional<int> snr = Int(f[i + 1]);
        if (!signal || !snr || !within(signal, 0, 7) || !within(snr, 0, 99))
            return false;
        strengths.emplace_back(*signal, static_cast<std::uint8_t>(*snr));
    }
    // The satellite of the GSV sentences with the same identity; GLONASS by its slot, or, while
    // the receiver does not know the slot, by the channel alone (numbers above any slot).
    const auto [constellation, number] = [&]() -> std::pair<Sat::EConstellation, int> {
        const int n = *usi;
        if (n <= 37)
            return {Sat::GPS, n};
        if (glonass)
            return {Sat::GLONASS, slot ? *slot : 128 + n - 38};
        if (n >= 71 && n <= 106)
            return {Sat::Galileo, n - 70};
        if (n >= 120 && n <= 158)
            return {Sat::SBAS, n};
        if (n >= 176 && n <= 182)
            return {Sat::IRNSS, n - 175};
        if (n >= 183 && n <= 192)
            return {Sat::SAIF, n};
        if (n >= 193 && n <= 202)
            return {Sat::QZSS, n - 192};
        if (n >= 203 && n <= 239)
            return {Sat::BeiDou, n - 202};
        return {Sat::Reserved, n};
    }();
    Satellite& satellite = SatelliteFor(Key(constellation, number));
    SatelliteInfo& info = satellite.info;
    info.USI = static_cast<std::uint8_t>(*usi);
    if (glonass)
        info.NN = static_cast<std::uint8_t>(slot.value_or(255));
    if (status)
        satellite.status = static_cast<std::uint8_t>(*status);
    if (tracked)
        satellite.tracked = static_cast<std::uint16_t>(*tracked);
    if (scintillation)
        info.Scintillation = static_cast<std::uint8_t>(*scintillation);
    if (mark)
        info.ElevationMark = static_cast<std::uint32_t>(*mark);
    if (elevation)
        info.Elevation = static_cast<std::int8_t>(below ? -*elevation : *elevation);
    if (azimuth)
        info.Azimuth = static_cast<std::uint16_t>(*azimuth);
    for (const auto& [signal, snr] : strengths)
        info.SNR[signal] = snr;
    return true;
}

bool CNmeaDecoder::AtTime(QByteArrayView time) {
    if (time.size() < 6)
        return false;
    const std::optional<int> hh = Int(time.first(2));
    const std::optional<int> mm = Int(time.sliced(2, 2));
    bool ok = true;
    const std::optional<double> ss = Real(time.sliced(4), ok);
    if (!hh || !mm || !ss || *hh < 0 || *hh > 23 || *mm < 0 || *mm > 59 || *ss < 0 || *ss >= 61)
        return false;
    const auto ms = static_cast<std::int64_t>(((*hh * 60 + *mm) * 60 + *ss) * 1000 + 0.5);
    if (m_timed && ms == m_epochMs)
        return true;
    EndEpoch();
    if (!m_timed) {
        // Tracking times counted in epochs so far start again on the receiver's clock.
        m_firstSeen.clear();
    } else if (m_epochMs - ms > 43'200'000) {
        m_dayOffsetMs += 86'400'000; // past midnight
    } else if (ms < m_epochMs) {
        // The receiver's clock stepped back (a cold start learning GPS-UTC, a replayed log):
        // tracking times go on from where they were.
        for (FirstSeen& seen : m_firstSeen)
            seen.ms -= m_epochMs - ms;
    }
    m_timed = true;
    m_epochMs = ms;
    return true;
}

bool CNmeaDecoder::DecodeGga(const Fields& f) {
    // GGA,time,lat,N,lon,E,quality,used,hdop,altitude,M,separation,M,...
    if (f.size() < 10 || f[1].isEmpty())
        return f.size() >= 10; // no time: nothing to say yet
    if (!AtTime(f[1]))
        return false;
    bool ok = true;
    const std::optional<double> lat = Angle(f[2], f[3], 2, ok);
    const std::optional<double> lon = ok ? Angle(f[4], f[5], 3, ok) : std::nullopt;
    const std::optional<int> quality = Int(f[6]);
    const std::optional<int> used = Int(f[7]);
    const std::optional<double> altitude = ok ? Real(f[9], ok) : std::nullopt;
    const std::optional<double> separation =
        ok && f.size() > 11 ? Real(f[11], ok) : std::optional<double>();
    if (!ok || (quality && *quality < 0) || (used && *used < 0))
        return false;
    static constexpr std::array<ESolutionType, 10> kQuality = {
        ESolutionType::None,          ESolutionType::Standalone,  ESolutionType::CodeDifferential,
        ESolutionType::Standalone,    ESolutionType::RtkFixed,    ESolutionType::RtkFloat,
        ESolutionType::DeadReckoning, ESolutionType::ManualInput, ESolutionType::Simulated,
        ESolutionType::Sbas};
    m_hasPosition = true;
    m_ggaInEpoch = true;
    m_position.solution = !lat || !lon || !quality ? ESolutionType::None
                          : *quality < 10          ? kQuality[static_cast<std::size_t>(*quality)]
                                                   : ESolutionType::Other;
    m_position.geo = {lat.value_or(0), lon.value_or(0),
                      altitude.value_or(0) + separation.value_or(0)};
    m_position.satellitesUsed = used.value_or(-1);
    return true;
}

bool CNmeaDecoder::DecodeRmc(const Fields& f) {
    // RMC,time,status,lat,N,lon,E,speed,course,date,variation,E[,mode[,status]]
    if (f.size() < 10 || f[1].isEmpty())
        return f.size() >= 10;
    if (!AtTime(f[1]))
        return false;
    bool ok = true;
    const std::optional<double> lat = Angle(f[3], f[4], 2, ok);
    const std::optional<double> lon = ok ? Angle(f[5], f[6], 3, ok) : std::nullopt;
    const std::optional<int> date = Int(f[9]);
    if (!ok || (date && (*date < 0 || f[9].size() != 6)))
        return false;
    if (date) {
        const QDate d(2000 + *date % 100, *date / 100 % 100, *date / 10000);
        if (!d.isValid())
            return false;
        m_date = d;
    }
    if (m_ggaInEpoch)
        return true; // GGA knows the height and the solution better
    const char mode = f.size() > 12 && f[12].size() == 1 ? f[12][0] : 'A';
    ESolutionType solution = ESolutionType::None;
    if (f[2] == "A" && lat && lon) {
        switch (mode) {
        case 'D':
            solution = ESolutionType::CodeDifferential;
            break;
        case 'E':
            solution = ESolutionType::DeadReckoning;
            break;
        case 'F':
            solution = ESolutionType::RtkFloat;
            break;
        case 'R':
            solution = ESolutionType::RtkFixed;
            break;
        case 'M':
            solution = ESolutionType::ManualInput;
            break;
        case 'S':
            solution = ESolutionType::Simulated;
            break;
        case 'N':
            break;
        default:
            solution = ESolutionType::Standalone;
        }
    }
    m_hasPosition = true;
    m_position.solution = solution;
    m_position.geo = {lat.value_or(0), lon.value_or(0), 0};
    return true;
}

void CNmeaDecoder::EndEpoch() {
    const std::int64_t now = m_timed ? m_dayOffsetMs + m_epochMs : m_untimedEpochs * 1000;
    ++m_untimedEpochs;
    if (!m_sky.empty()) {
        std::ranges::sort(m_sky, {}, &Satellite::key);
        std::vector<FirstSeen> firstSeen;
        std::vector<SatelliteInfo> sky;
        firstSeen.reserve(m_sky.size());
        sky.reserve(m_sky.size());
        for (Satellite& s : m_sky) {
            const auto earlier = std::ranges::find(m_firstSeen, s.key, &FirstSeen::key);
            const std::int64_t since = earlier == m_firstSeen.end() ? now : earlier->ms;
            firstSeen.push_back({s.key, since});
            s.info.TC = s.tracked.value_or(static_cast<std::uint16_t>(
                std::clamp<std::int64_t>((now - since) / 1000, 0, 0xFFFF)));
            s.info.SS = s.status.value_or(
                std::ranges::find(m_used, s.key) != m_used.end() ? kStatusUsed : kStatusTracked);
            sky.push_back(std::move(s.info));
        }
        m_firstSeen = std::move(firstSeen);
        m_sky.clear();
        if (onSky)
            onSky(sky);
    }
    if (m_hasPosition) {
        // A leap second (23:59:60) is the next day's first moment, as UTC clocks show it.
        m_position.utc = m_timed && m_date.isValid()
                             ? QDateTime(m_date, QTime(0, 0), Qt::UTC).addMSecs(m_epochMs)
                             : QDateTime();
        const Position position = std::exchange(m_position, {});
        m_hasPosition = false;
        if (onPosition)
            onPosition(position);
    }
    m_used.clear();
    m_groups.clear();
    m_gsaLeading.clear();
    m_ggaInEpoch = false;
}

} // namespace rxio
