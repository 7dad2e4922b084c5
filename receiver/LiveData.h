#pragma once

#include "lib/pell_export.h"
#include "rxio/Receiver.h"

#include <QString>

namespace pell {

// One line that asks for every NMEA message set of the live data on the controller's own port,
// and one that stops them (docs/commands.md).
PELL_EXPORT QString LiveDataStartLine();
PELL_EXPORT QString LiveDataStopLine();

// Sends the line and waits for nothing: a receiver that speaks only NMEA never answers, and
// streams what it streams anyway. False when it could not be sent (no connection).
PELL_EXPORT bool StartLiveData(rxio::IReceiver& receiver);
PELL_EXPORT bool StopLiveData(rxio::IReceiver& receiver);

} // namespace pell
