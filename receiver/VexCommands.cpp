#include "receiver/VexCommands.h"

#include "lib/Common.h"
#include "lib/Exceptions.h"
#include "lib/PellLib.h"
#include "resources/StringIds.h"

#include <algorithm>
#include <cmath>

namespace pell::vexcmd {

namespace {

bool IsControl(QChar c) {
    return c.unicode() < 0x20 || c.unicode() == 0x7F;
}

[[noreturn]] void Refuse(unsigned textId, const QString& path) {
    PELL_THROW_WIN(g_PellLibApp.XLoadString(textId).arg(path), ERROR_INVALID_PARAMETER);
}

// Paths and words are written bare: they must not hold anything the command line gives a
// meaning to. Commas may only separate the fields of a selection such as "&[name,size]".
const QString& Bare(const QString& text, const QString& path) {
    static const QString forbidden = QStringLiteral(";\"{}");
    int selection = 0;
    for (const QChar c : text) {
        if (c == QLatin1Char('['))
            ++selection;
        else if (c == QLatin1Char(']') && --selection < 0)
            Refuse(ids::UnsafeCommandWord, path);
        if (IsControl(c) || forbidden.contains(c) || c.isSpace() ||
            (c == QLatin1Char(',') && selection == 0))
            Refuse(ids::UnsafeCommandWord, path);
    }
    if (text.isEmpty() || selection != 0)
        Refuse(ids::UnsafeCommandWord, path);
    return text;
}

// A printed value goes back as it came, so it must not hold a command separator of its own.
bool IsOneValue(const QString& value) {
    if (std::any_of(value.begin(), value.end(), IsControl))
        return false;
    bool quoted = false;
    for (qsizetype i = 0; i < value.size(); ++i) {
        const QChar c = value.at(i);
        if (quoted && c == QLatin1Char('\\'))
            ++i;
        else if (c == QLatin1Char('"'))
            quoted = !quoted;
        else if (!quoted && c == QLatin1Char(';'))
            return false;
    }
    return !quoted && !value.isEmpty();
}

QString Set(const QString& path, const QString& value) {
    return QStringLiteral("set,") + Bare(path, path) + QLatin1Char(',') + value;
}

} // namespace

QString Print(const QString& path) {
    return QStringLiteral("print,") + Bare(path, path);
}

QString PrintFields(const QString& path, const QStringList& fields) {
    QStringList names;
    for (const QString& field : fields)
        names << Bare(field, path);
    return Print(path) + QStringLiteral("&[") + names.join(QLatin1Char(',')) + QLatin1Char(']');
}

QString PrintNeedsReset(const QString& leaf) {
    return Print(leaf) + QStringLiteral("&reset");
}

QString Reset() {
    return QStringLiteral("reset,yes");
}

QString SetChoice(const QString& path, const QString& word) {
    return Set(path, Bare(word, path));
}

QString SetSigned(const QString& path, long long value) {
    return Set(path, QString::number(value));
}

QString SetUnsigned(const QString& path, unsigned long long value) {
    return Set(path, QString::number(value));
}

QString SetReal(const QString& path, double value) {
    if (!std::isfinite(value))
        Refuse(ids::UnsafeCommandWord, path);
    return Set(path, QString::asprintf("%f", value));
}

QString SetText(const QString& path, const QString& text) {
    return Set(path, QuoteText(text, path));
}

QString SetPrinted(const QString& path, const QString& value) {
    if (!IsOneValue(value))
        Refuse(ids::UnsafeCommandWord, path);
    return Set(path, value);
}

QString Create(const QString& list, unsigned index) {
    return QStringLiteral("create,") + Bare(list, list) + QLatin1Char(',') + QString::number(index);
}

QString CreateNamed(const QString& path) {
    return QStringLiteral("create,") + Bare(path, path);
}

QString Remove(const QString& item) {
    return QStringLiteral("remove,") + Bare(item, item);
}

QString Init(const QString& path) {
    return QStringLiteral("init,") + Bare(path, path);
}

QString List(const QString& path) {
    return QStringLiteral("list,") + Bare(path, path);
}

QString EnableMessages(const QString& port, const QString& messages) {
    return QStringLiteral("em,") + Bare(port, port) + QLatin1Char(',') + Bare(messages, port);
}

QString DisableMessages(const QString& port) {
    return QStringLiteral("dm,") + Bare(port, port);
}

QString DisableMessages(const QString& port, const QString& messages) {
    return DisableMessages(port) + QLatin1Char(',') + Bare(messages, port);
}

QString Out(const QString& port, const QString& text) {
    return QStringLiteral("out,") + Bare(port, port) + QLatin1Char(',') + QuoteText(text, port);
}

namespace {

struct PortName {
    unsigned id;
    const char* path;
};
constexpr PortName kPorts[] = {{1, "cur/term"},    {100, "dev/ser/a"}, {101, "dev/ser/b"},
                               {102, "dev/ser/c"}, {103, "dev/ser/d"}, {950, "dev/ble/a"}};

} // namespace

QString PortPath(unsigned port) {
    for (const PortName& name : kPorts)
        if (name.id == port)
            return QLatin1String(name.path);
    return {};
}

unsigned PortId(const QString& path) {
    const QString bare = path.startsWith(QLatin1Char('/')) ? path.mid(1) : path;
    for (const PortName& name : kPorts)
        if (bare == QLatin1String(name.path))
            return name.id;
    return 0;
}

const QStringList& SerialLineLeaves() {
    static const QStringList leaves = {QStringLiteral("rate"), QStringLiteral("bits"),
                                       QStringLiteral("parity"), QStringLiteral("stops"),
                                       QStringLiteral("rtscts")};
    return leaves;
}

QString ReleasePort(const QString& port) {
    // Output mode none stops the port's stream without forgetting its message sets, which
    // come back with its mode.
    return SetChoice(port + QStringLiteral("/mode"), QStringLiteral("none"));
}

QString StartEcho(const QString& current, const QString& module, const QString& terminator,
                  const QStringList& lineSettings) {
    const auto leaf = [](const QString& port, const char* name) {
        return port + QLatin1Char('/') + QLatin1String(name);
    };
    const QString off = QStringLiteral("off");
    QStringList line = {SetChoice(leaf(current, "ewrap"), off),
                        SetChoice(leaf(module, "ewrap"), off),
                        SetChoice(leaf(module, "imode"), QStringLiteral("none")),
                        SetChoice(leaf(current, "echo"), QLatin1Char('/') + module),
                        SetText(leaf(current, "eoff"), terminator),
                        SetText(leaf(module, "eoff"), terminator)};
    if (!lineSettings.isEmpty()) {
        if (lineSettings.size() != SerialLineLeaves().size())
            Refuse(ids::UnsafeCommandWord, module);
        for (qsizetype i = 0; i < lineSettings.size(); ++i)
            line << SetChoice(module + QLatin1Char('/') + SerialLineLeaves().at(i),
                              lineSettings.at(i));
    }
    // Last: a receiver stops a line at its first refusal, and an echo turned on before one
    // would be left running with nobody to end it.
    line << SetChoice(leaf(current, "imode"), QStringLiteral("echo"));
    return line.join(QLatin1Char(';'));
}

QString EndEcho(const QString& current) {
    return SetChoice(current + QStringLiteral("/imode"), QStringLiteral("cmd"));
}

QString QuoteText(const QString& text, const QString& path) {
    QString out;
    out.reserve(text.size() + 2);
    out += QLatin1Char('"');
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (c == QLatin1Char('"') || c == QLatin1Char('\\')) {
            out += QLatin1Char('\\');
            out += c;
        } else if (c == QLatin1Char('\r')) {
            out += QStringLiteral("\\r");
        } else if (c == QLatin1Char('\n')) {
            out += QStringLiteral("\\n");
        } else if (c.isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate()) {
            out += c;
            out += text.at(++i);
        } else if ((IsControl(c) && c != QLatin1Char('\t')) || c.isSurrogate()) {
            Refuse(ids::UnsafeTextValue, path);
        } else {
            out += c;
        }
    }
    out += QLatin1Char('"');
    return out;
}

std::optional<QString> UnquoteText(const QString& quoted) {
    if (quoted.size() < 2 || !quoted.startsWith(QLatin1Char('"')) ||
        !quoted.endsWith(QLatin1Char('"')))
        return std::nullopt;
    QString out;
    out.reserve(quoted.size() - 2);
    for (qsizetype i = 1; i < quoted.size() - 1; ++i) {
        QChar c = quoted.at(i);
        if (c == QLatin1Char('"'))
            return std::nullopt;
        if (c == QLatin1Char('\\')) {
            if (++i >= quoted.size() - 1)
                return std::nullopt;
            c = quoted.at(i);
            if (c == QLatin1Char('r'))
                c = QLatin1Char('\r');
            else if (c == QLatin1Char('n'))
                c = QLatin1Char('\n');
            else if (c != QLatin1Char('"') && c != QLatin1Char('\\'))
                return std::nullopt;
        }
        out += c;
    }
    return out;
}

} // namespace pell::vexcmd
