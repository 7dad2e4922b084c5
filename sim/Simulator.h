#pragma once

#include "BleModule.h"
#include "ClassicBtModule.h"
#include "Model.h"
#include "ReceiverState.h"
#include "Sky.h"

#include <QByteArray>
#include <QDateTime>
#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <functional>
#include <memory>
#include <set>

class QIODevice;
class QTimer;

namespace rxsim {

// Faults the simulated receiver can be told to show. Counts and times are per connection: they
// start again with every Serve().
struct Faults {
    int latencyMs = 0;              // added before every answer
    int baud = 0;                   // link rate both ways, 10 bits a byte; 0 = as fast as the link
    int dropAfterCommands = -1;     // close the connection after its Nth command; -1 never
    int dropAtMs = -1;              // close the connection this long after it starts; -1 never
    int resetAtMs = -1;             // announce a reset this long after the connection starts
    int garbageEveryMs = 0;         // send bytes that fit no frame this often; 0 never
    std::set<QString> silentPaths;  // commands naming these paths are never answered
    std::set<int> hiddenSatellites; // USIs left out of the sky from now on
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
    // The orbits and the observer (CSky::SetObserver) the streamed sky is computed for.
    CSky& Sky() { return m_sky; }
    // Where epochs take their UTC from (the system clock unless replaced).
    void SetClock(std::function<QDateTime()> clock) { m_clock = std::move(clock); }

    // Serves the controller on `device`, which stays the caller's; a previous one is let go.
    // Each connection starts clean: no half-read line, no pass-through, fault timers from now.
    void Serve(QIODevice* device);
    // Connects a device to one of the receiver's ports (what a module behind it would see).
    void AttachPortDevice(const QString& port, QIODevice* device);
    // The Bluetooth modules behind the profile's ports, made with the simulator and kept for
    // its life; null when the profile has none.
    CBleModule* BleModule() { return m_ble.get(); }
    CClassicBtModule* ClassicModule() { return m_classic.get(); }

    void InjectGarbage(const QByteArray& bytes);
    void AnnounceReset();
    void DropConnection();
    // Closes the connection `ms` from now.
    void DropAfter(int ms);

    // The most recent command lines received (at most kKeptCommands), oldest first, as they
    // arrived without the id prefix; ReceivedCount() counts all of them.
    static constexpr qsizetype kKeptCommands = 4096;
    const QStringList& ReceivedCommands() const { return m_received; }
    qint64 ReceivedCount() const { return m_receivedCount; }
    bool InPassThrough() const { return !m_passThroughPort.isEmpty(); }

signals:
    void connectionDropped();

private:
    // Puts the modules of the profile behind their ports.
    void AddModules(const Profile& profile);
    void OnControllerBytes();
    void OnPortBytes(const QString& port);
    void Consume(QByteArray bytes);
    // Bytes of the pass-through towards its port; returns those after the terminator.
    QByteArray PassThrough(const QByteArray& bytes);
    void EndPassThrough();
    void StopFaultTimers();
    void HandleLine(const QByteArray& line);
    void Answer(const QByteArray& id, const rxsim::Answer& answer);
    void Send(const QByteArray& bytes);
    void Emit(const QByteArray& bytes);
    void Drain();
    void StartPassThroughIfAsked();
    // The NMEA sets enabled on the controller's port, in the order an epoch sends them.
    QStringList StreamedSets() const;
    // Runs the epoch timer while there are any.
    void UpdateStream();
    void SendEpoch();
    QString ControllerValue(const char* leaf) const;

    std::shared_ptr<const CModel> m_model;
    std::unique_ptr<CReceiverState> m_state;
    Faults m_faults;
    QPointer<QIODevice> m_device;
    std::map<QString, QPointer<QIODevice>> m_portDevices;
    quint64 m_connection = 0; // which connection a delayed answer belongs to
    int m_commandsThisConnection = 0;
    QTimer* m_dropTimer = nullptr;
    QTimer* m_resetTimer = nullptr;
    QTimer* m_garbageTimer = nullptr;
    QTimer* m_epochTimer = nullptr;
    std::function<QDateTime()> m_clock = [] {
        return QDateTime::currentDateTimeUtc();
    };
    CSky m_sky;
    qint64 m_lastEpochMs = 0; // UTC of the last epoch sent, ms since 1970
    QByteArray m_input;
    bool m_discardingLongLine = false;
    QString m_passThroughPort;
    QString m_passThroughEnd;
    QString m_imodeBeforeEcho;
    QStringList m_received;
    qint64 m_receivedCount = 0;
    // Pacing: bytes go out no faster than the link rate.
    QByteArray m_output;
    QElapsedTimer m_paceClock;
    qint64 m_pacedBytes = 0;
    QTimer* m_drainTimer = nullptr;
    std::unique_ptr<CBleModule> m_ble;
    std::unique_ptr<CClassicBtModule> m_classic;
    std::vector<std::unique_ptr<QIODevice>> m_moduleLinks; // both ends of each module's port
};

// Frame a payload as the receiver does: RE/ER/NT, six hex digits of length, %id%, payload, \n.
QByteArray EncodeFrame(const char* kind, const QByteArray& id, const QByteArray& payload);

} // namespace rxsim
