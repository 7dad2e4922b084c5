#pragma once

#include "lib/pell_export.h"
#include "rxio/PortAddr.h"

#include <QString>
#include <memory>
#include <optional>

namespace pell {

// Where the receiver is: the built-in simulator, a serial port or a TCP address.
struct PELL_EXPORT ReceiverTarget {
    enum EKind { Simulator, Serial, Tcp };
    EKind kind = Simulator;
    QString name;        // simulator profile (empty: the first), serial device, or host
    int number = 0;      // serial rate in baud, or TCP port
    bool rtsCts = false; // serial hardware flow control

    bool operator==(const ReceiverTarget&) const = default;

    // "DEVICE[@RATE][,rtscts]"
    static std::optional<ReceiverTarget> FromSerial(const QString& text);
    // "tcp://HOST:PORT" or "HOST:PORT"
    static std::optional<ReceiverTarget> FromUrl(const QString& text);

    QString Describe() const;
    // The address the hooks are told about.
    std::shared_ptr<const rxio::IPortAddr> PortAddress() const;
};

} // namespace pell
