#include "config/NtripSourceTable.h"

#include "lib/PellLib.h"
#include "receiver/VexCommands.h"
#include "receiver/VexReceiverMate.h"
#include "resources/StringIds.h"

#include <QList>
#include <QStringList>
#include <algorithm>
#include <cmath>
#include <numbers>

namespace ntrip {
namespace {

constexpr double kMeanEarthRadiusKm = 6371.0088;

QStringView Trimmed(QStringView text) {
    while (!text.empty() && (text.front() == u' ' || text.front() == u'\t'))
        text = text.mid(1);
    while (!text.empty() && (text.back() == u' ' || text.back() == u'\t' || text.back() == u'\r'))
        text.chop(1);
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

bool StartsWith(QStringView line, const char* prefix) {
    return line.startsWith(QLatin1String(prefix));
}

// The next line of `text` from `at`, without its line end; `at` moves past it.
QStringView NextLine(QStringView text, qsizetype& at) {
    qsizetype end = text.indexOf(u'\n', at);
    if (end < 0)
        end = text.size();
    const QStringView line = Trimmed(text.mid(at, end - at));
    at = end + 1;
    return line;
}

// Passes over a response head: a status line, headers, and the blank line after them. A head
// that never ends in a blank line is taken to be the status line alone.
QStringView WithoutHead(QStringView text) {
    if (!StartsWith(text, "SOURCETABLE ") && !StartsWith(text, "HTTP/"))
        return text;
    qsizetype at = 0;
    NextLine(text, at);
    const qsizetype afterStatus = at;
    while (at < text.size())
        if (NextLine(text, at).empty())
            return text.mid(at);
    return text.mid(std::min(afterStatus, text.size()));
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

SourceTable ParseSourceTable(QStringView text) {
    SourceTable table;
    if (text.size() > kMaxTableChars) {
        text = text.left(kMaxTableChars);
        table.truncated = true;
    }
    text = WithoutHead(text);
    std::size_t records = 0;
    for (qsizetype at = 0; at < text.size();) {
        const QStringView line = NextLine(text, at);
        if (line.empty())
            continue;
        if (line == QLatin1String("ENDSOURCETABLE")) {
            table.complete = true;
            break;
        }
        if (records == kMaxRecords) {
            table.truncated = true;
            break;
        }
        const bool known =
            line.size() <= kMaxLineChars &&
            (StartsWith(line, "STR;") || StartsWith(line, "CAS;") || StartsWith(line, "NET;"));
        if (!known) {
            ++table.skippedLines;
            continue;
        }
        std::vector<QString> fields = SplitFields(line);
        if (StartsWith(line, "STR")) {
            Stream stream = StreamOf(Fields(std::move(fields), 19));
            if (stream.mountpoint.trimmed().isEmpty()) {
                ++table.skippedLines;
                continue;
            }
            table.streams.push_back(std::move(stream));
        } else if (StartsWith(line, "CAS")) {
            table.casters.push_back(CasterOf(Fields(std::move(fields), 12)));
        } else {
            table.networks.push_back(NetworkOf(Fields(std::move(fields), 9)));
        }
        ++records;
    }
    return table;
}

SourceTable ReadSourceTable(const std::shared_ptr<rxio::IReceiver>& receiver,
                            std::stop_token cancel) {
    CVexReceiverMate mate(receiver);
    mate.SetTimeout(kReadTimeoutMs);
    mate.SetCancel(std::move(cancel));
    return ParseSourceTable(mate.Run(pell::vexcmd::Print(QStringLiteral("ntrip/caster/table")),
                                     CVexReceiverMate::RemoveQuotes));
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
