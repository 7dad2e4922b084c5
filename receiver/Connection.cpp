#include "receiver/Connection.h"

#include "lib/PellLib.h"
#include "rxio/Pipe.h"

#include <stdexcept>

namespace pell {

namespace {

// Long enough for a slow radio link; the user can cancel sooner.
constexpr int kTcpTimeoutMs = 15000;

} // namespace

PortHooks PortHooks::Library() {
    return {&PreOpenPort, &PostClosePort};
}

Connection::Connection(rxio::InProcessPeerFactory simulators, PortHooks hooks)
    : m_simulators(std::move(simulators)), m_hooks(std::move(hooks)) {}

Connection::~Connection() {
    TearDown();
}

void Connection::Open(const ReceiverTarget& target) {
    TearDown();
    m_identity = {};
    m_target = target;
    const auto address = m_target.PortAddress();
    if (!m_hooks.preOpen(address)) {
        SetState(EState::Closed, tr("Opening %1 was refused.").arg(m_target.Describe()));
        return;
    }
    m_openPort = address;
    switch (m_target.kind) {
    case ReceiverTarget::Simulator: {
        if (!m_simulators) {
            Fail(tr("This program has no simulated receiver."));
            return;
        }
        auto [mine, theirs] = rxio::CPipeEnd::CreatePair();
        try {
            m_simulator = m_simulators(m_target.name, std::move(theirs));
        } catch (const std::exception& e) {
            Fail(QString::fromUtf8(e.what()));
            return;
        }
        Attach(rxio::OpenInProcessLink(std::move(mine), address->GetName()).link);
        return;
    }
    case ReceiverTarget::Serial: {
        rxio::LinkResult opened =
            rxio::OpenSerialLink(m_target.name, m_target.number, m_target.rtsCts);
        if (opened.link)
            Attach(std::move(opened.link));
        else
            Fail(opened.error);
        return;
    }
    case ReceiverTarget::Tcp:
        m_attempt = std::make_unique<rxio::CTcpLinkAttempt>(
            m_target.name, static_cast<quint16>(m_target.number), kTcpTimeoutMs);
        // The attempt is in the middle of a signal: it goes once that is over.
        connect(m_attempt.get(), &rxio::CTcpLinkAttempt::connected, this, [this] {
            std::unique_ptr<rxio::CLink> link = m_attempt->TakeLink();
            m_attempt.release()->deleteLater();
            Attach(std::move(link));
        });
        connect(m_attempt.get(), &rxio::CTcpLinkAttempt::failed, this,
                [this](const QString& error) {
                    m_attempt.release()->deleteLater();
                    Fail(error);
                });
        SetState(EState::Connecting);
        return;
    }
}

void Connection::Close() {
    TearDown();
    m_identity = {};
    SetState(EState::Closed);
}

void Connection::Attach(std::unique_ptr<rxio::CLink> link) {
    m_receiver = rxio::CReceiverConnection::Create(std::move(link));
    connect(m_receiver.get(), &rxio::CReceiverConnection::identified, this,
            [this](const rxio::ReceiverIdentity& identity) {
                m_identity = identity;
                emit identified();
            });
    connect(m_receiver.get(), &rxio::CReceiverConnection::connectionLost, this,
            [this](const QString& reason) {
                // The receiver object stays until the next Open or Close: it is the sender.
                ReleasePort();
                SetState(EState::Lost, reason);
            });
    SetState(EState::Connected);
    m_receiver->Identify();
}

void Connection::Fail(const QString& error) {
    TearDown();
    SetState(EState::Closed, error);
}

void Connection::TearDown() {
    m_attempt.reset();
    if (m_receiver)
        m_receiver->Disconnect();
    m_receiver.reset();
    m_simulator.reset();
    ReleasePort();
}

void Connection::ReleasePort() {
    if (m_openPort)
        m_hooks.postClose(std::exchange(m_openPort, nullptr));
}

void Connection::SetState(EState state, const QString& message) {
    m_state = state;
    m_message = message;
    emit stateChanged();
}

} // namespace pell
