#include "rxio/Link.h"

#include <QSerialPort>
#include <QTcpSocket>

namespace rxio {

CLink::CLink(std::unique_ptr<QIODevice> device, std::shared_ptr<const IPortAddr> address)
    : m_device(std::move(device)), m_address(std::move(address)) {
    connect(m_device.get(), &QIODevice::readChannelFinished, this,
            [this] { ReportLost(tr("The receiver closed the connection.")); });
    if (auto* socket = qobject_cast<QTcpSocket*>(m_device.get())) {
        connect(socket, &QAbstractSocket::errorOccurred, this,
                [this, socket](QAbstractSocket::SocketError e) {
                    ReportLost(e == QAbstractSocket::RemoteHostClosedError
                                   ? tr("The receiver closed the connection.")
                                   : socket->errorString());
                });
    } else if (auto* serial = qobject_cast<QSerialPort*>(m_device.get())) {
        connect(serial, &QSerialPort::errorOccurred, this,
                [this, serial](QSerialPort::SerialPortError e) {
                    if (e != QSerialPort::NoError && e != QSerialPort::TimeoutError)
                        ReportLost(tr("Serial port error: %1").arg(serial->errorString()));
                });
    }
}

CLink::~CLink() {
    Close();
}

void CLink::Close() {
    // Closing on purpose is not a loss.
    m_lost = true;
    if (!m_device->isOpen())
        return;
    // The last lines written (a stop of live data, say) go out before the port closes; bounded,
    // as a stalled port must not hold up the caller.
    constexpr int kFlushMs = 1000;
    if (m_device->bytesToWrite() > 0)
        m_device->waitForBytesWritten(kFlushMs);
    m_device->close();
}

void CLink::ReportLost(const QString& reason) {
    if (m_lost)
        return;
    m_lost = true;
    emit lost(reason);
}

LinkResult OpenSerialLink(const QString& device, qint32 rate, bool rtsCts) {
    auto port = std::make_unique<QSerialPort>(device);
    port->setBaudRate(rate);
    port->setDataBits(QSerialPort::Data8);
    port->setParity(QSerialPort::NoParity);
    port->setStopBits(QSerialPort::OneStop);
    port->setFlowControl(rtsCts ? QSerialPort::HardwareControl : QSerialPort::NoFlowControl);
    if (!port->open(QIODevice::ReadWrite))
        return {nullptr, QObject::tr("Cannot open %1: %2").arg(device, port->errorString())};
    auto address = std::make_shared<CPortAddr>(EPortType::LocalSerial, device);
    return {std::make_unique<CLink>(std::move(port), std::move(address)), {}};
}

namespace {

QString TcpError(const QString& host, quint16 port, const QString& reason) {
    return QObject::tr("Cannot connect to %1:%2: %3").arg(host).arg(port).arg(reason);
}

std::unique_ptr<CLink> TcpLink(std::unique_ptr<QTcpSocket> socket, const QString& host,
                               quint16 port) {
    socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    auto address = std::make_shared<CPortAddr>(EPortType::Tcp,
                                               host + QLatin1Char(':') + QString::number(port));
    return std::make_unique<CLink>(std::move(socket), std::move(address));
}

} // namespace

LinkResult OpenTcpLink(const QString& host, quint16 port, int timeoutMs) {
    auto socket = std::make_unique<QTcpSocket>();
    socket->connectToHost(host, port);
    if (!socket->waitForConnected(timeoutMs))
        return {nullptr, TcpError(host, port, socket->errorString())};
    return {TcpLink(std::move(socket), host, port), {}};
}

CTcpLinkAttempt::CTcpLinkAttempt(const QString& host, quint16 port, int timeoutMs)
    : m_host(host), m_port(port), m_socket(std::make_unique<QTcpSocket>()) {
    connect(m_socket.get(), &QAbstractSocket::connected, this, [this] {
        m_timeout.stop();
        emit connected();
    });
    connect(m_socket.get(), &QAbstractSocket::errorOccurred, this,
            [this] { Fail(m_socket->errorString()); });
    m_timeout.setSingleShot(true);
    connect(&m_timeout, &QTimer::timeout, this, [this] { Fail(tr("no answer")); });
    // Started from the event loop, so that even an error the socket reports at once reaches a
    // caller who connects to the signals after construction.
    QMetaObject::invokeMethod(
        this,
        [this, timeoutMs] {
            m_timeout.start(timeoutMs);
            m_socket->connectToHost(m_host, m_port);
        },
        Qt::QueuedConnection);
}

CTcpLinkAttempt::~CTcpLinkAttempt() {
    if (m_socket)
        m_socket->abort();
}

std::unique_ptr<CLink> CTcpLinkAttempt::TakeLink() {
    if (!m_socket || m_socket->state() != QAbstractSocket::ConnectedState)
        return nullptr;
    m_socket->disconnect(this);
    return TcpLink(std::move(m_socket), m_host, m_port);
}

void CTcpLinkAttempt::Fail(const QString& reason) {
    m_timeout.stop();
    m_socket->disconnect(this);
    m_socket->abort();
    emit failed(TcpError(m_host, m_port, reason));
}

IInProcessPeer::~IInProcessPeer() = default;

LinkResult OpenInProcessLink(std::unique_ptr<QIODevice> end, const QString& name) {
    auto address = std::make_shared<CPortAddr>(EPortType::InProcess, name);
    return {std::make_unique<CLink>(std::move(end), std::move(address)), {}};
}

} // namespace rxio
