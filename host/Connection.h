#pragma once

#include "ReceiverTarget.h"
#include "rxio/ReceiverConnection.h"

#include <QObject>
#include <QString>
#include <functional>
#include <memory>

namespace rxsim {
class CModel;
class CSimulator;
} // namespace rxsim

namespace rxio {
class CTcpLinkAttempt;
} // namespace rxio

namespace dorrit {

// The hooks a host calls around a port; the library's own unless a test counts them.
struct PortHooks {
    using Hook = std::function<bool(std::shared_ptr<const rxio::IPortAddr>)>;
    Hook preOpen;
    Hook postClose;
    static PortHooks Library();
};

// The host's one receiver connection, opened and closed as a host must: PreOpenPort before
// opening, and PostClosePort once for each, whichever way the port ends (closed, failed, lost,
// cancelled).
class Connection final : public QObject {
    Q_OBJECT
public:
    enum class EState {
        Closed,     // Message() holds why the last attempt failed, if it did
        Connecting, // a TCP connection on its way; Close() cancels it
        Connected,
        Lost, // Message() holds why; Identity() is the receiver that was there
    };

    explicit Connection(std::shared_ptr<const rxsim::CModel> model,
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
    const rxsim::CModel& Model() const { return *m_model; }

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

    std::shared_ptr<const rxsim::CModel> m_model;
    PortHooks m_hooks;
    EState m_state = EState::Closed;
    QString m_message;
    ReceiverTarget m_target;
    rxio::ReceiverIdentity m_identity;
    std::unique_ptr<rxsim::CSimulator> m_simulator;
    std::unique_ptr<QIODevice> m_simulatorEnd;
    std::unique_ptr<rxio::CTcpLinkAttempt> m_attempt;
    std::shared_ptr<rxio::CReceiverConnection> m_receiver;
    std::shared_ptr<const rxio::IPortAddr> m_openPort;
};

} // namespace dorrit
