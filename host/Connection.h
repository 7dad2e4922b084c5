#pragma once

#include "rxio/ReceiverConnection.h"

#include <QObject>
#include <QString>
#include <memory>

namespace rxsim {
class CModel;
class CSimulator;
} // namespace rxsim

namespace dorrit {

// Where the receiver is: the built-in simulator, a serial port or a TCP address.
struct ReceiverTarget {
    enum EKind { Simulator, Serial, Tcp };
    EKind kind = Simulator;
    QString name;   // simulator profile, serial device, or host
    int number = 0; // serial rate or TCP port

    // "--simulator=PROFILE", "--serial DEVICE@RATE", "--connect tcp://HOST:PORT" forms.
    static std::optional<ReceiverTarget> FromSerial(const QString& text);
    static std::optional<ReceiverTarget> FromUrl(const QString& text);
    QString Describe() const;
};

// The host's one receiver connection, opened and closed as a host must: PreOpenPort before
// opening, PostClosePort after closing.
class Connection final : public QObject {
    Q_OBJECT
public:
    Connection();
    ~Connection() override;

    // Opens `target`; false with `error` set when it cannot (or the hooks refuse the port).
    bool Open(const ReceiverTarget& target, QString& error);
    void Close();
    bool IsOpen() const { return m_receiver != nullptr && m_receiver->IsConnected(); }
    std::shared_ptr<rxio::IReceiver> Receiver() const { return m_receiver; }
    QStringList SimulatorProfiles() const;

signals:
    void identified(const rxio::ReceiverIdentity& identity);
    void lost(const QString& reason);

private:
    void ReleasePort();

    std::shared_ptr<const rxsim::CModel> m_model;
    std::unique_ptr<rxsim::CSimulator> m_simulator;
    std::unique_ptr<QIODevice> m_simulatorEnd;
    std::shared_ptr<rxio::CReceiverConnection> m_receiver;
    std::shared_ptr<const rxio::IPortAddr> m_openPort;
};

} // namespace dorrit
