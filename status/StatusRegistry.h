#pragma once

#include "lib/pell_export.h"

#include <QByteArray>
#include <QString>
#include <cstdint>
#include <map>

namespace pell {

// One satellite navigation status code of the receiver: whether a satellite with it is used in
// the position solution, and what it means (the untranslated text of the data file).
struct SatelliteStatus {
    std::uint8_t code = 255;
    bool used = false;
    QString description;
};

using SatelliteStatusTable = std::map<std::uint8_t, SatelliteStatus>;

// Reads a SatelliteNavigationStatusRegistry document. Anything unreadable gives an empty table;
// an entry without a valid "ID" (0..254) is skipped, and of two entries with the same code the
// first one counts.
PELL_EXPORT SatelliteStatusTable ParseStatusRegistry(const QByteArray& xml);
// The same from a file; a missing file gives an empty table.
PELL_EXPORT SatelliteStatusTable LoadStatusRegistry(const QString& path);

} // namespace pell
