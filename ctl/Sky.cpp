#include "Sky.h"

#include "status/SatelliteInfoEx.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStringList>
#include <algorithm>
#include <numbers>

namespace pellctl {

namespace {

using Satellite = rxio::ISatListListener::SatelliteInfo;
using rxio::ESolutionType;

constexpr double kDegrees = 180.0 / std::numbers::pi;
constexpr std::uint8_t kStatusUsed = 0;

QString FixName(ESolutionType type) {
    static const char* const names[] = {"none",
                                        "standalone",
                                        "differential",
                                        "RTK fixed",
                                        "RTK float",
                                        "dead reckoning",
                                        "manual",
                                        "simulated",
                                        "estimated",
                                        "SBAS",
                                        "PPP",
                                        "PPP converged",
                                        "L-band",
                                        "network RTK float",
                                        "network RTK fixed",
                                        "beacon",
                                        "heading",
                                        "heading fixed",
                                        "other"};
    static_assert(std::size(names) == rxio::kSolutionTypeCount);
    const int index = static_cast<int>(type);
    return QLatin1String(index >= 0 && index < rxio::kSolutionTypeCount ? names[index] : "other");
}

bool HasFix(const Epoch& epoch) {
    return epoch.position && epoch.position->solution != ESolutionType::None;
}

QString Utc(const Epoch& epoch) {
    return epoch.position && epoch.position->utc.isValid()
               ? epoch.position->utc.toString(Qt::ISODate)
               : QString();
}

std::optional<int> Elevation(const Satellite& s) {
    return s.Elevation >= -90 && s.Elevation <= 90 ? std::optional<int>(s.Elevation) : std::nullopt;
}

std::optional<int> Azimuth(const Satellite& s) {
    return s.Azimuth <= 360 ? std::optional<int>(s.Azimuth) : std::nullopt;
}

// The long name, as the satellite list titles its constellations; never translated, as scripts
// read it.
QString SystemName(const CSatelliteInfoEx& record) {
    return CSatelliteInfoEx::GetSystem(record.GetConstellation(false), false);
}

QString Column(const std::optional<int>& value) {
    return value ? QString::number(*value) : QStringLiteral("-");
}

} // namespace

void CEpochCollector::OnSatellites(const std::vector<SatelliteInfo>& sky) {
    Flush();
    m_sky = sky;
    if (m_held)
        m_held();
}

void CEpochCollector::OnPosition(const Position& position) {
    Epoch epoch{std::exchange(m_sky, std::nullopt).value_or(std::vector<SatelliteInfo>{}),
                position};
    m_sink(epoch);
}

void CEpochCollector::Flush() {
    if (m_sky)
        m_sink({*std::exchange(m_sky, std::nullopt), std::nullopt});
}

QByteArray EpochText(const Epoch& epoch) {
    const QString utc = Utc(epoch);
    QString header = QStringLiteral("epoch %1  fix: %2")
                         .arg(utc.isEmpty() ? QStringLiteral("(no time)") : utc,
                              epoch.position ? FixName(epoch.position->solution)
                                             : QStringLiteral("(not reported)"));
    if (HasFix(epoch)) {
        const auto& geo = epoch.position->geo;
        header += QStringLiteral("  %1 %2 %3 m")
                      .arg(geo.lat * kDegrees, 0, 'f', 7)
                      .arg(geo.lon * kDegrees, 0, 'f', 7)
                      .arg(geo.height, 0, 'f', 2);
    }
    const auto usedCount = std::ranges::count(epoch.sky, kStatusUsed, &Satellite::SS);
    header += QStringLiteral("  satellites: %1, used: %2").arg(epoch.sky.size()).arg(usedCount);

    // Header and rows share one layout, so the columns line up whatever the values.
    const auto row = [](const QString& sat, const QString& system, const QString& az,
                        const QString& el, const QString& used, const QString& snr) {
        return QStringLiteral("  %1 %2 %3 %4  %5  %6")
            .arg(sat, -4)
            .arg(system, -8)
            .arg(az, 4)
            .arg(el, 4)
            .arg(used, -4)
            .arg(snr)
            .trimmed()
            .prepend(QStringLiteral("  "));
    };
    QStringList lines{header};
    if (!epoch.sky.empty())
        lines << row(QStringLiteral("sat"), QStringLiteral("system"), QStringLiteral("az"),
                     QStringLiteral("el"), QStringLiteral("used"),
                     QStringLiteral("SNR (slot:dB-Hz)"));
    for (const Satellite& s : epoch.sky) {
        QStringList snr;
        for (const auto& [slot, value] : s.SNR)
            snr << QStringLiteral("%1:%2").arg(slot).arg(value);
        const CSatelliteInfoEx record(s);
        lines << row(record.GetSVN(), SystemName(record), Column(Azimuth(s)), Column(Elevation(s)),
                     s.SS == kStatusUsed ? QStringLiteral("yes") : QStringLiteral("no"),
                     snr.join(QLatin1Char(' ')));
    }
    return (lines.join(QLatin1Char('\n')) + QLatin1Char('\n')).toUtf8();
}

QByteArray EpochJson(const Epoch& epoch) {
    QJsonObject out;
    const QString utc = Utc(epoch);
    out[QStringLiteral("utc")] = utc.isEmpty() ? QJsonValue() : QJsonValue(utc);
    out[QStringLiteral("fix")] =
        epoch.position ? QJsonValue(FixName(epoch.position->solution)) : QJsonValue();
    if (HasFix(epoch)) {
        const auto& geo = epoch.position->geo;
        out[QStringLiteral("position")] = QJsonObject{{QStringLiteral("lat"), geo.lat * kDegrees},
                                                      {QStringLiteral("lon"), geo.lon * kDegrees},
                                                      {QStringLiteral("height"), geo.height}};
    }
    if (epoch.position && epoch.position->satellitesUsed >= 0)
        out[QStringLiteral("satellitesUsed")] = epoch.position->satellitesUsed;
    QJsonArray satellites;
    for (const Satellite& s : epoch.sky) {
        QJsonObject snr;
        for (const auto& [slot, value] : s.SNR)
            snr[QString::number(slot)] = value;
        const CSatelliteInfoEx record(s);
        const unsigned number = record.SatelliteNumber();
        const auto az = Azimuth(s);
        const auto el = Elevation(s);
        satellites.append(QJsonObject{
            {QStringLiteral("id"), record.GetSVN()},
            {QStringLiteral("system"), SystemName(record)},
            {QStringLiteral("number"), number < 255 ? QJsonValue(int(number)) : QJsonValue()},
            {QStringLiteral("usi"), s.USI},
            {QStringLiteral("azimuth"), az ? QJsonValue(*az) : QJsonValue()},
            {QStringLiteral("elevation"), el ? QJsonValue(*el) : QJsonValue()},
            {QStringLiteral("snr"), snr},
            {QStringLiteral("used"), s.SS == kStatusUsed},
        });
    }
    out[QStringLiteral("satellites")] = satellites;
    return QJsonDocument(out).toJson(QJsonDocument::Compact) + '\n';
}

} // namespace pellctl
