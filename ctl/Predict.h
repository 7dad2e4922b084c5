#pragma once

#include "rxio/Almanac.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <optional>
#include <vector>

namespace pellctl {

// "2020-01-01T12:00:00Z", seconds (up to milliseconds) optional, an explicit offset ("+01:00")
// also taken;
// nothing without a zone (a local time would be a guess) or before the GPS epoch (1980-01-06).
std::optional<QDateTime> ParseUtc(const QString& text);
// "LAT,LON,HEIGHT" in degrees, degrees, metres, with decimal points: latitude within ±90,
// longitude within ±180, height within ±100 km. Radians and metres.
std::optional<vex::POS_GEO> ParseObserver(const QString& text);

struct Prediction {
    int usi = 0;
    QString name;     // G05
    double azimuth;   // degrees, 0..360
    double elevation; // degrees, -90..90
    bool up() const { return elevation > 0.0; }
};

// Every satellite of the store seen from `observer` at `at`, in the store's order (by
// constellation, then number).
std::vector<Prediction> Predict(const rxio::CAlmanacStorage& store, const QDateTime& at,
                                const vex::POS_GEO& observer);

// An aligned table, one satellite a row, "up" beside those above the horizon.
QByteArray PredictionText(const std::vector<Prediction>& predictions);
// One compact JSON object on one line (fields in docs/pellctl.md).
QByteArray PredictionJson(const std::vector<Prediction>& predictions, const QDateTime& at,
                          const vex::POS_GEO& observer);

} // namespace pellctl
