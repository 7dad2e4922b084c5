#include "Connection.h"

#include "Model.h"
#include "Simulator.h"
#include "lib/PellLib.h"
#include "rxio/Pipe.h"

#include <QUrl>
#include <stdexcept>

namespace dorrit {

std::optional<ReceiverTarget> ReceiverTarget::FromSerial(const QString& text) {
    const QString device = text.section(QLatin1Char('@'), 0, 0);
    bool ok = true;
    const int rate =
        text.contains(QLatin1Char('@')) ? text.section(QLatin1Char('@'), 1).toInt(&ok) : 115200;
    if (device.isEmpty() || !ok || rate <= 0)
        return std::nullopt;
    return ReceiverTarget{Serial, device, rate};
}

std::optional<ReceiverTarget> ReceiverTarget::FromUrl(const QString& text) {
    const QUrl url(text);
    if (url.scheme() != QLatin1String("tcp") || url.host().isEmpty() || url.port() <= 0)
        return std::nullopt;
    return ReceiverTarget{Tcp, url.host(), url.port()};
}

QString ReceiverTarget::Describe() const {
    switch (kind) {
    case Simulator:
        return QObject::tr("simulated receiver (%1)").arg(name);
    case Serial:
        return QObject::tr("%1 at %2 baud").arg(name).arg(number);
    case Tcp:
        return QStringLiteral("%1:%2").arg(name).arg(number);
    }
    return {};
}

Connection::Connection()
    : m_model(std::make_shared<const rxsim::CModel>(
          rxsim::CModel::Load(rxsim::CModel::DefaultFile()))) {}

Connection::~Connection() {
    Close();
}

QStringList Connection::SimulatorProfiles() const {
    QStringList names;
    for (const rxsim::Profile& p : m_model->Profiles())
        names << p.name;
    return names;
}

bool Connection::Open(const ReceiverTarget& requested, QString& error) {
    Close();
    ReceiverTarget target = requested;
    if (target.kind == ReceiverTarget::Simulator && target.name.isEmpty())
        target.name = m_model->Profiles().front().name;
    static const rxio::EPortType types[] = {rxio::EPortType::InProcess,
                                            rxio::EPortType::LocalSerial, rxio::EPortType::Tcp};
    const QString portName =
        target.kind == ReceiverTarget::Serial ? target.name : target.Describe();
    auto address = std::make_shared<rxio::CPortAddr>(types[target.kind], portName);
    if (!PreOpenPort(address)) {
        error = tr("Opening %1 was refused.").arg(target.Describe());
        return false;
    }
    rxio::LinkResult opened;
    switch (target.kind) {
    case ReceiverTarget::Simulator:
        try {
            m_simulator = std::make_unique<rxsim::CSimulator>(m_model, target.name);
        } catch (const std::exception& e) {
            opened.error = QString::fromUtf8(e.what());
            break;
        }
        {
            auto [mine, theirs] = rxio::CPipeEnd::CreatePair();
            m_simulatorEnd = std::move(theirs);
            m_simulator->Serve(m_simulatorEnd.get());
            opened = rxio::OpenInProcessLink(std::move(mine), portName);
        }
        break;
    case ReceiverTarget::Serial:
        opened = rxio::OpenSerialLink(target.name, target.number, false);
        break;
    case ReceiverTarget::Tcp:
        opened = rxio::OpenTcpLink(target.name, static_cast<quint16>(target.number), 5000);
        break;
    }
    if (!opened.link) {
        error = opened.error;
        PostClosePort(address);
        return false;
    }
    m_openPort = address;
    m_receiver = rxio::CReceiverConnection::Create(std::move(opened.link));
    connect(m_receiver.get(), &rxio::CReceiverConnection::identified, this,
            &Connection::identified);
    connect(m_receiver.get(), &rxio::CReceiverConnection::connectionLost, this,
            [this](const QString& reason) {
                ReleasePort();
                emit lost(reason);
            });
    m_receiver->Identify();
    return true;
}

void Connection::Close() {
    if (m_receiver)
        m_receiver->Disconnect();
    ReleasePort();
    m_receiver.reset();
    m_simulatorEnd.reset();
    m_simulator.reset();
}

void Connection::ReleasePort() {
    if (m_openPort)
        PostClosePort(std::exchange(m_openPort, nullptr));
}

} // namespace dorrit
