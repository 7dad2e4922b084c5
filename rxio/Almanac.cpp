#include "rxio/Almanac.h"

#include <QFile>
#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <cmath>
#include <numbers>
#include <set>
#include <string>

namespace rxio {

namespace {

constexpr double kPi = std::numbers::pi;
// IS-GPS-200 values: the propagation must use them, not a more exact GM or rotation rate.
constexpr double kGm = 3.986005e14;                // m^3/s^2
constexpr double kEarthRotation = 7.2921151467e-5; // rad/s
constexpr double kWgs84A = 6378137.0;              // m
constexpr double kWgs84F = 1.0 / 298.257223563;
constexpr double kWgs84E2 = kWgs84F * (2.0 - kWgs84F);
constexpr qint64 kGpsEpochUnixSeconds = 315964800; // 1980-01-06T00:00:00Z

// UTC moments (seconds since 1970-01-01) from which GPS - UTC grew by one second, 1981 to 2017.
constexpr std::array<qint64, 18> kLeapSecondStarts = {
    362793600, 394329600,  425865600,  489024000,  567993600,  631152000,
    662688000, 709948800,  741484800,  773020800,  820454400,  867715200,
    915148800, 1136073600, 1230768000, 1341100800, 1435708800, 1483228800};

[[noreturn]] void Fail(int line, const std::string& what) {
    throw CAlmanacError("line " + std::to_string(line) + ": " + what);
}

std::string_view Trim(std::string_view s) {
    while (!s.empty() && std::isspace(static_cast<unsigned char>(s.front())))
        s.remove_prefix(1);
    while (!s.empty() && std::isspace(static_cast<unsigned char>(s.back())))
        s.remove_suffix(1);
    return s;
}

// Locale-independent: "0,5" is refused, never read as 0.
std::optional<double> ToDouble(std::string_view s) {
    if (!s.empty() && s.front() == '+')
        s.remove_prefix(1);
    double value = 0.0;
    const auto [end, ec] = std::from_chars(s.data(), s.data() + s.size(), value);
    if (ec != std::errc() || end != s.data() + s.size() || !std::isfinite(value))
        return std::nullopt;
    return value;
}

std::optional<long> ToInt(std::string_view s) {
    long value = 0;
    const auto [end, ec] = std::from_chars(s.data(), s.data() + s.size(), value);
    if (ec != std::errc() || end != s.data() + s.size() || s.empty())
        return std::nullopt;
    return value;
}

double Number(std::string_view token, int line, const char* what) {
    const auto value = ToDouble(token);
    if (!value)
        Fail(line,
             std::string(what) + " is not a number: \"" + std::string(token.substr(0, 40)) + "\"");
    return *value;
}

long Integer(std::string_view token, int line, const char* what, long lo, long hi) {
    const auto value = ToInt(token);
    if (!value || *value < lo || *value > hi)
        Fail(line, std::string(what) + " must be a whole number from " + std::to_string(lo) +
                       " to " + std::to_string(hi) + ": \"" + std::string(token.substr(0, 40)) +
                       "\"");
    return *value;
}

// Files name GPS and QZSS satellites by PRN, which is their identifier as it is.
int FileUsi(long prn, int line) {
    if ((prn >= 1 && prn <= 32) || (prn >= 193 && prn <= 202))
        return static_cast<int>(prn);
    Fail(line, "PRN " + std::to_string(prn) + " is neither GPS (1-32) nor QZSS (193-202)");
}

// Files give the week in ten bits; a larger number is taken as the full week it already is.
int FileWeek(std::string_view token, int line, int referenceWeek) {
    const int week = static_cast<int>(Integer(token, line, "week", 0, 9999));
    return week < 1024 ? ResolveWeek(week, referenceWeek) : week;
}

bool KeplerianUsi(int usi) {
    // The satellite record's ranges: GPS, Galileo, IRNSS, QZSS, BeiDou.
    return (usi >= 1 && usi <= 37) || (usi >= 71 && usi <= 106) || (usi >= 176 && usi <= 182) ||
           (usi >= 193 && usi <= 202) || (usi >= 203 && usi <= 239);
}

void Check(bool ok, const char* what, double value) {
    if (!ok)
        throw CAlmanacError(std::string(what) + " out of range: " + std::to_string(value));
}

std::vector<std::pair<int, std::string_view>> Lines(std::string_view text) {
    std::vector<std::pair<int, std::string_view>> lines;
    int number = 0;
    while (!text.empty()) {
        const auto end = text.find('\n');
        ++number;
        lines.emplace_back(number, Trim(text.substr(0, end)));
        if (end == std::string_view::npos)
            break;
        text.remove_prefix(end + 1);
    }
    return lines;
}

void CheckSize(std::string_view text) {
    if (qint64(text.size()) > kMaxAlmanacFileSize)
        throw CAlmanacError("almanac text of " + std::to_string(text.size()) +
                            " bytes is larger than any almanac file");
}

// Validated on its own line, then added; a second almanac for one satellite is refused.
void Add(std::vector<Almanac>& out, std::set<int>& seen, const Almanac& almanac, int line) {
    try {
        Validate(almanac);
    } catch (const CAlmanacError& e) {
        Fail(line, "satellite " + std::to_string(almanac.usi) + ": " + e.what());
    }
    if (!seen.insert(almanac.usi).second)
        Fail(line, "satellite " + std::to_string(almanac.usi) + " appears twice");
    out.push_back(almanac);
}

enum YumaField {
    kId,
    kHealth,
    kEccentricity,
    kToa,
    kInclination,
    kRateOfRa,
    kSqrtA,
    kRightAscension,
    kPerigee,
    kMeanAnomaly,
    kAf0,
    kAf1,
    kWeek,
    kFieldCount
};

constexpr std::array<std::string_view, kFieldCount> kYumaKeys = {"id",
                                                                 "health",
                                                                 "eccentricity",
                                                                 "time of applicability",
                                                                 "orbital inclination",
                                                                 "rate of right ascen",
                                                                 "sqrt(a)",
                                                                 "right ascen at week",
                                                                 "argument of perigee",
                                                                 "mean anom",
                                                                 "af0",
                                                                 "af1",
                                                                 "week"};

std::optional<int> FindYumaField(std::string_view key) {
    std::string lower(key);
    for (char& c : lower)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    for (int i = 0; i < kFieldCount; ++i)
        if (lower == kYumaKeys[i] || (i != kId && i != kWeek && lower.starts_with(kYumaKeys[i])))
            return i;
    return std::nullopt;
}

struct YumaRecord {
    int line = 0;
    std::array<std::string_view, kFieldCount> values{};
    std::array<int, kFieldCount> lines{};
};

Almanac FromYuma(const YumaRecord& r, int referenceWeek) {
    for (int i = 0; i < kFieldCount; ++i)
        if (r.values[i].empty())
            Fail(r.line, "almanac has no \"" + std::string(kYumaKeys[i]) + "\" line");
    const auto num = [&](int f) {
        return Number(r.values[f], r.lines[f], kYumaKeys[f].data());
    };
    Almanac a;
    a.usi = FileUsi(Integer(r.values[kId], r.lines[kId], "ID", 0, 999), r.lines[kId]);
    a.health =
        static_cast<unsigned>(Integer(r.values[kHealth], r.lines[kHealth], "health", 0, 255));
    a.week = FileWeek(r.values[kWeek], r.lines[kWeek], referenceWeek);
    a.eccentricity = num(kEccentricity);
    a.toa = num(kToa);
    a.inclination = num(kInclination);
    a.rateOfRightAscension = num(kRateOfRa);
    a.sqrtA = num(kSqrtA);
    a.rightAscension = num(kRightAscension);
    a.argumentOfPerigee = num(kPerigee);
    a.meanAnomaly = num(kMeanAnomaly);
    a.af0 = num(kAf0);
    a.af1 = num(kAf1);
    return a;
}

} // namespace

int GpsTime::LeapSeconds(const QDateTime& utc) {
    const qint64 s = utc.toSecsSinceEpoch();
    int leap = 0;
    for (const qint64 start : kLeapSecondStarts)
        leap += s >= start ? 1 : 0;
    return leap;
}

GpsTime GpsTime::FromUtc(const QDateTime& utc) {
    const double unixSeconds = double(utc.toMSecsSinceEpoch()) / 1000.0;
    return GpsTime(unixSeconds - double(kGpsEpochUnixSeconds) + LeapSeconds(utc));
}

int GpsTime::Week() const {
    return static_cast<int>(std::floor(m_seconds / kSecondsPerWeek));
}

double GpsTime::SecondsOfWeek() const {
    return m_seconds - Week() * kSecondsPerWeek;
}

int ResolveWeek(int week10, int referenceWeek) {
    int delta = ((week10 - referenceWeek) % 1024 + 1024) % 1024;
    if (delta >= 512)
        delta -= 1024;
    const int week = referenceWeek + delta;
    return week < 0 ? week + 1024 : week;
}

void Validate(const Almanac& a) {
    if (!KeplerianUsi(a.usi))
        throw CAlmanacError("satellite " + std::to_string(a.usi) +
                            " is not of a constellation with Keplerian almanacs");
    Check(a.week >= 0 && a.week <= 9999, "week", a.week);
    Check(a.toa >= 0.0 && a.toa < GpsTime::kSecondsPerWeek, "time of applicability", a.toa);
    Check(a.eccentricity >= 0.0 && a.eccentricity <= 0.3, "eccentricity", a.eccentricity);
    Check(a.inclination >= 0.0 && a.inclination <= kPi, "inclination", a.inclination);
    Check(std::abs(a.rateOfRightAscension) <= 1e-6, "rate of right ascension",
          a.rateOfRightAscension);
    Check(a.sqrtA >= 4000.0 && a.sqrtA <= 8000.0, "sqrt(A)", a.sqrtA);
    Check(std::abs(a.rightAscension) <= 2 * kPi, "right ascension", a.rightAscension);
    Check(std::abs(a.argumentOfPerigee) <= 2 * kPi, "argument of perigee", a.argumentOfPerigee);
    Check(std::abs(a.meanAnomaly) <= 2 * kPi, "mean anomaly", a.meanAnomaly);
    Check(std::abs(a.af0) <= 1.0, "af0", a.af0);
    Check(std::abs(a.af1) <= 1e-6, "af1", a.af1);
    Check(a.health <= 255, "health", a.health);
}

std::vector<Almanac> ParseYuma(std::string_view text, int referenceWeek) {
    CheckSize(text);
    std::vector<Almanac> out;
    std::set<int> seen;
    std::optional<YumaRecord> record;
    const auto finish = [&] {
        if (record)
            Add(out, seen, FromYuma(*record, referenceWeek), record->line);
    };
    for (const auto& [number, line] : Lines(text)) {
        if (line.empty() || line.front() == '*')
            continue;
        const auto colon = line.find(':');
        if (colon == std::string_view::npos)
            Fail(number, "expected \"name: value\"");
        const auto field = FindYumaField(Trim(line.substr(0, colon)));
        if (!field)
            Fail(number, "unknown field \"" +
                             std::string(Trim(line.substr(0, colon)).substr(0, 40)) + "\"");
        if (*field == kId) {
            finish();
            record.emplace();
            record->line = number;
        } else if (!record) {
            Fail(number, "field before the first \"ID:\" line");
        }
        if (!record->values[*field].empty())
            Fail(number, "field \"" + std::string(kYumaKeys[*field]) + "\" twice in one almanac");
        const auto value = Trim(line.substr(colon + 1));
        if (value.empty())
            Fail(number, "field \"" + std::string(kYumaKeys[*field]) + "\" has no value");
        record->values[*field] = value;
        record->lines[*field] = number;
    }
    finish();
    if (out.empty())
        throw CAlmanacError("no almanac in the text");
    return out;
}

std::vector<Almanac> ParseSem(std::string_view text, int referenceWeek) {
    CheckSize(text);
    const auto lines = Lines(text);
    std::size_t next = 0;
    while (next < lines.size() && lines[next].second.empty())
        ++next;
    if (next == lines.size())
        throw CAlmanacError("no almanac in the text");
    // First line: satellite count, then the file's name.
    const auto [headerLine, header] = lines[next++];
    const long count = Integer(header.substr(0, header.find_first_of(" \t")), headerLine,
                               "satellite count", 1, 64);

    struct Token {
        int line;
        std::string_view text;
    };
    std::vector<Token> tokens;
    for (; next < lines.size(); ++next) {
        std::string_view rest = lines[next].second;
        while (!(rest = Trim(rest)).empty()) {
            const auto end = std::min(rest.find_first_of(" \t\r\v\f"), rest.size());
            tokens.push_back({lines[next].first, rest.substr(0, end)});
            rest.remove_prefix(end);
        }
    }
    constexpr std::size_t kPerSatellite = 14;
    if (tokens.size() < 2 + std::size_t(count) * kPerSatellite)
        Fail(tokens.empty() ? headerLine : tokens.back().line,
             "text ends before the " + std::to_string(count) + " almanacs the header announces");
    if (tokens.size() > 2 + std::size_t(count) * kPerSatellite)
        Fail(tokens[2 + count * kPerSatellite].line,
             "text after the " + std::to_string(count) + " almanacs the header announces");

    const int week = FileWeek(tokens[0].text, tokens[0].line, referenceWeek);
    const double toa = Number(tokens[1].text, tokens[1].line, "time of applicability");
    std::vector<Almanac> out;
    std::set<int> seen;
    for (long s = 0; s < count; ++s) {
        const Token* t = &tokens[2 + s * kPerSatellite];
        const auto num = [&](int i, const char* what) {
            return Number(t[i].text, t[i].line, what);
        };
        Almanac a;
        a.usi = FileUsi(Integer(t[0].text, t[0].line, "PRN", 0, 999), t[0].line);
        Integer(t[1].text, t[1].line, "SVN", 0, 9999);
        Integer(t[2].text, t[2].line, "URA", 0, 15);
        a.week = week;
        a.toa = toa;
        // Angles in semicircles; inclination as an offset from 0.3 semicircles.
        a.eccentricity = num(3, "eccentricity");
        a.inclination = (0.3 + num(4, "inclination offset")) * kPi;
        a.rateOfRightAscension = num(5, "rate of right ascension") * kPi;
        a.sqrtA = num(6, "sqrt(A)");
        a.rightAscension = num(7, "right ascension") * kPi;
        a.argumentOfPerigee = num(8, "argument of perigee") * kPi;
        a.meanAnomaly = num(9, "mean anomaly") * kPi;
        a.af0 = num(10, "af0");
        a.af1 = num(11, "af1");
        a.health = static_cast<unsigned>(Integer(t[12].text, t[12].line, "health", 0, 255));
        Integer(t[13].text, t[13].line, "configuration", 0, 15);
        Add(out, seen, a, t[0].line);
    }
    return out;
}

vex::POS_XYZ SatellitePosition(const Almanac& a, GpsTime t) {
    const double semiMajor = a.sqrtA * a.sqrtA;
    const double meanMotion = std::sqrt(kGm / (semiMajor * semiMajor * semiMajor)); // rad/s
    const double tk = t.Seconds() - a.Epoch().Seconds();
    const double mean = a.meanAnomaly + meanMotion * tk;
    const double e = a.eccentricity;
    double eccentric = mean;
    for (int i = 0; i < 10; ++i) {
        const double step =
            (eccentric - e * std::sin(eccentric) - mean) / (1.0 - e * std::cos(eccentric));
        eccentric -= step;
        if (std::abs(step) < 1e-13)
            break;
    }
    const double cosE = std::cos(eccentric);
    const double trueAnomaly = std::atan2(std::sqrt(1.0 - e * e) * std::sin(eccentric), cosE - e);
    const double latitude = trueAnomaly + a.argumentOfPerigee; // argument of latitude
    const double radius = semiMajor * (1.0 - e * cosE);
    const double xOrbit = radius * std::cos(latitude);
    const double yOrbit = radius * std::sin(latitude);
    const double node =
        a.rightAscension + (a.rateOfRightAscension - kEarthRotation) * tk - kEarthRotation * a.toa;
    const double cosNode = std::cos(node);
    const double sinNode = std::sin(node);
    const double cosI = std::cos(a.inclination);
    return {xOrbit * cosNode - yOrbit * cosI * sinNode, xOrbit * sinNode + yOrbit * cosI * cosNode,
            yOrbit * std::sin(a.inclination)};
}

AzEl AzimuthElevation(const Almanac& almanac, GpsTime t, const vex::POS_GEO& observer) {
    const double sinLat = std::sin(observer.lat);
    const double cosLat = std::cos(observer.lat);
    const double sinLon = std::sin(observer.lon);
    const double cosLon = std::cos(observer.lon);
    const double n = kWgs84A / std::sqrt(1.0 - kWgs84E2 * sinLat * sinLat);
    const double ox = (n + observer.height) * cosLat * cosLon;
    const double oy = (n + observer.height) * cosLat * sinLon;
    const double oz = (n * (1.0 - kWgs84E2) + observer.height) * sinLat;

    const vex::POS_XYZ sat = SatellitePosition(almanac, t);
    const double dx = sat.x - ox;
    const double dy = sat.y - oy;
    const double dz = sat.z - oz;
    const double east = -sinLon * dx + cosLon * dy;
    const double north = -sinLat * cosLon * dx - sinLat * sinLon * dy + cosLat * dz;
    const double up = cosLat * cosLon * dx + cosLat * sinLon * dy + sinLat * dz;

    double azimuth = std::atan2(east, north);
    if (azimuth < 0.0)
        azimuth += 2.0 * kPi;
    return {azimuth, std::atan2(up, std::hypot(east, north))};
}

std::vector<Almanac> ParseAlmanacRecord(QStringView reply) {
    const QByteArray bytes = reply.toUtf8();
    std::string_view text = Trim(std::string_view(bytes.constData(), std::size_t(bytes.size())));
    CheckSize(text);
    if (text.size() < 2 || text.front() != '{' || text.back() != '}')
        throw CAlmanacError("almanac record: not a record");
    text = Trim(text.substr(1, text.size() - 2));
    std::vector<Almanac> out;
    std::set<int> seen;
    // Members are counted from 1 in place of the lines of a file.
    for (int member = 1; !text.empty(); ++member) {
        const auto fail = [member](const std::string& why) {
            throw CAlmanacError("almanac record, member " + std::to_string(member) + ": " + why);
        };
        const auto equals = text.find('=');
        const auto open = text.find('{');
        const auto close = text.find('}');
        if (equals == std::string_view::npos || open != equals + 1 ||
            close == std::string_view::npos || close < open)
            fail("not USI={values}");
        const auto usi = ToInt(Trim(text.substr(0, equals)));
        if (!usi || *usi < 1 || *usi > 254)
            fail("not a satellite identifier: \"" +
                 std::string(text.substr(0, std::min<std::size_t>(equals, 40))) + "\"");
        std::vector<std::string_view> values;
        for (std::string_view rest = text.substr(open + 1, close - open - 1);;) {
            const auto comma = rest.find(',');
            values.push_back(Trim(rest.substr(0, comma)));
            if (comma == std::string_view::npos)
                break;
            rest.remove_prefix(comma + 1);
        }
        if (values.size() != 12)
            fail("twelve values expected, " + std::to_string(values.size()) + " given");
        Almanac a;
        a.usi = static_cast<int>(*usi);
        try {
            a.week = static_cast<int>(Integer(values[0], member, "week", 0, 9999));
            a.toa = Number(values[1], member, "time of applicability");
            a.eccentricity = Number(values[2], member, "eccentricity");
            a.inclination = Number(values[3], member, "inclination");
            a.rateOfRightAscension = Number(values[4], member, "rate of right ascension");
            a.sqrtA = Number(values[5], member, "square root of the semi-major axis");
            a.rightAscension = Number(values[6], member, "right ascension");
            a.argumentOfPerigee = Number(values[7], member, "argument of perigee");
            a.meanAnomaly = Number(values[8], member, "mean anomaly");
            a.af0 = Number(values[9], member, "af0");
            a.af1 = Number(values[10], member, "af1");
            a.health = static_cast<unsigned>(Integer(values[11], member, "health", 0, 255));
            Add(out, seen, a, member);
        } catch (const CAlmanacError& e) {
            // The file helpers name a line; here the place is the member.
            const std::string what = e.what();
            fail(what.substr(what.find(": ") + 2));
        }
        text = Trim(text.substr(close + 1));
        if (!text.empty()) {
            if (text.front() != ',')
                fail("members must be separated by commas");
            text = Trim(text.substr(1));
            if (text.empty())
                fail("a comma ends the record");
        }
    }
    return out;
}

void CAlmanacStorage::Set(const Almanac& almanac) {
    Validate(almanac);
    m_almanacs[almanac.usi] = almanac;
}

void CAlmanacStorage::Set(const std::vector<Almanac>& almanacs) {
    for (const Almanac& a : almanacs)
        Validate(a);
    for (const Almanac& a : almanacs)
        m_almanacs[a.usi] = a;
}

void CAlmanacStorage::LoadFile(const QString& path, int referenceWeek) {
    const auto fail = [&](const std::string& why) {
        throw CAlmanacError(path.toStdString() + ": " + why);
    };
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        fail(file.errorString().toStdString());
    if (file.size() > kMaxAlmanacFileSize)
        fail("file of " + std::to_string(file.size()) + " bytes is larger than any almanac file");
    const QByteArray bytes = file.read(kMaxAlmanacFileSize + 1);
    const std::string_view text(bytes.constData(), std::size_t(bytes.size()));
    const auto start = text.find_first_not_of(" \t\r\n");
    const bool yuma =
        start != std::string_view::npos && (text[start] == '*' || text.substr(start, 3) == "ID:");
    try {
        Set(yuma ? ParseYuma(text, referenceWeek) : ParseSem(text, referenceWeek));
    } catch (const CAlmanacError& e) {
        fail(std::string(yuma ? "YUMA " : "SEM ") + e.what());
    }
}

void CAlmanacStorage::Clear() {
    m_almanacs.clear();
}

const Almanac* CAlmanacStorage::Find(int usi) const {
    const auto it = m_almanacs.find(usi);
    return it == m_almanacs.end() ? nullptr : &it->second;
}

std::vector<int> CAlmanacStorage::Satellites() const {
    std::vector<int> usis;
    usis.reserve(m_almanacs.size());
    for (const auto& [usi, almanac] : m_almanacs)
        usis.push_back(usi);
    return usis;
}

std::optional<AzEl> CAlmanacStorage::CalculateAZ_EL(int usi, GpsTime t,
                                                    const vex::POS_GEO& observer) const {
    const Almanac* almanac = Find(usi);
    if (!almanac)
        return std::nullopt;
    return AzimuthElevation(*almanac, t, observer);
}

} // namespace rxio
