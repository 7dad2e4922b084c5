#include "config/NtripSourceTable.h"

#include "lib/PellLib.h"
#include "resources/StringIds.h"

#include <QList>
#include <QStringDecoder>
#include <QStringList>
#include <algorithm>
#include <cmath>
#include <numbers>

namespace ntrip {
namespace {

constexpr double kMeanEarthRadiusKm = 6371.0088;

QString Decode(std::string_view bytes) {
    if (std::all_of(bytes.begin(), bytes.end(), [](char c) { return (c & 0x80) == 0; }))
        return QString::fromLatin1(bytes.data(), qsizetype(bytes.size()));
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString text = utf8.decode(QByteArrayView(bytes.data(), qsizetype(bytes.size())));
    if (!utf8.hasError())
        return text;
    return QString::fromLatin1(bytes.data(), qsizetype(bytes.size()));
}

std::string_view Trimmed(std::string_view text) {
    while (!text.empty() && (text.front() == ' ' || text.front() == '\t'))
        text.remove_prefix(1);
    while (!text.empty() && (text.back() == ' ' || text.back() == '\t' || text.back() == '\r'))
        text.remove_suffix(1);
    return text;
}

// The field at `index`, empty when the record is short of it.
class Fields {
public:
    explicit Fields(std::vector<QString> fields, std::size_t count) : m_fields(std::move(fields)) {
        // Fields beyond the record's own belong to its last ("misc"), which may hold semicolons.
        if (m_fields.size() > count) {
            QStringList rest;
            for (std::size_t i = count - 1; i < m_fields.size(); ++i)
                rest << m_fields[i];
            m_fields.resize(count - 1);
            m_fields.push_back(rest.join(QLatin1Char(';')));
        }
    }

    QString Text(std::size_t index) const {
        return index < m_fields.size() ? m_fields[index] : QString();
    }
    int Whole(std::size_t index) const {
        bool ok = false;
        const int value = Text(index).trimmed().toInt(&ok);
        return ok && value >= 0 ? value : -1;
    }
    bool Flag(std::size_t index) const {
        const QString text = Text(index).trimmed();
        return text == QLatin1String("1") ||
               text.compare(QLatin1String("Y"), Qt::CaseInsensitive) == 0;
    }
    double Degrees(std::size_t index, double limit) const {
        bool ok = false;
        double value = Text(index).trimmed().toDouble(&ok);
        if (!ok || !std::isfinite(value))
            return kUnknownCoordinate;
        // Some casters give east longitudes from 0 to 360.
        if (limit == 180.0 && value > 180.0 && value <= 360.0)
            value -= 360.0;
        return std::fabs(value) <= limit ? value : kUnknownCoordinate;
    }

private:
    std::vector<QString> m_fields;
};

Stream StreamOf(const Fields& f) {
    Stream s;
    s.mountpoint = f.Text(1);
    s.identifier = f.Text(2);
    s.format = f.Text(3);
    s.formatDetails = f.Text(4);
    s.carrier = f.Whole(5) <= 2 ? f.Whole(5) : -1;
    s.navSystem = f.Text(6);
    s.network = f.Text(7);
    s.country = f.Text(8);
    s.latitude = f.Degrees(9, 90.0);
    s.longitude = f.Degrees(10, 180.0);
    s.nmea = f.Flag(11);
    s.solution = f.Whole(12) <= 1 ? f.Whole(12) : -1;
    s.generator = f.Text(13);
    s.compression = f.Text(14);
    s.authentication = f.Text(15);
    s.fee = f.Flag(16);
    s.bitrate = f.Whole(17);
    s.misc = f.Text(18);
    return s;
}

Caster CasterOf(const Fields& f) {
    Caster c;
    c.host = f.Text(1);
    c.port = f.Whole(2) <= 65535 ? f.Whole(2) : -1;
    c.identifier = f.Text(3);
    c.operatorName = f.Text(4);
    c.nmea = f.Flag(5);
    c.country = f.Text(6);
    c.latitude = f.Degrees(7, 90.0);
    c.longitude = f.Degrees(8, 180.0);
    c.fallbackHost = f.Text(9);
    c.fallbackPort = f.Whole(10) <= 65535 ? f.Whole(10) : -1;
    c.misc = f.Text(11);
    return c;
}

Network NetworkOf(const Fields& f) {
    Network n;
    n.identifier = f.Text(1);
    n.operatorName = f.Text(2);
    n.authentication = f.Text(3);
    n.fee = f.Flag(4);
    n.webNetwork = f.Text(5);
    n.webStream = f.Text(6);
    n.webRegistration = f.Text(7);
    n.misc = f.Text(8);
    return n;
}

// The fields of a record line, unquoted: a quoted field may hold semicolons, "" is a quote.
std::vector<QString> SplitFields(QStringView line) {
    std::vector<QString> fields;
    QString field;
    bool quoted = false;
    for (qsizetype i = 0; i < line.size(); ++i) {
        const QChar c = line[i];
        if (quoted) {
            if (c != u'"')
                field += c;
            else if (i + 1 < line.size() && line[i + 1] == u'"')
                field += line[++i];
            else
                quoted = false;
        } else if (c == u'"') {
            quoted = true;
        } else if (c == u';') {
            fields.push_back(std::move(field));
            field.clear();
        } else {
            field += c;
        }
    }
    fields.push_back(std::move(field));
    return fields;
}

bool StartsWith(std::string_view line, std::string_view prefix) {
    return line.substr(0, prefix.size()) == prefix;
}

// Passes over a response head: a status line, headers, and the blank line after them.
std::string_view WithoutHead(std::string_view text) {
    if (!StartsWith(text, "SOURCETABLE ") && !StartsWith(text, "HTTP/"))
        return text;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = text.find('\n', at);
        if (end == std::string_view::npos)
            return {};
        if (Trimmed(text.substr(at, end - at)).empty())
            return text.substr(end + 1);
        at = end + 1;
    }
    return {};
}

bool IsRtcm(QStringView format, QChar version) {
    const QStringView f = format.trimmed();
    if (!f.startsWith(QLatin1String("RTCM"), Qt::CaseInsensitive))
        return false;
    QStringView rest = f.mid(4);
    if (rest.startsWith(QLatin1Char(' ')) || rest.startsWith(QLatin1Char('_')))
        rest = rest.mid(1);
    return rest.startsWith(version) && (rest.size() == 1 || !rest.at(1).isDigit());
}

} // namespace

bool Stream::HasPosition() const {
    return !std::isnan(latitude) && !std::isnan(longitude);
}

SourceTable ParseSourceTable(std::string_view text) {
    SourceTable table;
    if (text.size() > kMaxTableBytes) {
        text = text.substr(0, kMaxTableBytes);
        table.truncated = true;
    }
    text = WithoutHead(text);
    std::size_t records = 0;
    for (std::size_t at = 0; at < text.size();) {
        std::size_t end = text.find('\n', at);
        if (end == std::string_view::npos)
            end = text.size();
        const std::string_view line = Trimmed(text.substr(at, end - at));
        at = end + 1;
        if (line.empty())
            continue;
        if (line == "ENDSOURCETABLE") {
            table.complete = true;
            break;
        }
        if (records == kMaxRecords) {
            table.truncated = true;
            break;
        }
        const bool known =
            line.size() <= kMaxLineBytes &&
            (StartsWith(line, "STR;") || StartsWith(line, "CAS;") || StartsWith(line, "NET;"));
        if (!known) {
            ++table.skippedLines;
            continue;
        }
        std::vector<QString> fields = SplitFields(Decode(line));
        const std::string_view type = line.substr(0, 3);
        if (type == "STR") {
            Stream stream = StreamOf(Fields(std::move(fields), 19));
            if (stream.mountpoint.trimmed().isEmpty()) {
                ++table.skippedLines;
                continue;
            }
            table.streams.push_back(std::move(stream));
        } else if (type == "CAS") {
            table.casters.push_back(CasterOf(Fields(std::move(fields), 12)));
        } else {
            table.networks.push_back(NetworkOf(Fields(std::move(fields), 9)));
        }
        ++records;
    }
    return table;
}

bool IsRtcm2(QStringView format) {
    return IsRtcm(format, QLatin1Char('2'));
}

bool IsRtcm3(QStringView format) {
    return IsRtcm(format, QLatin1Char('3'));
}

QString SolutionText(int solution) {
    switch (solution) {
    case 0:
        return g_PellLibApp.XLoadString(pell::ids::NtripSingleBase);
    case 1:
        return g_PellLibApp.XLoadString(pell::ids::NtripNetwork);
    default:
        return {};
    }
}

QString CarrierText(int carrier) {
    switch (carrier) {
    case 1:
        return g_PellLibApp.XLoadString(pell::ids::NtripL1);
    case 2:
        return g_PellLibApp.XLoadString(pell::ids::NtripL1L2);
    default:
        return {};
    }
}

double DistanceKm(double latitude1, double longitude1, double latitude2, double longitude2) {
    constexpr double kRadians = std::numbers::pi / 180.0;
    const double phi1 = latitude1 * kRadians;
    const double phi2 = latitude2 * kRadians;
    const double dPhi = phi2 - phi1;
    const double dLambda = (longitude2 - longitude1) * kRadians;
    const double a = std::pow(std::sin(dPhi / 2), 2) +
                     std::cos(phi1) * std::cos(phi2) * std::pow(std::sin(dLambda / 2), 2);
    return 2 * kMeanEarthRadiusKm * std::asin(std::sqrt(std::clamp(a, 0.0, 1.0)));
}

bool Matches(const Stream& stream, QStringView filter) {
    const QStringView fields[] = {stream.mountpoint, stream.identifier, stream.format,
                                  stream.navSystem,  stream.network,    stream.country};
    for (const QStringView word : filter.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        bool found = false;
        for (const QStringView field : fields)
            found = found || field.contains(word, Qt::CaseInsensitive);
        if (!found)
            return false;
    }
    return true;
}

} // namespace ntrip
