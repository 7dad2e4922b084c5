#pragma once

#include "rxio/Almanac.h"
#include "rxio/Listeners.h"
#include "rxio/rxio_export.h"

#include <QByteArray>
#include <QString>
#include <cstdint>
#include <functional>
#include <memory>
#include <thread>

namespace rxio {

// The two conditions that end every open window; see docs/protocol.md.
enum ENotification : int {
    NotifyConnectionLost = 8, // peer closed, serial error, read failure
    NotifyReceiverGone = 9,   // the receiver announced a reset or power-off
};

// Told about a notification kind it was registered for. Receivers hold notices weakly: a
// notice that is gone is simply not told.
class RXIO_EXPORT INotice {
public:
    virtual ~INotice();
    virtual void Notify(ENotification kind) = 0;

    // A notice that calls `action`.
    static std::shared_ptr<INotice> CreateInstance(std::function<void(ENotification)> action);
};

struct CommandResult {
    enum EStatus {
        Completed,    // `reply` holds the receiver's answer
        TimedOut,     // no answer within the time allowed
        Disconnected, // the connection went before an answer came
        Refused,      // never sent: the line would not have stayed one command
    };
    EStatus status = Completed;
    bool error = false; // the answer is an error reply {code,,text}
    QString reply;      // empty unless Completed
};

struct ReceiverIdentity {
    QString model;
    QString firmware;
    QString board;
    QString serialNumber;
};

// The raw port beneath a receiver connection, for talking to a device behind the receiver
// while the connection's own use of the port is suspended.
class RXIO_EXPORT IPort {
public:
    static constexpr unsigned PurgeReceive = 8;

    virtual ~IPort();
    virtual void Purge(unsigned flags) = 0;
    virtual void Write(const QByteArray& bytes) = 0;
    // Bytes ready to read now; lets pending input arrive first.
    virtual std::size_t BytesWaiting() = 0;
    virtual QByteArray Read(std::size_t count) = 0;
};

// A connected receiver: one command at a time on the wire, replies matched to their command,
// notices for the conditions that end a session.
//
// A receiver belongs to the thread that created it (the window's thread): every call comes from
// there. A call from any other thread is a programming error that fails at once (an assertion in
// debug builds, std::logic_error otherwise) instead of touching a socket or timer across threads.
class RXIO_EXPORT IReceiver {
public:
    using CommandId = std::uint64_t;
    using Completion = std::function<void(const CommandResult&)>;

    IReceiver() = default;
    IReceiver(const IReceiver&) = delete;
    IReceiver& operator=(const IReceiver&) = delete;
    virtual ~IReceiver();

    // Whether the calling thread is the one that created this receiver.
    bool IsOwnerThread() const { return std::this_thread::get_id() == m_owner; }

    // Queues `command` (one line of the command language) and returns at once; `done` is called
    // exactly once, later, from the event loop, unless the command is abandoned first or the
    // receiver is destroyed. A command that would not stay one line is Refused, unsent.
    virtual CommandId StartCommand(const QString& command, int timeoutMs, Completion done) = 0;
    // Forgets a command: `done` is never called, a late reply to it is dropped.
    virtual void Abandon(CommandId id) = 0;
    // Writes `command` now, ahead of the queue, and expects nothing back: its answer, if one
    // ever comes, is dropped. For requests a receiver may ignore (live data on a receiver that
    // speaks only NMEA). False when it was not sent: not connected, or not one line.
    virtual bool Post(const QString& command) = 0;
    virtual bool IsConnected() const = 0;

    virtual void RegisterNotice(const std::shared_ptr<INotice>& notice, ENotification kind) = 0;
    // Live data, held weakly like notices: a listener that is gone is simply not told.
    virtual void RegisterSatListListener(const std::shared_ptr<ISatListListener>& listener) = 0;
    virtual void RegisterPositionListener(const std::shared_ptr<IPositionListener>& listener) = 0;

    // The almanacs the sky plot predicts from: filled from the receiver
    // (CReceiverConnection::ReadAlmanacs) or from a file; empty until then.
    virtual CAlmanacStorage& Almanacs() = 0;

    virtual IPort& Port() = 0;
    // While suspended, every byte from the receiver goes to Port() untouched.
    virtual void SuspendPort() = 0;
    virtual void ResumePort() = 0;

    virtual ReceiverIdentity Identity() const = 0;

protected:
    // Fails as the class comment says when not called from the owner thread.
    void RequireOwnerThread(const char* operation) const;

private:
    std::thread::id m_owner = std::this_thread::get_id();
};

} // namespace rxio
