#pragma once

#include "rxio/PortAddr.h"
#include "rxio/rxio_export.h"

#include <QIODevice>
#include <QObject>
#include <QString>
#include <QTimer>
#include <functional>
#include <memory>

class QTcpSocket;

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
// Connects to HOST:PORT, blocking for at most `timeoutMs`; for tools and tests without a window.
RXIO_EXPORT LinkResult OpenTcpLink(const QString& host, quint16 port, int timeoutMs);

// Connects to HOST:PORT without blocking: once the event loop has run, exactly one of
// `connected` or `failed` follows, unless the attempt is destroyed first, which cancels it.
class RXIO_EXPORT CTcpLinkAttempt final : public QObject {
    Q_OBJECT
public:
    CTcpLinkAttempt(const QString& host, quint16 port, int timeoutMs);
    ~CTcpLinkAttempt() override;

    // The link after `connected`; null before, and after the first call.
    std::unique_ptr<CLink> TakeLink();

signals:
    void connected();
    void failed(const QString& error);

private:
    void Fail(const QString& reason);

    QString m_host;
    quint16 m_port;
    std::unique_ptr<QTcpSocket> m_socket;
    QTimer m_timeout;
};

// Whatever serves the far end of an in-process link (the simulated receiver); the link's far end
// goes with it.
class RXIO_EXPORT IInProcessPeer {
public:
    virtual ~IInProcessPeer();
};

// Starts a peer named `name` that serves `farEnd`. Throws std::runtime_error, its message meant
// for the user, when there is no such peer. An empty name is the peer's default.
using InProcessPeerFactory = std::function<std::unique_ptr<IInProcessPeer>(
    const QString& name, std::unique_ptr<QIODevice> farEnd)>;

// Wraps one end of an in-process pipe (see Pipe.h).
RXIO_EXPORT LinkResult OpenInProcessLink(std::unique_ptr<QIODevice> end, const QString& name);

} // namespace rxio
