#include "ClassicBtModule.h"

#include <QStringList>
#include <algorithm>
#include <optional>

namespace rxsim {

namespace {

constexpr qsizetype kMaxName = 248;
constexpr qsizetype kMaxPin = 16;

bool ValidName(const QString& name) {
    const qsizetype bytes = name.toUtf8().size();
    return bytes >= 1 && bytes <= kMaxName && std::none_of(name.begin(), name.end(), [](QChar c) {
               return c.category() == QChar::Other_Control || c == QChar::ReplacementCharacter;
           });
}

bool ValidPin(const QString& pin) {
    return pin.size() <= kMaxPin && std::all_of(pin.begin(), pin.end(), [](QChar c) {
               return c.unicode() > 0x20 && c.unicode() < 0x7f;
           });
}

// "on" or "off" in any case.
std::optional<bool> Switch(const QString& word) {
    if (word.compare(QLatin1String("on"), Qt::CaseInsensitive) == 0)
        return true;
    if (word.compare(QLatin1String("off"), Qt::CaseInsensitive) == 0)
        return false;
    return std::nullopt;
}

QByteArray Framed(const QByteArray& text) {
    return "\r\n" + text + "\r\n";
}

} // namespace

CClassicBtModule::CClassicBtModule(QObject* parent) : CPortModule(parent) {}

void CClassicBtModule::Hear(const QByteArray& bytes) {
    for (const char c : bytes) {
        const auto line = m_line.Add(c);
        // A bare line ending is no command: a terminal's Enter gets no answer.
        if (!line || line->trimmed().isEmpty())
            continue;
        Reply(line->size() > CLineBuffer::kMaxLine ? Framed("ERROR")
                                                   : Run(QString::fromUtf8(*line)));
    }
}

QByteArray CClassicBtModule::Run(const QString& line) {
    static const QByteArray kError = Framed("ERROR");
    // The identification ends in a bare LF of its own.
    if (line.compare(QLatin1String("ati"), Qt::CaseInsensitive) == 0)
        return "\r\nPELL BT-C Module 2.3\r\n\n";
    // verb,parameter[,value]; the value is the rest of the line, commas and all.
    const QStringList parts = line.split(QLatin1Char(','));
    if (parts.size() < 2)
        return kError;
    const QString verb = parts[0].toLower();
    const QString parameter = parts[1].toLower();
    const QString value = parts.mid(2).join(QLatin1Char(','));
    ClassicBtSettings& s = m_settings;
    if (verb == QLatin1String("print") && parts.size() == 2) {
        if (parameter == QLatin1String("btname"))
            return Framed(s.name.toUtf8());
        if (parameter == QLatin1String("btpin"))
            return Framed(s.pin.isEmpty() ? "NoPinSet" : s.pin.toUtf8());
        if (parameter == QLatin1String("btauthentic"))
            return Framed(s.authentication ? "ON" : "OFF");
        if (parameter == QLatin1String("btencrypt"))
            return Framed(s.encryption ? "ON" : "OFF");
        return kError;
    }
    if (verb != QLatin1String("set") || parts.size() < 3)
        return kError;
    if (parameter == QLatin1String("btname") && ValidName(value))
        s.name = value;
    else if (parameter == QLatin1String("btpin") && ValidPin(value))
        s.pin = value;
    else if (parameter == QLatin1String("btauthentic") && Switch(value))
        s.authentication = *Switch(value);
    else if (parameter == QLatin1String("btencrypt") && Switch(value))
        s.encryption = *Switch(value);
    else
        return kError;
    return Framed("OK");
}

} // namespace rxsim
