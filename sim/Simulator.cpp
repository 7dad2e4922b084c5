#include "Simulator.h"

#include "Nmea.h"
#include "rxio/Pipe.h"

#include <QIODevice>
#include <QTimeZone>
#include <QTimer>
#include <algorithm>
#include <optional>
#include <stdexcept>

namespace rxsim {

namespace {

constexpr qsizetype kMaxCommandLine = 4096;

bool IsIdChar(char c) {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

// A line's "%id%" prefix: the id, empty when the line has none; nullopt when the line opens an
// id that is not 1 to 8 id characters closed by '%'.
std::optional<QByteArray> ReadId(const QByteArray& line) {
    if (!line.startsWith('%'))
        return QByteArray();
    const qsizetype close = line.indexOf('%', 1);
    if (close < 2 || close > 9)
        return std::nullopt;
    const QByteArray id = line.mid(1, close - 1);
    if (!std::all_of(id.begin(), id.end(), IsIdChar))
        return std::nullopt;
    return id;
}

// A line still without its LF is over the limit once it can no longer end within it (a CR
// directly before the LF does not count).
bool Overlong(const QByteArray& partial) {
    return partial.size() > kMaxCommandLine + 1 ||
           (partial.size() == kMaxCommandLine + 1 && !partial.endsWith('\r'));
}

const QByteArray kGarbage = "\x01GARBAGE}{%RE\xff\n";

} // namespace

QByteArray EncodeFrame(const char* kind, const QByteArray& id, const QByteArray& payload) {
    const QByteArray body = '%' + id + '%' + payload;
    return QByteArray(kind) + QByteArray::number(body.size(), 16).toUpper().rightJustified(6, '0') +
           body + '\n';
}

CSimulator::CSimulator(std::shared_ptr<const CModel> model, const QString& profile, QObject* parent)
    : QObject(parent), m_model(std::move(model)),
      m_sky(rxio::GpsTime::FromUtc(QDateTime::currentDateTimeUtc())) {
    const Profile* found = m_model->FindProfile(profile);
    if (found == nullptr)
        throw std::runtime_error("unknown receiver profile: " + profile.toStdString());
    m_state = std::make_unique<CReceiverState>(*m_model, *found);
    m_state->SetAlmanacs(m_sky.Almanacs());
    m_drainTimer = new QTimer(this);
    m_drainTimer->setSingleShot(true);
    m_drainTimer->setTimerType(Qt::PreciseTimer);
    connect(m_drainTimer, &QTimer::timeout, this, &CSimulator::Drain);
    const auto makeTimer = [this](bool singleShot, auto slot) {
        auto* timer = new QTimer(this);
        timer->setSingleShot(singleShot);
        connect(timer, &QTimer::timeout, this, slot);
        return timer;
    };
    m_dropTimer = makeTimer(true, &CSimulator::DropConnection);
    m_resetTimer = makeTimer(true, &CSimulator::AnnounceReset);
    m_garbageTimer = makeTimer(false, [this] { InjectGarbage(kGarbage); });
    m_epochTimer = makeTimer(false, &CSimulator::SendEpoch);
    m_epochTimer->setInterval(1000);
    m_epochTimer->setTimerType(Qt::PreciseTimer);
    AddModules(*found);
}

CSimulator::~CSimulator() = default;

void CSimulator::AddModules(const Profile& profile) {
    const auto value = [&profile](const char* path) {
        const auto it = profile.values.find(QLatin1String(path));
        return it == profile.values.end() ? QString() : it->second;
    };
    for (const PortSpec& port : m_model->Ports()) {
        if (port.module.isEmpty() || !profile.features.contains(port.moduleFeature))
            continue;
        CPortModule* module = nullptr;
        if (port.module == QLatin1String("ble") && !m_ble) {
            // Set up at the factory for the receiver it sits in; its address follows the
            // receiver's own identifier, so that every profile has its own.
            BleSettings settings;
            settings.pin = QStringLiteral("000000");
            settings.vendorId = QStringLiteral("PELL");
            settings.modelId = profile.model;
            settings.serialNumber = profile.serial;
            settings.hardwareVersion = value("rcv/ver/hw");
            const QString uid = value("rcv/uid").rightJustified(6, QLatin1Char('0')).right(6);
            const QString address = QStringLiteral("00:1B:C5:%1:%2:%3")
                                        .arg(uid.left(2), uid.mid(2, 2), uid.right(2))
                                        .toUpper();
            m_ble = std::make_unique<CBleModule>(settings, address);
            module = m_ble.get();
        } else if (port.module == QLatin1String("btclassic") && !m_classic) {
            m_classic = std::make_unique<CClassicBtModule>();
            module = m_classic.get();
        }
        if (module == nullptr)
            continue;
        auto [moduleEnd, portEnd] = rxio::CPipeEnd::CreatePair();
        module->Attach(moduleEnd.get());
        AttachPortDevice(port.path, portEnd.get());
        m_moduleLinks.push_back(std::move(moduleEnd));
        m_moduleLinks.push_back(std::move(portEnd));
    }
}

void CSimulator::Serve(QIODevice* device) {
    if (m_device)
        disconnect(m_device, nullptr, this, nullptr);
    m_device = device;
    ++m_connection;
    m_commandsThisConnection = 0;
    m_input.clear();
    m_discardingLongLine = false;
    m_output.clear();
    m_paceClock.invalidate();
    m_pacedBytes = 0;
    m_drainTimer->stop();
    EndPassThrough();
    StopFaultTimers();
    // A new controller has asked for no data yet; the receiver's tracking starts with it.
    SideEffects ignored;
    m_state->Execute(QStringLiteral("dm,/cur/term"), ignored);
    UpdateStream();
    m_sky.StartSession(rxio::GpsTime::FromUtc(m_clock()));
    if (m_faults.dropAtMs >= 0)
        m_dropTimer->start(m_faults.dropAtMs);
    if (m_faults.resetAtMs >= 0)
        m_resetTimer->start(m_faults.resetAtMs);
    if (m_faults.garbageEveryMs > 0)
        m_garbageTimer->start(m_faults.garbageEveryMs);
    connect(device, &QIODevice::readyRead, this, &CSimulator::OnControllerBytes);
    if (device->bytesAvailable() > 0)
        OnControllerBytes();
}

void CSimulator::StopFaultTimers() {
    for (QTimer* timer : {m_dropTimer, m_resetTimer, m_garbageTimer})
        timer->stop();
}

void CSimulator::AttachPortDevice(const QString& port, QIODevice* device) {
    const QString path = CModel::Canonical(port);
    m_portDevices[path] = device;
    connect(device, &QIODevice::readyRead, this, [this, path] { OnPortBytes(path); });
}

void CSimulator::InjectGarbage(const QByteArray& bytes) {
    Send(bytes);
}

void CSimulator::AnnounceReset() {
    Send(EncodeFrame("NT", {}, "reset"));
}

void CSimulator::DropConnection() {
    if (!m_device)
        return;
    QIODevice* device = m_device;
    m_device = nullptr;
    StopFaultTimers();
    SideEffects ignored;
    m_state->Execute(QStringLiteral("dm,/cur/term"), ignored);
    UpdateStream();
    disconnect(device, nullptr, this, nullptr);
    device->close();
    emit connectionDropped();
}

void CSimulator::DropAfter(int ms) {
    m_dropTimer->start(ms);
}

void CSimulator::OnControllerBytes() {
    if (m_device)
        Consume(m_device->readAll());
}

void CSimulator::OnPortBytes(const QString& port) {
    const QPointer<QIODevice>& device = m_portDevices[port];
    if (!device)
        return;
    const QByteArray bytes = device->readAll();
    // A port's input reaches the controller only while the two are connected by echo.
    if (port == m_passThroughPort)
        Send(bytes);
}

void CSimulator::Consume(QByteArray bytes) {
    qsizetype pos = 0;
    while (m_device && pos < bytes.size()) {
        if (InPassThrough()) {
            bytes = PassThrough(bytes.mid(pos));
            pos = 0;
            continue;
        }
        const qsizetype lf = bytes.indexOf('\n', pos);
        const qsizetype end = lf < 0 ? bytes.size() : lf;
        // Past the limit only the line's head matters (its id); the rest is never held.
        const qsizetype room = std::max<qsizetype>(0, kMaxCommandLine + 2 - m_input.size());
        if (!m_discardingLongLine)
            m_input.append(bytes.constData() + pos, std::min(end - pos, room));
        pos = end + 1;
        if (lf < 0) {
            if (!m_discardingLongLine && Overlong(m_input)) {
                // Answered once, now; the rest of the line is dropped as it comes.
                Answer(ReadId(m_input).value_or(QByteArray()),
                       ErrorAnswer(5, QStringLiteral("command too long")));
                m_input.clear();
                m_discardingLongLine = true;
            }
            return;
        }
        if (std::exchange(m_discardingLongLine, false))
            continue;
        QByteArray line = std::exchange(m_input, {});
        if (line.endsWith('\r'))
            line.chop(1);
        if (line.size() > kMaxCommandLine)
            Answer(ReadId(line).value_or(QByteArray()),
                   ErrorAnswer(5, QStringLiteral("command too long")));
        else
            HandleLine(line);
    }
}

QByteArray CSimulator::PassThrough(const QByteArray& bytes) {
    // Bytes pass untouched until the terminator text; it and what follows are ours.
    m_input.append(bytes);
    const QByteArray end = m_passThroughEnd.toUtf8();
    const qsizetype at = m_input.indexOf(end);
    // Hold back only a tail that could still grow into the terminator.
    qsizetype keep = at;
    if (at < 0) {
        keep = m_input.size();
        for (qsizetype n = std::min(end.size() - 1, m_input.size()); n > 0; --n)
            if (m_input.endsWith(end.left(n))) {
                keep -= n;
                break;
            }
    }
    if (QIODevice* port = m_portDevices[m_passThroughPort])
        port->write(m_input.left(keep));
    if (at < 0) {
        m_input.remove(0, keep);
        return {};
    }
    const QByteArray after = m_input.mid(at + end.size());
    m_input.clear();
    EndPassThrough();
    return after;
}

void CSimulator::EndPassThrough() {
    if (!InPassThrough())
        return;
    m_passThroughPort.clear();
    SideEffects ignored;
    m_state->Execute(QStringLiteral("set,cur/term/imode,%1").arg(m_imodeBeforeEcho), ignored);
}

void CSimulator::HandleLine(const QByteArray& line) {
    const std::optional<QByteArray> id = ReadId(line);
    if (!id) {
        Answer({}, ErrorAnswer(3, QStringLiteral("bad syntax")));
        return;
    }
    const QByteArray command = id->isEmpty() ? line : line.mid(id->size() + 2);
    if (command.trimmed().isEmpty()) {
        // A bare line ending (a person pressing Enter) is no command; an id with nothing is.
        if (!id->isEmpty())
            Answer(*id, ErrorAnswer(3, QStringLiteral("bad syntax")));
        return;
    }
    const QString text = QString::fromUtf8(command);
    AppendBounded(m_received, text, kKeptCommands);
    ++m_receivedCount;

    if (m_faults.baud > 0 && m_paceClock.isValid()) {
        // The command occupied the line too: the answer waits for it.
        const qint64 budget = m_paceClock.nsecsElapsed() / 1000 * m_faults.baud / 10'000'000;
        m_pacedBytes = std::max(m_pacedBytes, budget) + line.size() + 2; // with CR LF
    }

    for (const QString& path : m_faults.silentPaths)
        if (text.contains(path))
            return;

    SideEffects effects;
    const rxsim::Answer answer = m_state->Execute(text, effects);
    Answer(*id, answer);
    for (const auto& [port, bytes] : effects.portOutput)
        if (QIODevice* device = m_portDevices[port])
            device->write(bytes);
    if (effects.reset)
        AnnounceReset();
    if (effects.powerOff)
        Send(EncodeFrame("NT", {}, "power,off"));
    StartPassThroughIfAsked();
    UpdateStream();

    if (++m_commandsThisConnection == m_faults.dropAfterCommands)
        DropConnection();
}

void CSimulator::Answer(const QByteArray& id, const rxsim::Answer& answer) {
    Send(EncodeFrame(answer.error ? "ER" : "RE", id, answer.text.toUtf8()));
}

QString CSimulator::ControllerValue(const char* leaf) const {
    return m_state->Value(QStringLiteral("cur/term/") + QLatin1String(leaf)).value_or(QString());
}

void CSimulator::StartPassThroughIfAsked() {
    if (ControllerValue("imode") != QLatin1String("echo"))
        return;
    QString target = ControllerValue("echo");
    target.remove(QLatin1Char('"'));
    target = CModel::Canonical(target);
    if (target.isEmpty() || target == QLatin1String("cur/term"))
        return;
    QString end = ControllerValue("eoff");
    if (end.size() >= 2 && end.startsWith(QLatin1Char('"')))
        end = end.mid(1, end.size() - 2);
    m_passThroughPort = target;
    m_passThroughEnd = end.isEmpty() ? QStringLiteral("+++") : end;
    // When the terminator comes, the port goes back to its usual input mode.
    SideEffects ignored;
    m_imodeBeforeEcho = m_state->Execute(QStringLiteral("print,cur/term/imode&def"), ignored).text;
}

QStringList CSimulator::StreamedSets() const {
    const auto& messages = m_state->Messages();
    const auto port = messages.find(QStringLiteral("cur/term"));
    QStringList sets;
    if (port != messages.end())
        for (const QString& set : kNmeaSets)
            if (port->second.contains(set))
                sets << set;
    return sets;
}

void CSimulator::UpdateStream() {
    if (StreamedSets().isEmpty())
        m_epochTimer->stop();
    else if (!m_epochTimer->isActive())
        m_epochTimer->start();
}

void CSimulator::SendEpoch() {
    // A closed line takes nothing; a pass-through belongs to the module behind it; a line still
    // busy with the last epoch drops this one, as a receiver's full port does.
    const QStringList sets = StreamedSets();
    if (!m_device || !m_device->isOpen() || sets.isEmpty() || InPassThrough() ||
        !m_output.isEmpty())
        return;
    // Whole seconds, always forward, even when the timer fires twice within one second.
    const qint64 ms = std::max(m_clock().toMSecsSinceEpoch() / 1000 * 1000, m_lastEpochMs + 1000);
    m_lastEpochMs = ms;
    const QDateTime utc = QDateTime::fromMSecsSinceEpoch(ms, QTimeZone::utc());
    bool ok = false;
    double mask = m_state->Value(QStringLiteral("pos/elm")).value_or(QString()).toDouble(&ok);
    if (!ok)
        mask = 5.0;
    const auto sky = m_sky.At(rxio::GpsTime::FromUtc(utc), mask, m_faults.hiddenSatellites);
    Emit(NmeaEpoch(sky, utc, m_sky.Observer(), sets));
}

void CSimulator::Send(const QByteArray& bytes) {
    if (m_faults.latencyMs > 0)
        QTimer::singleShot(m_faults.latencyMs, this, [this, bytes, connection = m_connection] {
            if (connection == m_connection)
                Emit(bytes);
        });
    else
        Emit(bytes);
}

void CSimulator::Emit(const QByteArray& bytes) {
    m_output.append(bytes);
    Drain();
}

void CSimulator::Drain() {
    if (!m_device) {
        m_output.clear();
        return;
    }
    if (m_faults.baud <= 0) {
        m_device->write(std::exchange(m_output, {}));
        return;
    }
    if (!m_paceClock.isValid())
        m_paceClock.start();
    const qint64 elapsedUs = m_paceClock.nsecsElapsed() / 1000;
    const qint64 budget = elapsedUs * m_faults.baud / 10'000'000;
    // An idle line earns no credit.
    m_pacedBytes = std::max(m_pacedBytes, budget - 1);
    const qint64 now = std::min<qint64>(m_output.size(), budget - m_pacedBytes);
    if (now > 0) {
        m_device->write(m_output.left(now));
        m_output.remove(0, now);
        m_pacedBytes += now;
    }
    if (m_output.isEmpty())
        return;
    const qint64 waitUs = (m_pacedBytes + 1 - budget) * 10'000'000 / m_faults.baud;
    // Short waits are run off the event loop at once so that pacing stays exact.
    m_drainTimer->start(waitUs > 2000 ? static_cast<int>(waitUs / 1000) - 1 : 0);
}

} // namespace rxsim
