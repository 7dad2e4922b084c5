#pragma once

#include "rxio/rxio_export.h"

#include <QString>

namespace rxio {

// Numeric port kinds as the library's hooks see them; a controller's internal devices are
// always on local serial ports.
enum class EPortType : int { LocalSerial = 0, Tcp = 1, Bluetooth = 2, InProcess = 3 };

// The address of a port a host is about to open or has closed.
class RXIO_EXPORT IPortAddr {
public:
    virtual ~IPortAddr();
    virtual int GetType() const = 0;
    // Device name for a serial port ("/dev/ttyS0", "COM1"), "host:port" for TCP.
    virtual QString GetName() const = 0;
};

class RXIO_EXPORT CPortAddr final : public IPortAddr {
public:
    CPortAddr(EPortType type, QString name);
    int GetType() const override;
    QString GetName() const override;

private:
    EPortType m_type;
    QString m_name;
};

} // namespace rxio
