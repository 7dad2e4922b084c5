#include "Simulator.h"

#include <QIODevice>
#include <QTimer>
#include <stdexcept>

namespace rxsim {

namespace {

constexpr qsizetype kMaxCommandLine = 4096;

bool IsIdChar(char c) {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

} // namespace

QByteArray EncodeFrame(const char* kind, const QByteArray& id, const QByteArray& payload) {
    const QByteArray body = '%' + id + '%' + payload;
    return QByteArray(kind) + QByteArray::number(body.size(), 16).toUpper().rightJustified(6, '0') +
           body + '\n';
}

CSimulator::CSimulator(std::shared_ptr<const CModel> model, const QString& profile, QObject* parent)
    : QObject(parent), m_model(std::move(model)) {
    const Profile* found = m_model->FindProfile(profile);
    if (found == nullptr)
        throw std::runtime_error("unknown receiver profile: " + profile.toStdString());
    m_state = std::make_unique<CReceiverState>(*m_model, *found);
    m_drainTimer = new QTimer(this);
    m_drainTimer->setSingleShot(true);
    m_drainTimer->setTimerType(Qt::PreciseTimer);
    connect(m_drainTimer, &QTimer::timeout, this, &CSimulator::Drain);
}

CSimulator::~CSimulator() = default;

void CSimulator::Serve(QIODevice* device) {
    if (m_device)
        disconnect(m_device, nullptr, this, nullptr);
    m_device = device;
    m_input.clear();
    m_output.clear();
    m_passThroughPort.clear();
    connect(device, &QIODevice::readyRead, this, &CSimulator::OnControllerBytes);
    if (device->bytesAvailable() > 0)
        OnControllerBytes();
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
    disconnect(device, nullptr, this, nullptr);
    device->close();
    emit connectionDropped();
}

void CSimulator::DropAfter(int ms) {
    QTimer::singleShot(ms, this, &CSimulator::DropConnection);
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
    while (!bytes.isEmpty()) {
        if (InPassThrough()) {
            // Bytes pass untouched until the terminator text; it and what follows are ours.
            m_input.append(bytes);
            bytes.clear();
            const QByteArray end = m_passThroughEnd.toUtf8();
            const qsizetype at = end.isEmpty() ? -1 : m_input.indexOf(end);
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
                return;
            }
            bytes = m_input.mid(at + end.size());
            m_input.clear();
            m_passThroughPort.clear();
            SideEffects ignored;
            m_state->Execute(QStringLiteral("set,cur/term/imode,%1").arg(m_imodeBeforeEcho),
                             ignored);
            continue;
        }
        m_input.append(bytes);
        bytes.clear();
        qsizetype end;
        while (!InPassThrough() && (end = m_input.indexOf('\n')) >= 0) {
            QByteArray line = m_input.left(end);
            m_input.remove(0, end + 1);
            if (std::exchange(m_discardingLongLine, false))
                continue;
            if (line.endsWith('\r'))
                line.chop(1);
            if (line.size() > kMaxCommandLine) {
                Answer({}, ErrorAnswer(5, QStringLiteral("command too long")));
                continue;
            }
            HandleLine(line);
        }
        if (InPassThrough()) {
            bytes = std::exchange(m_input, {});
            continue;
        }
        if (m_input.size() > kMaxCommandLine) {
            m_input.clear();
            m_discardingLongLine = true;
            Answer({}, ErrorAnswer(5, QStringLiteral("command too long")));
        }
    }
}

void CSimulator::HandleLine(const QByteArray& line) {
    QByteArray id;
    QByteArray command = line;
    if (line.startsWith('%')) {
        const qsizetype close = line.indexOf('%', 1);
        id = close > 0 ? line.mid(1, close - 1) : QByteArray();
        if (close < 0 || id.size() > 8 || !std::all_of(id.begin(), id.end(), IsIdChar)) {
            Answer({}, ErrorAnswer(3, QStringLiteral("bad syntax")));
            return;
        }
        command = line.mid(close + 1);
    }
    if (command.trimmed().isEmpty())
        return;
    const QString text = QString::fromUtf8(command);
    m_received << text;

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
    Answer(id, answer);
    for (const auto& [port, bytes] : effects.portOutput)
        if (QIODevice* device = m_portDevices[port])
            device->write(bytes);
    if (effects.reset)
        AnnounceReset();
    if (effects.powerOff)
        Send(EncodeFrame("NT", {}, "power,off"));
    StartPassThroughIfAsked();

    if (m_faults.dropAfterCommands > 0 && --m_faults.dropAfterCommands == 0)
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

void CSimulator::Send(const QByteArray& bytes) {
    if (m_faults.latencyMs > 0)
        QTimer::singleShot(m_faults.latencyMs, this, [this, bytes] { Emit(bytes); });
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
