#include "Predict.h"

#include "status/SatelliteInfoEx.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QStringList>
#include <numbers>

namespace pellctl {

namespace {

constexpr double kDegrees = 180.0 / std::numbers::pi;

// One decimal, as printed: the JSON carries the same number as the table.
double Tenth(double value) {
    return QString::number(value, 'f', 1).toDouble();
}

} // namespace

std::optional<QDateTime> ParseUtc(const QString& text) {
    static const QRegularExpression form(
        QStringLiteral(R"(^\d{4}-\d\d-\d\dT\d\d:\d\d(:\d\d(\.\d{1,3})?)?(Z|[+-]\d\d:\d\d)$)"));
    if (!form.match(text).hasMatch())
        return std::nullopt;
    const QDateTime parsed = QDateTime::fromString(text, Qt::ISODateWithMs);
    if (!parsed.isValid())
        return std::nullopt;
    const QDateTime utc = parsed.toUTC();
    if (utc < QDateTime(QDate(1980, 1, 6), QTime(0, 0), Qt::UTC))
        return std::nullopt;
    return utc;
}

std::optional<vex::POS_GEO> ParseObserver(const QString& text) {
    static const QRegularExpression number(QStringLiteral(R"(^[+-]?\d{1,9}(\.\d{1,12})?$)"));
    const QStringList parts = text.split(QLatin1Char(','));
    if (parts.size() != 3)
        return std::nullopt;
    double values[3];
    for (int i = 0; i < 3; ++i) {
        if (!number.match(parts[i]).hasMatch())
            return std::nullopt;
        values[i] = parts[i].toDouble(); // QString reads without the locale
    }
    if (std::abs(values[0]) > 90.0 || std::abs(values[1]) > 180.0 ||
        std::abs(values[2]) > 100'000.0)
        return std::nullopt;
    return vex::POS_GEO{values[0] / kDegrees, values[1] / kDegrees, values[2]};
}

std::vector<Prediction> Predict(const rxio::CAlmanacStorage& store, const QDateTime& at,
                                const vex::POS_GEO& observer) {
    const rxio::GpsTime t = rxio::GpsTime::FromUtc(at);
    std::vector<Prediction> out;
    for (const int usi : store.Satellites()) {
        const auto direction = store.CalculateAZ_EL(usi, t, observer);
        if (!direction)
            continue;
        CSatelliteInfoEx::SatelliteInfo satellite;
        satellite.USI = static_cast<std::uint8_t>(usi);
        out.push_back({usi, CSatelliteInfoEx(satellite).GetSVN(),
                       Tenth(direction->azimuth * kDegrees),
                       Tenth(direction->elevation * kDegrees)});
    }
    return out;
}

QByteArray PredictionText(const std::vector<Prediction>& predictions) {
    QStringList lines{QStringLiteral("sat      az     el")};
    for (const Prediction& p : predictions)
        lines << QStringLiteral("%1 %2 %3%4")
                     .arg(p.name, -4)
                     .arg(p.azimuth, 6, 'f', 1)
                     .arg(p.elevation, 6, 'f', 1)
                     .arg(p.up() ? QStringLiteral("  up") : QString());
    return (lines.join(QLatin1Char('\n')) + QLatin1Char('\n')).toUtf8();
}

QByteArray PredictionJson(const std::vector<Prediction>& predictions, const QDateTime& at,
                          const vex::POS_GEO& observer) {
    QJsonArray satellites;
    for (const Prediction& p : predictions)
        satellites.append(QJsonObject{{QStringLiteral("id"), p.name},
                                      {QStringLiteral("usi"), p.usi},
                                      {QStringLiteral("azimuth"), p.azimuth},
                                      {QStringLiteral("elevation"), p.elevation},
                                      {QStringLiteral("up"), p.up()}});
    const QJsonObject out{
        {QStringLiteral("at"), at.toString(Qt::ISODate)},
        {QStringLiteral("observer"), QJsonObject{{QStringLiteral("lat"), observer.lat * kDegrees},
                                                 {QStringLiteral("lon"), observer.lon * kDegrees},
                                                 {QStringLiteral("height"), observer.height}}},
        {QStringLiteral("satellites"), satellites}};
    return QJsonDocument(out).toJson(QJsonDocument::Compact) + '\n';
}

} // namespace pellctl
