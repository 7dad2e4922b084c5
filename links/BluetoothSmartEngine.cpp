#include "links/BluetoothSmartEngine.h"

#include "lib/Common.h"
#include "lib/Exceptions.h"
#include "lib/PellLib.h"
#include "lib/Tick.h"
#include "links/PassThrough.h"
#include "receiver/VexCommands.h"
#include "resources/StringIds.h"

#include <QCoreApplication>
#include <QDebug>
#include <QScopeGuard>
#include <algorithm>
#include <exception>

namespace {

namespace ids = pell::ids;
namespace vexcmd = pell::vexcmd;

const QString kSource = QStringLiteral("BLE");
const QString kDevice = QStringLiteral("Bluetooth LE");
constexpr unsigned kEscapeTimeoutMs = 500;
constexpr unsigned kEscapePauseMs = 200;

QString Quoted(const QString& text) {
    return QLatin1Char('"') + text + QLatin1Char('"');
}

} // namespace

CBluetoothSmartIdentity CBluetoothSmartIdentity::Read(const CVexReceiverMate& mate) {
    const auto read = [&mate](const char* path) {
        return mate.Run(vexcmd::Print(QLatin1String(path)), CVexReceiverMate::RemoveQuotes);
    };
    return {read("rcv/vendor"), read("rcv/model"), read("rcv/ver/hw"), read("rcv/id"),
            read("rcv/uid")};
}

CBluetoothSmartEngine::CBluetoothSmartEngine(std::shared_ptr<rxio::IReceiver> receiver)
    : m_receiver(std::move(receiver)), m_mate(std::make_shared<CVexReceiverMate>(m_receiver)) {
    m_modulePort = ModulePortFor(m_mate->Model());
    if (m_modulePort == 0)
        PELL_THROW_WIN(XString(ids::BleSheetTitle), pell::ERROR_NOT_SUPPORTED);
}

CBluetoothSmartEngine::~CBluetoothSmartEngine() {
    try {
        Close();
    } catch (const ulm_std::CException& e) {
        qWarning() << "Bluetooth LE module not closed cleanly:" << e.GetErrorMessage();
    }
}

unsigned CBluetoothSmartEngine::ModulePortFor(const QString& model) {
    if (CVexReceiverMate::IsOstrelFamily(model) || CVexReceiverMate::IsPardoFamily(model))
        return 950;
    if (model.compare(QLatin1String("Lumen7"), Qt::CaseInsensitive) == 0)
        return 103;
    return 0;
}

void CBluetoothSmartEngine::Open() {
    try {
        Close();
    } catch (const ulm_std::CException& e) {
        // The ports are back all the same; a fresh start does not need the old module's answer.
        qWarning() << "Bluetooth LE module not closed cleanly:" << e.GetErrorMessage();
    }
    try {
        OpenSteps();
    } catch (...) {
        try {
            Close();
        } catch (const ulm_std::CException& e) {
            qWarning() << "Bluetooth LE pass-through not fully undone:" << e.GetErrorMessage();
        }
        throw;
    }
}

void CBluetoothSmartEngine::OpenSteps() {
    const QString module = vexcmd::PortPath(m_modulePort);
    // The guard comes first, so that a prepared serial port gets its own settings back too.
    m_guard = pell::passthrough::RecordPorts(*m_mate, module);
    if (CVexReceiverMate::PreparesModulePort(m_mate->Model())) {
        m_mate->SetPortRate(module, QStringLiteral("115200"));
        m_mate->SetPortRtsCts(module, true);
    }
    pell::passthrough::Start(*m_mate, module);
    m_suspended = true;
    m_commandMode = true;
    for (int attempt = 0; attempt < kOpenAttempts; ++attempt)
        if (Probe(true))
            return;
    try {
        Close();
    } catch (const ulm_std::CException& e) {
        qWarning() << "Bluetooth LE pass-through not fully undone:" << e.GetErrorMessage();
    }
    PELL_THROW_WIN(XString(ids::BleModuleOpen).arg(m_modulePort), pell::ERROR_DEV_NOT_EXIST);
}

void CBluetoothSmartEngine::Close() {
    if (!m_guard)
        return;
    std::exception_ptr first;
    const auto step = [&first](const auto& action) {
        try {
            action();
        } catch (const ulm_std::CException&) {
            if (!first)
                first = std::current_exception();
        }
    };
    // A lost connection takes no module command; its ports go back when it returns.
    if (std::exchange(m_commandMode, false) && m_receiver->IsConnected())
        step([this] {
            QString reply;
            SendCommand(QStringLiteral("ATO\r\n"), reply, false, kCommandTimeoutMs);
        });
    if (std::exchange(m_suspended, false))
        step([this] { pell::passthrough::End(*m_mate); });
    const std::shared_ptr<Restorer> guard = std::exchange(m_guard, nullptr);
    step([&guard] { guard->Restore(); });
    if (first)
        std::rethrow_exception(first);
}

bool CBluetoothSmartEngine::Probe(bool sendEscape) {
    QString reply;
    for (int attempt = 0; attempt < 2; ++attempt) {
        if (sendEscape || attempt > 0) {
            pell::Sleep(kEscapePauseMs);
            SendCommand(QStringLiteral("+++"), reply, true, kEscapeTimeoutMs);
            pell::Sleep(kEscapePauseMs);
            SendCommand(QStringLiteral("\r\n"), reply, true, kEscapeTimeoutMs);
        }
        SendCommand(QStringLiteral("ATI PID\r\n"), reply, true, kCommandTimeoutMs);
        if (reply.compare(QLatin1String("\"BLE\"\r\n"), Qt::CaseInsensitive) == 0)
            return true;
    }
    return false;
}

void CBluetoothSmartEngine::SendCommand(const QString& command, QString& reply, bool tolerateErrors,
                                        unsigned timeoutMs) {
    const std::uint32_t start = pell::GetTickCount();
    reply.clear();
    if (m_busy)
        PELL_THROW_WIN(XString(ids::BleModuleCommand).arg(command.trimmed()), pell::ERROR_BUSY);
    // Without the pass-through the port is the receiver's: a module command must never reach it.
    if (!m_suspended)
        PELL_THROW_WIN(XString(ids::BleModuleCommand).arg(command.trimmed()),
                       pell::ERROR_DEV_NOT_EXIST);
    m_busy = true;
    const auto done = qScopeGuard([this] { m_busy = false; });
    rxio::IPort& port = m_receiver->Port();
    port.Purge(rxio::IPort::PurgeReceive);
    port.Write(command.toUtf8());
    QByteArray response;
    // Unsigned difference: a tick counter that wraps during the wait still measures it.
    while (pell::GetTickCount() - start < timeoutMs) {
        const std::size_t waiting = port.BytesWaiting();
        if (waiting == 0) {
            // No user input: only what delivers bytes (a receiver in this process, a pty).
            QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
            continue;
        }
        response += port.Read(waiting);
        const Framed framed = FrameReply(response);
        reply = framed.text;
        if (framed.state == Framed::Ok)
            return;
        if (framed.state == Framed::Error && !tolerateErrors)
            throw ulm_std::CCommException(command.trimmed(), kDevice, reply, kSource);
    }
    if (tolerateErrors)
        return;
    if (reply.startsWith(QLatin1String("ERROR=")))
        throw ulm_std::CCommException(command.trimmed(), kDevice, reply, kSource);
    PELL_THROW_WIN(XString(ids::BleModuleCommand).arg(command.trimmed()), pell::ERROR_TIMEOUT);
}

CBluetoothSmartEngine::Framed CBluetoothSmartEngine::FrameReply(const QByteArray& response) {
    const qsizetype ok = response.indexOf("OK\r\n");
    if (ok >= 0)
        return {Framed::Ok, QString::fromUtf8(response.left(ok))};
    const qsizetype error = response.indexOf("ERROR=");
    if (error < 0)
        return {};
    // The whole error line, unless the wait ends first.
    const qsizetype end = response.indexOf("\r\n", error);
    return {end < 0 ? Framed::Waiting : Framed::Error,
            QString::fromUtf8(response.mid(error, end < 0 ? -1 : end - error))};
}

void CBluetoothSmartEngine::Run(const QString& command) {
    QString reply;
    SendCommand(command, reply, false, kCommandTimeoutMs);
}

void CBluetoothSmartEngine::SendQuoted(const char* format, const QString& argument) {
    // The module knows no escapes.
    if (!pell::passthrough::FitsOneArgument(argument, true))
        PELL_THROW_WIN(XString(ids::BtUnsafeText).arg(argument), pell::ERROR_INVALID_PARAMETER);
    Run(QString::fromLatin1(format).arg(Quoted(argument)));
}

CBluetoothSmartEngine::Pairs CBluetoothSmartEngine::ParseReply(const QString& reply) {
    Pairs pairs;
    for (const QString& line : reply.split(QStringLiteral("\r\n"))) {
        const qsizetype equals = line.indexOf(QLatin1Char('='));
        if (equals < 0)
            continue;
        QString value = line.mid(equals + 1).trimmed();
        if (value.size() >= 2 && value.startsWith(QLatin1Char('"')) &&
            value.endsWith(QLatin1Char('"')))
            value = value.mid(1, value.size() - 2);
        pairs.emplace_back(line.left(equals).trimmed(), value);
    }
    return pairs;
}

void CBluetoothSmartEngine::ReadInformation(Pairs& pairs) {
    QString reply;
    SendCommand(QStringLiteral("ATI\r\n"), reply, false, kCommandTimeoutMs);
    pairs = ParseReply(reply);
}

void CBluetoothSmartEngine::ReadSettings(Pairs& pairs) {
    QString reply;
    SendCommand(QStringLiteral("BT\r\n"), reply, false, kCommandTimeoutMs);
    pairs = ParseReply(reply);
}

void CBluetoothSmartEngine::SetFriendlyName(const QString& name) {
    SendQuoted("BT FNAME %1\r\n", name);
}

void CBluetoothSmartEngine::SetPin(const QString& pin) {
    SendQuoted("BT PIN %1\r\n", pin);
}

void CBluetoothSmartEngine::SetRadio(bool on) {
    Run(on ? QStringLiteral("BT&F RADIO ON\r\n") : QStringLiteral("BT&F RADIO OFF\r\n"));
}

void CBluetoothSmartEngine::SetVendorId(const QString& text) {
    SendQuoted("ATI&F VID %1\r\n", text);
}

void CBluetoothSmartEngine::SetModelId(const QString& text) {
    SendQuoted("ATI&F MID %1\r\n", text);
}

void CBluetoothSmartEngine::SetSerialNumber(const QString& text) {
    SendQuoted("ATI&F SN %1\r\n", text);
}

void CBluetoothSmartEngine::SetHardwareVersion(const QString& text) {
    SendQuoted("ATI&F HW %1\r\n", text);
}

void CBluetoothSmartEngine::SetPersistentData(const std::uint8_t* bytes, std::size_t count) {
    QString hex;
    for (std::size_t i = 0; i < count; ++i)
        hex += QString::asprintf("%02X", bytes[i]);
    Run(QStringLiteral("ADV&F PERS {%1}\r\n").arg(hex));
}

void CBluetoothSmartEngine::BootInit() {
    // The module restarts in data mode, perhaps before its answer is out: there is no command
    // mode to leave any more.
    m_commandMode = false;
    Run(QStringLiteral("BOOT INIT\r\n"));
}

QString CBluetoothSmartEngine::PadPin(const QString& pin) {
    return pin.isEmpty() ? pin : pin.rightJustified(6, QLatin1Char('0'));
}

CBluetoothSmartEngine::AdvertisingRecord
CBluetoothSmartEngine::MakeAdvertisingRecord(const CBluetoothSmartIdentity& identity) {
    static const struct {
        const char* model;
        std::uint8_t code;
    } kModels[] = {{"Ostrel Q", 1}, {"Ostrel W", 3}, {"Pardo7", 4}, {"Lumen7", 2}};
    AdvertisingRecord record{};
    record[0] = 2;
    record[1] = 2;
    record[2] = 5;
    for (const auto& model : kModels)
        if (identity.model.compare(QLatin1String(model.model), Qt::CaseInsensitive) == 0)
            record[3] = model.code;
    std::uint64_t serial = 0;
    for (const QChar c : identity.serialNumber)
        if (c >= QLatin1Char('0') && c <= QLatin1Char('9'))
            serial = std::min<std::uint64_t>(serial * 10 + (c.unicode() - '0'), 0xFFFFFFFFull + 1);
    const auto value = static_cast<std::uint32_t>(std::min<std::uint64_t>(serial, 0xFFFFFFFFu));
    for (int i = 0; i < 4; ++i)
        record[5 + i] = static_cast<std::uint8_t>(value >> (8 * i));
    record[9] = 3; // flags, little-endian: bits 0 and 1
    return record;
}

QString CBluetoothSmartEngine::MakeFriendlyName(const CBluetoothSmartIdentity& identity) {
    QString prefix;
    if (identity.model.compare(QLatin1String("Ostrel Q"), Qt::CaseInsensitive) == 0)
        prefix = QStringLiteral("OSQ");
    else if (identity.model.compare(QLatin1String("Ostrel W"), Qt::CaseInsensitive) == 0)
        prefix = QStringLiteral("OSW");
    const QString serial =
        identity.serialNumber.isEmpty() ? identity.secondId : identity.serialNumber;
    return QStringLiteral("%1-%2-L").arg(prefix, serial).remove(QLatin1Char(' '));
}
