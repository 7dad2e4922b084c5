#include "rxio/ReceiverConnection.h"

#include <QLoggingCategory>
#include <QPointer>
#include <QThread>
#include <stdexcept>

Q_LOGGING_CATEGORY(lcRxio, "pell.rxio", QtWarningMsg)

namespace rxio {

INotice::~INotice() = default;
IPort::~IPort() = default;
IReceiver::~IReceiver() = default;

void IReceiver::RequireOwnerThread(const char* operation) const {
    if (IsOwnerThread())
        return;
    Q_ASSERT_X(false, operation, "a receiver is used only from the thread that created it");
    throw std::logic_error(std::string(operation) + ": receiver used from a foreign thread");
}

namespace {

class FunctionNotice final : public INotice {
public:
    explicit FunctionNotice(std::function<void(ENotification)> action)
        : m_action(std::move(action)) {}
    void Notify(ENotification kind) override { m_action(kind); }

private:
    std::function<void(ENotification)> m_action;
};

// Notices and listeners are held weakly: tells every one still alive (one may register others
// meanwhile).
template <class Listener, class Call>
void TellAll(const std::vector<std::weak_ptr<Listener>>& listeners, const Call& call) {
    const auto copy = listeners;
    for (const auto& weak : copy)
        if (const auto listener = weak.lock())
            call(*listener);
}

template <class Listener>
void Add(std::vector<std::weak_ptr<Listener>>& listeners, const std::shared_ptr<Listener>& one) {
    std::erase_if(listeners, [](const auto& weak) { return weak.expired(); });
    listeners.emplace_back(one);
}

// A command must stay one line: anything that would end it early is refused before it is sent.
bool IsOneLine(const QString& command) {
    return !command.contains(QLatin1Char('\n')) && !command.contains(QLatin1Char('\r')) &&
           !command.contains(QChar(0));
}

} // namespace

std::shared_ptr<INotice> INotice::CreateInstance(std::function<void(ENotification)> action) {
    return std::make_shared<FunctionNotice>(std::move(action));
}

// The link's device seen as a raw port; reads see only what arrived while suspended.
class CReceiverConnection::RawPort final : public IPort {
public:
    explicit RawPort(CReceiverConnection& owner) : m_owner(owner) {}

    void Purge(unsigned flags) override {
        if (flags & PurgeReceive) {
            m_owner.OnReadyRead();
            m_buffer.clear();
        }
    }
    void Write(const QByteArray& bytes) override { m_owner.m_link->Device().write(bytes); }
    std::size_t BytesWaiting() override {
        if (m_buffer.isEmpty())
            m_owner.m_link->Device().waitForReadyRead(0);
        m_owner.OnReadyRead();
        return static_cast<std::size_t>(m_buffer.size());
    }
    QByteArray Read(std::size_t count) override {
        const QByteArray out = m_buffer.left(static_cast<qsizetype>(count));
        m_buffer.remove(0, out.size());
        return out;
    }

    QByteArray m_buffer;

private:
    CReceiverConnection& m_owner;
};

std::shared_ptr<CReceiverConnection> CReceiverConnection::Create(std::unique_ptr<CLink> link) {
    // Later, too, when the last handle goes inside one of the connection's own calls out (a
    // signal, a notice, a completion): the code that called out still runs on it.
    return {new CReceiverConnection(std::move(link)), [](CReceiverConnection* connection) {
                if (QThread::currentThread() == connection->thread() &&
                    connection->m_callingOut == 0)
                    delete connection;
                else
                    connection->deleteLater();
            }};
}

CReceiverConnection::CReceiverConnection(std::unique_ptr<CLink> link)
    : m_link(std::move(link)), m_port(std::make_unique<RawPort>(*this)) {
    m_timeout.setSingleShot(true);
    connect(&m_timeout, &QTimer::timeout, this, [this] {
        qCWarning(lcRxio) << "time-out:" << (m_inFlight ? m_inFlight->command : QString());
        Finish({CommandResult::TimedOut, false, {}});
    });
    connect(&m_link->Device(), &QIODevice::readyRead, this, &CReceiverConnection::OnReadyRead);
    connect(m_link.get(), &CLink::lost, this, &CReceiverConnection::OnLost);
    m_parser.onFrame = [this](const Frame& frame) {
        OnFrame(frame);
    };
    m_parser.onNmea = [this](const QByteArray& line) {
        emit nmeaReceived(line);
        m_decoder.Decode(line);
    };
    m_decoder.onSky = [this](const std::vector<ISatListListener::SatelliteInfo>& sky) {
        TellAll(m_satListeners, [&sky](ISatListListener& l) { l.OnSatellites(sky); });
    };
    m_decoder.onPosition = [this](const IPositionListener::Position& position) {
        TellAll(m_positionListeners, [&position](IPositionListener& l) { l.OnPosition(position); });
    };
}

CReceiverConnection::~CReceiverConnection() {
    m_parser.onFrame = nullptr;
    m_parser.onNmea = nullptr;
    m_decoder.onSky = nullptr;
    m_decoder.onPosition = nullptr;
    m_link->Close();
}

IReceiver::CommandId CReceiverConnection::StartCommand(const QString& command, int timeoutMs,
                                                       Completion done) {
    RequireOwnerThread("StartCommand");
    const CommandId id = m_nextId++;
    if (!m_connected)
        Deliver(id, std::move(done), {CommandResult::Disconnected, false, {}});
    else if (!IsOneLine(command))
        Deliver(id, std::move(done), {CommandResult::Refused, false, {}});
    else {
        m_queue.push_back({id, command, timeoutMs, std::move(done)});
        SendNext();
    }
    return id;
}

void CReceiverConnection::Abandon(CommandId id) {
    RequireOwnerThread("Abandon");
    m_delivering.erase(id);
    std::erase_if(m_queue, [id](const Pending& p) { return p.id == id; });
    if (m_inFlight && m_inFlight->id == id) {
        // Its reply may still come: the id no longer matches anything, so it is dropped.
        m_inFlight.reset();
        m_timeout.stop();
        SendNext();
    }
}

bool CReceiverConnection::Post(const QString& command) {
    RequireOwnerThread("Post");
    if (!m_connected || m_suspended || !IsOneLine(command))
        return false;
    const CommandId id = m_nextId++;
    m_posted.insert(id);
    const QByteArray bytes = EncodeCommand(QByteArray::number(id), command);
    qCDebug(lcRxio) << "out (posted):" << bytes;
    m_link->Device().write(bytes);
    return true;
}

void CReceiverConnection::RegisterNotice(const std::shared_ptr<INotice>& notice,
                                         ENotification kind) {
    RequireOwnerThread("RegisterNotice");
    Add(m_notices[kind], notice);
}

void CReceiverConnection::RegisterSatListListener(
    const std::shared_ptr<ISatListListener>& listener) {
    RequireOwnerThread("RegisterSatListListener");
    Add(m_satListeners, listener);
}

void CReceiverConnection::RegisterPositionListener(
    const std::shared_ptr<IPositionListener>& listener) {
    RequireOwnerThread("RegisterPositionListener");
    Add(m_positionListeners, listener);
}

bool CReceiverConnection::IsConnected() const {
    RequireOwnerThread("IsConnected");
    return m_connected;
}

IPort& CReceiverConnection::Port() {
    RequireOwnerThread("Port");
    return *m_port;
}

void CReceiverConnection::SuspendPort() {
    RequireOwnerThread("SuspendPort");
    m_suspended = true;
    // What the receiver says after the pass-through is a new stream.
    m_decoder.Reset();
}

ReceiverIdentity CReceiverConnection::Identity() const {
    RequireOwnerThread("Identity");
    return m_identity;
}

void CReceiverConnection::ResumePort() {
    RequireOwnerThread("ResumePort");
    m_suspended = false;
    m_parser.Reset();
    m_decoder.Reset();
    const QByteArray rest = std::exchange(m_port->m_buffer, {});
    {
        const CallingOut guard(m_callingOut);
        m_parser.Feed(rest);
    }
    SendNext();
}

void CReceiverConnection::Identify(int timeoutMs) {
    RequireOwnerThread("Identify");
    struct Step {
        const char* path;
        QString ReceiverIdentity::*field;
    };
    static const Step steps[] = {
        {"rcv/model", &ReceiverIdentity::model},
        {"rcv/ver/main", &ReceiverIdentity::firmware},
        {"rcv/ver/board", &ReceiverIdentity::board},
        {"rcv/id", &ReceiverIdentity::serialNumber},
    };
    auto remaining = std::make_shared<int>(static_cast<int>(std::size(steps)));
    QPointer<CReceiverConnection> self(this);
    for (const Step& step : steps) {
        StartCommand(QStringLiteral("print,") + QLatin1String(step.path), timeoutMs,
                     [self, remaining, field = step.field](const CommandResult& result) {
                         if (!self)
                             return;
                         if (result.status == CommandResult::Completed && !result.error) {
                             QString value = result.reply.trimmed();
                             if (value.size() >= 2 && value.startsWith(QLatin1Char('"')) &&
                                 value.endsWith(QLatin1Char('"')))
                                 value = value.mid(1, value.size() - 2);
                             self->m_identity.*field = value;
                         }
                         if (--*remaining == 0)
                             emit self->identified(self->m_identity);
                     });
    }
}

void CReceiverConnection::ReadAlmanacs(int timeoutMs,
                                       std::function<void(const QString& error)> done) {
    RequireOwnerThread("ReadAlmanacs");
    QPointer<CReceiverConnection> self(this);
    StartCommand(QStringLiteral("print,alm"), timeoutMs,
                 [self, done = std::move(done)](const CommandResult& result) {
                     if (!self)
                         return;
                     QString error;
                     if (result.status == CommandResult::TimedOut)
                         error = QStringLiteral("The receiver did not answer.");
                     else if (result.status != CommandResult::Completed)
                         error = QStringLiteral("The connection to the receiver is closed.");
                     else if (result.error)
                         error = result.reply;
                     else
                         try {
                             self->m_almanacs.Set(ParseAlmanacRecord(result.reply));
                         } catch (const CAlmanacError& e) {
                             error = QString::fromStdString(e.what());
                         }
                     done(error);
                 });
}

CAlmanacStorage& CReceiverConnection::Almanacs() {
    RequireOwnerThread("Almanacs");
    return m_almanacs;
}

void CReceiverConnection::Disconnect() {
    RequireOwnerThread("Disconnect");
    if (!m_connected)
        return;
    m_link->Close();
    EndSession();
}

void CReceiverConnection::OnReadyRead() {
    const CallingOut guard(m_callingOut);
    const QByteArray bytes = m_link->Device().readAll();
    if (bytes.isEmpty())
        return;
    qCDebug(lcRxio) << "in:" << bytes;
    if (m_suspended)
        m_port->m_buffer.append(bytes);
    else
        m_parser.Feed(bytes);
}

void CReceiverConnection::OnFrame(const Frame& frame) {
    if (frame.kind == EFrameKind::Notice) {
        Notify(NotifyReceiverGone);
        return;
    }
    bool isNumber = false;
    if (const CommandId id = frame.id.toULongLong(&isNumber); isNumber && m_posted.erase(id) != 0)
        return;
    if (!m_inFlight || frame.id != QByteArray::number(m_inFlight->id)) {
        ++m_unmatched;
        qCInfo(lcRxio) << "dropped a reply nobody waits for, id" << frame.id;
        return;
    }
    Finish({CommandResult::Completed, frame.kind == EFrameKind::Error,
            QString::fromUtf8(frame.payload)});
}

void CReceiverConnection::Finish(CommandResult result) {
    m_timeout.stop();
    if (!m_inFlight)
        return;
    Pending finished = std::move(*m_inFlight);
    m_inFlight.reset();
    SendNext();
    Deliver(finished.id, std::move(finished.done), std::move(result));
}

void CReceiverConnection::Deliver(CommandId id, Completion done, CommandResult result) {
    // Never from inside the caller's own call (StartCommand, Disconnect, ResumePort, a read of
    // the raw port): a completion may start the next command or end a nested event loop.
    m_delivering.insert(id);
    QMetaObject::invokeMethod(
        this,
        [this, id, done = std::move(done), result = std::move(result)] {
            const CallingOut guard(m_callingOut);
            if (m_delivering.erase(id) != 0 && done)
                done(result);
        },
        Qt::QueuedConnection);
}

void CReceiverConnection::SendNext() {
    if (m_inFlight || m_queue.empty() || !m_connected || m_suspended)
        return;
    m_inFlight = std::move(m_queue.front());
    m_queue.pop_front();
    const QByteArray bytes = EncodeCommand(QByteArray::number(m_inFlight->id), m_inFlight->command);
    qCDebug(lcRxio) << "out:" << bytes;
    m_link->Device().write(bytes);
    m_timeout.start(m_inFlight->timeoutMs);
}

void CReceiverConnection::OnLost(const QString& reason) {
    const CallingOut guard(m_callingOut);
    if (!m_connected)
        return;
    EndSession();
    emit connectionLost(reason);
    Notify(NotifyConnectionLost);
}

void CReceiverConnection::EndSession() {
    const CallingOut guard(m_callingOut);
    m_decoder.Flush(); // the last sky and position heard
    m_connected = false;
    m_posted.clear();
    m_timeout.stop();
    std::deque<Pending> pending = std::exchange(m_queue, {});
    if (m_inFlight) {
        pending.push_front(std::move(*m_inFlight));
        m_inFlight.reset();
    }
    for (Pending& p : pending)
        Deliver(p.id, std::move(p.done), {CommandResult::Disconnected, false, {}});
}

void CReceiverConnection::Notify(ENotification kind) {
    TellAll(m_notices[kind], [kind](INotice& notice) { notice.Notify(kind); });
}

} // namespace rxio
