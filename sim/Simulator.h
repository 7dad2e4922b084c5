#pragma once

#include "Model.h"
#include "ReceiverState.h"

#include <QByteArray>
#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <memory>
#include <set>

class QIODevice;
class QTimer;

namespace rxsim {

// Faults the simulated receiver can be told to show.
struct Faults {
    int latencyMs = 0;             // added before every answer
    int baud = 0;                  // link rate both ways, 10 bits a byte; 0 = as fast as the link
    int dropAfterCommands = -1;    // close the connection after this many more commands; -1 never
    std::set<QString> silentPaths; // commands naming these paths are never answered
};

// A receiver that speaks the protocol of docs/protocol.md to one controller at a time.
class CSimulator final : public QObject {
    Q_OBJECT
public:
    // Throws std::runtime_error for an unknown profile.
    CSimulator(std::shared_ptr<const CModel> model, const QString& profile,
               QObject* parent = nullptr);
    ~CSimulator() override;

    CReceiverState& State() { return *m_state; }
    Faults& GetFaults() { return m_faults; }

    // Serves the controller on `device`, which stays the caller's; a previous one is let go.
    void Serve(QIODevice* device);
    // Connects a device to one of the receiver's ports (what a module behind it would see).
    void AttachPortDevice(const QString& port, QIODevice* device);

    void InjectGarbage(const QByteArray& bytes);
    void AnnounceReset();
    void DropConnection();
    void DropAfter(int ms);

    // Every command line received, in order, as it arrived (without the id prefix).
    const QStringList& ReceivedCommands() const { return m_received; }
    bool InPassThrough() const { return !m_passThroughPort.isEmpty(); }

signals:
    void connectionDropped();

private:
    void OnControllerBytes();
    void OnPortBytes(const QString& port);
    void Consume(QByteArray bytes);
    void HandleLine(const QByteArray& line);
    void Answer(const QByteArray& id, const rxsim::Answer& answer);
    void Send(const QByteArray& bytes);
    void Emit(const QByteArray& bytes);
    void Drain();
    void StartPassThroughIfAsked();
    QString ControllerValue(const char* leaf) const;

    std::shared_ptr<const CModel> m_model;
    std::unique_ptr<CReceiverState> m_state;
    Faults m_faults;
    QPointer<QIODevice> m_device;
    std::map<QString, QPointer<QIODevice>> m_portDevices;
    QByteArray m_input;
    bool m_discardingLongLine = false;
    QString m_passThroughPort;
    QString m_passThroughEnd;
    QString m_imodeBeforeEcho;
    QStringList m_received;
    // Pacing: bytes go out no faster than the link rate.
    QByteArray m_output;
    QElapsedTimer m_paceClock;
    qint64 m_pacedBytes = 0;
    QTimer* m_drainTimer = nullptr;
};

// Frame a payload as the receiver does: RE/ER/NT, six hex digits of length, %id%, payload, \n.
QByteArray EncodeFrame(const char* kind, const QByteArray& id, const QByteArray& payload);

} // namespace rxsim
