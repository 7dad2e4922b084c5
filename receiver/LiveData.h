#pragma once

#include "lib/pell_export.h"
#include "rxio/Receiver.h"

#include <QString>
#include <memory>

namespace pell {

// One line that asks for every NMEA message set of the live data on the controller's own port,
// and one that stops them (docs/commands.md).
PELL_EXPORT QString LiveDataStartLine();
PELL_EXPORT QString LiveDataStopLine();

// Sends the line and waits for nothing: a receiver that speaks only NMEA never answers, and
// streams what it streams anyway. False when it could not be sent (no connection).
PELL_EXPORT bool StartLiveData(rxio::IReceiver& receiver);
PELL_EXPORT bool StopLiveData(rxio::IReceiver& receiver);

// The receiver's fixes while it lives: GGA on the controller's own port unless the port sends it
// already, and the port as it was afterwards. For a window that wants the receiver's position
// (distances) without the whole of the live data.
class PELL_EXPORT CPositionFeed {
public:
    explicit CPositionFeed(std::shared_ptr<rxio::IReceiver> receiver);
    ~CPositionFeed();
    CPositionFeed(const CPositionFeed&) = delete;
    CPositionFeed& operator=(const CPositionFeed&) = delete;

private:
    std::shared_ptr<rxio::IReceiver> m_receiver;
    bool m_started = false;
};

} // namespace pell
