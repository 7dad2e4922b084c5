#pragma once

#include "lib/pell_export.h"
#include "receiver/ReceiverTarget.h"
#include "rxio/Link.h"
#include "rxio/ReceiverConnection.h"

#include <QObject>
#include <QString>
#include <functional>
#include <memory>

namespace pell {

// The hooks a host calls around a port; the library's own unless a test counts them.
struct PELL_EXPORT PortHooks {
    using Hook = std::function<bool(std::shared_ptr<const rxio::IPortAddr>)>;
    Hook preOpen;
    Hook postClose;
    static PortHooks Library();
};

// A host's one receiver connection, opened and closed as a host must: PreOpenPort before
// opening, and PostClosePort once for each, whichever way the port ends (closed, failed, lost,
// cancelled).
class PELL_EXPORT Connection final : public QObject {
    Q_OBJECT
public:
    enum class EState {
        Closed,     // Message() holds why the last attempt failed, if it did
        Connecting, // a TCP connection on its way; Close() cancels it
        Connected,
        Lost, // Message() holds why; Identity() is the receiver that was there
    };

    // `simulators` makes the far end of a simulated receiver's link (rxsim::InProcessReceivers);
    // without one, a simulator target fails to open.
    explicit Connection(rxio::InProcessPeerFactory simulators,
                        PortHooks hooks = PortHooks::Library());
    ~Connection() override;

    // Starts connecting to `target`; the simulator and serial ports are done on return, TCP
    // goes on in the background.
    void Open(const ReceiverTarget& target);
    void Close();

    EState State() const { return m_state; }
    const QString& Message() const { return m_message; }
    const ReceiverTarget& Target() const { return m_target; }
    const rxio::ReceiverIdentity& Identity() const { return m_identity; }
    std::shared_ptr<rxio::IReceiver> Receiver() const { return m_receiver; }

signals:
    void stateChanged();
    void identified();

private:
    void Attach(std::unique_ptr<rxio::CLink> link);
    void Fail(const QString& error);
    // Lets go of everything; PostClosePort if the port was opened.
    void TearDown();
    // PostClosePort for the open port, once.
    void ReleasePort();
    void SetState(EState state, const QString& message = {});

    rxio::InProcessPeerFactory m_simulators;
    PortHooks m_hooks;
    EState m_state = EState::Closed;
    QString m_message;
    ReceiverTarget m_target;
    rxio::ReceiverIdentity m_identity;
    std::unique_ptr<rxio::IInProcessPeer> m_simulator;
    std::unique_ptr<rxio::CTcpLinkAttempt> m_attempt;
    std::shared_ptr<rxio::CReceiverConnection> m_receiver;
    std::shared_ptr<const rxio::IPortAddr> m_openPort;
};

} // namespace pell
