#pragma once

#include "rxio/PortAddr.h"
#include "rxio/rxio_export.h"

#include <QIODevice>
#include <QObject>
#include <QString>
#include <memory>

namespace rxio {

// An open byte stream to a receiver: serial port, TCP connection or in-process pipe.
class RXIO_EXPORT CLink : public QObject {
    Q_OBJECT
public:
    CLink(std::unique_ptr<QIODevice> device, std::shared_ptr<const IPortAddr> address);
    ~CLink() override;

    QIODevice& Device() { return *m_device; }
    const std::shared_ptr<const IPortAddr>& Address() const { return m_address; }
    void Close();

signals:
    // The stream is gone for good; `reason` is for the user.
    void lost(const QString& reason);

protected:
    void ReportLost(const QString& reason);

private:
    std::unique_ptr<QIODevice> m_device;
    std::shared_ptr<const IPortAddr> m_address;
    bool m_lost = false;
};

struct LinkResult {
    std::unique_ptr<CLink> link;
    QString error; // set when link is null
};

// Opens a serial port, 8 data bits, no parity, one stop bit.
RXIO_EXPORT LinkResult OpenSerialLink(const QString& device, qint32 rate, bool rtsCts);
// Connects to HOST:PORT, waiting at most `timeoutMs`.
RXIO_EXPORT LinkResult OpenTcpLink(const QString& host, quint16 port, int timeoutMs);
// Wraps one end of an in-process pipe (see Pipe.h).
RXIO_EXPORT LinkResult OpenInProcessLink(std::unique_ptr<QIODevice> end, const QString& name);

} // namespace rxio
