#pragma once

#include "rxio/Framing.h"
#include "rxio/Link.h"
#include "rxio/NmeaDecoder.h"
#include "rxio/Receiver.h"
#include "rxio/rxio_export.h"

#include <QByteArray>
#include <QObject>
#include <QTimer>
#include <deque>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <vector>

namespace rxio {

// A receiver on the other end of a link, speaking the protocol of docs/protocol.md.
class RXIO_EXPORT CReceiverConnection final : public QObject, public IReceiver {
    Q_OBJECT
public:
    // The only way to make one: whichever thread lets go of the last handle, the connection is
    // destroyed on its own thread (a socket or timer must never die on another one).
    static std::shared_ptr<CReceiverConnection> Create(std::unique_ptr<CLink> link);

    CommandId StartCommand(const QString& command, int timeoutMs, Completion done) override;
    void Abandon(CommandId id) override;
    bool Post(const QString& command) override;
    bool IsConnected() const override;
    void RegisterNotice(const std::shared_ptr<INotice>& notice, ENotification kind) override;
    void RegisterSatListListener(const std::shared_ptr<ISatListListener>& listener) override;
    void RegisterPositionListener(const std::shared_ptr<IPositionListener>& listener) override;
    CAlmanacStorage& Almanacs() override;
    IPort& Port() override;
    void SuspendPort() override;
    void ResumePort() override;
    ReceiverIdentity Identity() const override;

    // Reads the receiver's identity; `identified` follows (also when some parts are missing).
    void Identify(int timeoutMs = 3000);
    // Asks the receiver for its almanacs ("print,alm") and puts them into Almanacs(). `done`
    // gets an empty text, or why nothing was taken (no answer, an error reply, almanacs the store
    // refuses); the store then keeps what it held.
    void ReadAlmanacs(int timeoutMs, std::function<void(const QString& error)> done);
    // Closes the link on purpose: pending commands end as disconnected (later, from the event
    // loop, as every completion), no notice is raised.
    void Disconnect();

    // Replies that matched no pending command (late, abandoned or unasked), and skipped bytes.
    std::uint64_t UnmatchedReplies() const { return m_unmatched; }
    std::uint64_t GarbageBytes() const { return m_parser.GarbageBytes(); }
    // NMEA sentences that could not be decoded.
    std::uint64_t DroppedSentences() const { return m_decoder.Dropped(); }

signals:
    void identified(const rxio::ReceiverIdentity& identity);
    void connectionLost(const QString& reason);
    void nmeaReceived(const QByteArray& sentence);

private:
    struct Pending {
        CommandId id;
        QString command;
        int timeoutMs;
        Completion done;
    };
    class RawPort;

    // Counts the calls out (signals, notices, completions) under way.
    struct CallingOut {
        explicit CallingOut(int& depth) : m_depth(++depth) {}
        ~CallingOut() { --m_depth; }
        CallingOut(const CallingOut&) = delete;
        CallingOut& operator=(const CallingOut&) = delete;
        int& m_depth;
    };

    explicit CReceiverConnection(std::unique_ptr<CLink> link);
    ~CReceiverConnection() override;

    void OnReadyRead();
    void OnFrame(const Frame& frame);
    void OnLost(const QString& reason);
    void SendNext();
    void Finish(CommandResult result);
    // Calls `done` with `result` from the event loop, unless `id` is abandoned by then.
    void Deliver(CommandId id, Completion done, CommandResult result);
    void Notify(ENotification kind);
    // Ends every pending command as disconnected.
    void EndSession();

    std::unique_ptr<CLink> m_link;
    CFrameParser m_parser;
    CNmeaDecoder m_decoder;
    std::unique_ptr<RawPort> m_port;
    bool m_connected = true;
    bool m_suspended = false;
    CommandId m_nextId = 1;
    std::deque<Pending> m_queue;
    std::optional<Pending> m_inFlight;
    // Posted lines whose answer, should it come, nobody waits for.
    std::set<CommandId> m_posted;
    // Commands whose result is on its way to their completion.
    std::set<CommandId> m_delivering;
    QTimer m_timeout;
    std::map<ENotification, std::vector<std::weak_ptr<INotice>>> m_notices;
    std::vector<std::weak_ptr<ISatListListener>> m_satListeners;
    std::vector<std::weak_ptr<IPositionListener>> m_positionListeners;
    ReceiverIdentity m_identity;
    CAlmanacStorage m_almanacs;
    std::uint64_t m_unmatched = 0;
    int m_callingOut = 0;
};

} // namespace rxio
