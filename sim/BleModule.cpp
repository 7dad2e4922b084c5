#include "BleModule.h"

#include <QRegularExpression>

namespace rxsim {

namespace {

const QByteArray kOk = "OK\r\n";
const QByteArray kInvalid = "ERROR=INVALID PARAMETER\r\n";
const QByteArray kUnknown = "ERROR=UNKNOWN COMMAND\r\n";
const QByteArray kBusy = "ERROR=BUSY\r\n";
constexpr qsizetype kMaxText = 32;

// The text between a pair of double quotes that enclose the whole argument; a quote inside, a
// control character or a byte that was not UTF-8 makes it malformed. Lengths count characters.
std::optional<QString> Quoted(const QString& argument, qsizetype minLength) {
    if (argument.size() < 2 || !argument.startsWith(QLatin1Char('"')) ||
        !argument.endsWith(QLatin1Char('"')))
        return std::nullopt;
    const QString text = argument.mid(1, argument.size() - 2);
    const qsizetype length = text.toUcs4().size();
    if (length < minLength || length > kMaxText)
        return std::nullopt;
    for (const QChar c : text)
        if (c == QLatin1Char('"') || c.category() == QChar::Other_Control ||
            c == QChar::ReplacementCharacter)
            return std::nullopt;
    return text;
}

QByteArray Pair(const char* name, const QString& value) {
    return QByteArray(name) + "=\"" + value.toUtf8() + "\"\r\n";
}

} // namespace

struct CBleModule::Command {
    const char* keyword;
    const char* sub; // empty: the keyword alone, with nothing after it
    Handler handler;
    QString BleSettings::*text = nullptr; // SetText: the field it writes
    qsizetype minLength = 0;
};

const CBleModule::Command CBleModule::kCommands[] = {
    {"ATI", "", &CBleModule::Information},
    {"ATI", "PID", &CBleModule::ProductId},
    {"ATI&F", "VID", &CBleModule::SetText, &BleSettings::vendorId},
    {"ATI&F", "MID", &CBleModule::SetText, &BleSettings::modelId},
    {"ATI&F", "SN", &CBleModule::SetText, &BleSettings::serialNumber},
    {"ATI&F", "HW", &CBleModule::SetText, &BleSettings::hardwareVersion},
    {"BT", "", &CBleModule::ReadSettings},
    {"BT", "FNAME", &CBleModule::SetText, &BleSettings::friendlyName, 1},
    {"BT", "PIN", &CBleModule::SetPin},
    {"BT&F", "RADIO", &CBleModule::SetRadio},
    {"ADV&F", "PERS", &CBleModule::SetAdvertising},
    {"BOOT", "INIT", &CBleModule::BootInit},
    {"ATO", "", &CBleModule::DataMode},
};

CBleModule::CBleModule(const BleSettings& settings, const QString& address, QObject* parent)
    : CPortModule(parent), m_settings(settings), m_address(address) {}

void CBleModule::Hear(const QByteArray& bytes) {
    for (const char c : bytes) {
        if (!m_commandMode) {
            // Data mode: everything but the escape goes by unheard.
            m_pluses = c == '+' ? m_pluses + 1 : 0;
            if (m_pluses == 3) {
                m_pluses = 0;
                m_commandMode = true;
                m_line.Clear();
                Reply(kOk);
            }
            continue;
        }
        if (const auto line = m_line.Add(c))
            Run(*line);
        else if (m_line.Partial() == "+++") {
            // The escape again, from a controller that does not know the module is awake: as
            // cheap as the first, rather than an unknown command and a wait.
            m_line.Clear();
            Reply(kOk);
        }
    }
}

void CBleModule::Run(const QByteArray& line) {
    QByteArray reply = kUnknown;
    const QString text = QString::fromUtf8(line).trimmed();
    if (text.isEmpty()) {
        reply = kOk;
    } else if (line.size() > CLineBuffer::kMaxLine) {
        reply = kInvalid;
    } else {
        // A keyword, usually a second one, then the argument; keywords in any case.
        const qsizetype space = text.indexOf(QLatin1Char(' '));
        const QString keyword = text.left(space).toUpper();
        const QString rest = space < 0 ? QString() : text.mid(space + 1).trimmed();
        const qsizetype gap = rest.indexOf(QLatin1Char(' '));
        const QString sub = rest.left(gap).toUpper();
        const QString argument = gap < 0 ? QString() : rest.mid(gap + 1).trimmed();
        for (const Command& command : kCommands)
            if (keyword == QLatin1String(command.keyword) && sub == QLatin1String(command.sub)) {
                reply = (this->*command.handler)(command, argument);
                break;
            }
    }
    Reply(GetFaults().errorBeforeOk ? kBusy + reply : reply);
    if (std::exchange(m_restart, false)) {
        m_settings = BleSettings();
        m_commandMode = false;
        m_pluses = 0;
    }
}

QByteArray CBleModule::Information(const Command&, const QString&) {
    return "PELL BLE Module\r\n" +
           Pair("PID", GetFaults().notBle ? QStringLiteral("SPP") : QStringLiteral("BLE")) +
           Pair("VID", m_settings.vendorId) + Pair("MID", m_settings.modelId) +
           Pair("SN", m_settings.serialNumber) + Pair("HW", m_settings.hardwareVersion) +
           Pair("FW", QStringLiteral("1.4.2")) + Pair("ADDR", m_address) + kOk;
}

QByteArray CBleModule::ProductId(const Command&, const QString& argument) {
    if (!argument.isEmpty())
        return kInvalid;
    return (GetFaults().notBle ? "\"SPP\"\r\n" : "\"BLE\"\r\n") + kOk;
}

QByteArray CBleModule::ReadSettings(const Command&, const QString&) {
    return Pair("FNAME", m_settings.friendlyName) + Pair("PIN", m_settings.pin) +
           Pair("ADDR", m_address) + "RADIO=" + (m_settings.radio ? "on" : "off") + "\r\n" + kOk;
}

QByteArray CBleModule::SetText(const Command& command, const QString& argument) {
    const auto text = Quoted(argument, command.minLength);
    if (!text)
        return kInvalid;
    m_settings.*command.text = *text;
    return kOk;
}

QByteArray CBleModule::SetPin(const Command&, const QString& argument) {
    static const QRegularExpression digits(QStringLiteral("^([0-9]{6,16})?$"));
    const auto pin = Quoted(argument, 0);
    if (!pin || !digits.match(*pin).hasMatch())
        return kInvalid;
    m_settings.pin = *pin;
    return kOk;
}

QByteArray CBleModule::SetRadio(const Command&, const QString& argument) {
    const QString word = argument.toUpper();
    if (word != QLatin1String("ON") && word != QLatin1String("OFF"))
        return kInvalid;
    m_settings.radio = word == QLatin1String("ON");
    return kOk;
}

QByteArray CBleModule::SetAdvertising(const Command&, const QString& argument) {
    static const QRegularExpression hex(QStringLiteral("^\\{[0-9A-F]{28}\\}$"));
    if (!hex.match(argument).hasMatch())
        return kInvalid;
    m_settings.advertising = QByteArray::fromHex(argument.mid(1, 28).toLatin1());
    return kOk;
}

QByteArray CBleModule::BootInit(const Command&, const QString& argument) {
    if (!argument.isEmpty())
        return kInvalid;
    // Restarts once its answer is out: factory settings, data mode.
    m_restart = true;
    return kOk;
}

QByteArray CBleModule::DataMode(const Command&, const QString&) {
    m_commandMode = false;
    m_pluses = 0;
    return kOk;
}

} // namespace rxsim
