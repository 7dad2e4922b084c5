#include "ReceiverState.h"

#include "Sky.h"
#include "SourceTables.h"

#include <algorithm>
#include <cmath>

namespace rxsim {

namespace {

// Identity paths and the profile field that answers each.
const std::pair<const char*, QString Profile::*> kIdentity[] = {
    {"rcv/model", &Profile::model},
    {"rcv/ver/main", &Profile::firmware},
    {"rcv/ver/board", &Profile::board},
    {"rcv/id", &Profile::serial},
};

QStringList SplitTopLevel(const QString& text, QChar separator) {
    QStringList parts;
    QString current;
    int depth = 0;
    bool quoted = false;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (quoted) {
            current += c;
            if (c == QLatin1Char('\\') && i + 1 < text.size())
                current += text.at(++i);
            else if (c == QLatin1Char('"'))
                quoted = false;
            continue;
        }
        if (c == QLatin1Char('"'))
            quoted = true;
        else if (c == QLatin1Char('{') || c == QLatin1Char('['))
            ++depth;
        else if (c == QLatin1Char('}') || c == QLatin1Char(']'))
            --depth;
        else if (c == separator && depth == 0) {
            parts << current;
            current.clear();
            continue;
        }
        current += c;
    }
    parts << current;
    return parts;
}

// "text" with \" \\ \r \n escapes → the text; nullopt when not one well-formed quoted string.
std::optional<QString> Unquote(const QString& value) {
    if (value.size() < 2 || !value.startsWith(QLatin1Char('"')) ||
        !value.endsWith(QLatin1Char('"')))
        return std::nullopt;
    QString out;
    for (qsizetype i = 1; i < value.size() - 1; ++i) {
        QChar c = value.at(i);
        if (c == QLatin1Char('"'))
            return std::nullopt;
        if (c == QLatin1Char('\\')) {
            if (++i >= value.size() - 1)
                return std::nullopt;
            c = value.at(i);
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

QString Quote(const QString& text) {
    QString out = QStringLiteral("\"");
    for (const QChar c : text) {
        if (c == QLatin1Char('"') || c == QLatin1Char('\\'))
            out += QLatin1Char('\\') + c;
        else if (c == QLatin1Char('\r'))
            out += QStringLiteral("\\r");
        else if (c == QLatin1Char('\n'))
            out += QStringLiteral("\\n");
        else
            out += c;
    }
    return out + QLatin1Char('"');
}

bool BalancedBraces(const QString& value) {
    int depth = 0;
    for (const QChar c : value) {
        depth += c == QLatin1Char('{') ? 1 : c == QLatin1Char('}') ? -1 : 0;
        if (depth < 0)
            return false;
    }
    return depth == 0;
}

// A number written in hexadecimal digits only, without prefix or sign.
std::optional<qulonglong> HexNumber(const QString& digits) {
    const bool hex = !digits.isEmpty() && std::all_of(digits.begin(), digits.end(), [](QChar c) {
        return c.isDigit() || (c.toLower() >= QLatin1Char('a') && c.toLower() <= QLatin1Char('f'));
    });
    bool ok = false;
    const qulonglong number = hex ? digits.toULongLong(&ok, 16) : 0;
    return ok ? std::optional<qulonglong>(number) : std::nullopt;
}

constexpr double kMaxPeriod = 86400; // s
const QString kDefaultSchedule = QStringLiteral("{1.00,0.00,0,0x0}");

// "{period,phase,count,0xflags}" (seconds, seconds, a count, hexadecimal flags) as the receiver
// prints it; nullopt when it is no such record or a number is out of range.
std::optional<QString> MessageSchedule(const QString& value) {
    if (!value.startsWith(QLatin1Char('{')) || !value.endsWith(QLatin1Char('}')))
        return std::nullopt;
    const QStringList parts = value.mid(1, value.size() - 2).split(QLatin1Char(','));
    if (parts.size() != 4 || !parts[3].startsWith(QLatin1String("0x")))
        return std::nullopt;
    bool periodOk = false;
    bool phaseOk = false;
    bool countOk = false;
    const double period = parts[0].toDouble(&periodOk);
    const double phase = parts[1].toDouble(&phaseOk);
    const qulonglong count = parts[2].toULongLong(&countOk);
    const auto flags = HexNumber(parts[3].mid(2));
    const auto inRange = [](double seconds) {
        return seconds >= 0 && seconds <= kMaxPeriod;
    };
    if (!periodOk || !phaseOk || !countOk || !flags || !inRange(period) || !inRange(phase) ||
        count > UINT32_MAX || *flags > UINT32_MAX)
        return std::nullopt;
    return QStringLiteral("{%1,%2,%3,0x%4}")
        .arg(QString::number(period, 'f', 2), QString::number(phase, 'f', 2),
             QString::number(count), QString::number(*flags, 16));
}

QString JoinRecord(const QStringList& items) {
    return QLatin1Char('{') + items.join(QLatin1Char(',')) + QLatin1Char('}');
}

struct Target {
    QString path;
    QString attribute; // "def", "size", ... or empty
    bool subtree = false;
};

Target ParseTarget(QString text) {
    Target t;
    if (text.endsWith(QLatin1String(":on"))) {
        t.subtree = true;
        text.chop(3);
    }
    const qsizetype amp = text.indexOf(QLatin1Char('&'));
    if (amp >= 0) {
        t.attribute = text.mid(amp + 1);
        text.truncate(amp);
    }
    t.path = CModel::Canonical(text);
    return t;
}

// "{name={schedule},...}"; items that are not a name and a schedule are left out.
std::vector<std::pair<QString, QString>> ParseMessageSet(const QString& text) {
    std::vector<std::pair<QString, QString>> messages;
    if (text.size() < 2 || !text.startsWith(QLatin1Char('{')) || !text.endsWith(QLatin1Char('}')))
        return messages;
    for (const QString& item : SplitTopLevel(text.mid(1, text.size() - 2), QLatin1Char(','))) {
        const qsizetype equals = item.indexOf(QLatin1Char('='));
        if (const auto schedule = equals > 0 ? MessageSchedule(item.mid(equals + 1)) : std::nullopt)
            messages.emplace_back(item.left(equals), *schedule);
    }
    return messages;
}

template <typename Messages> auto FindMessage(Messages& messages, const QString& name) {
    return std::find_if(messages.begin(), messages.end(),
                        [&name](const auto& message) { return message.first == name; });
}

} // namespace

Answer ErrorAnswer(int code, const QString& text) {
    return {true, QStringLiteral("{%1,,%2}").arg(code).arg(text)};
}

void AppendBounded(QStringList& history, const QString& entry, qsizetype keep) {
    if (history.size() >= keep)
        history.removeFirst();
    history << entry;
}

QStringList CReceiverState::SplitCommands(const QString& line) {
    return SplitTopLevel(line, QLatin1Char(';'));
}

CReceiverState::CReceiverState(const CModel& model, const Profile& profile)
    : m_model(model), m_profile(profile) {
    for (const ParamSpec& def : model.Params()) {
        if (!def.feature.isEmpty() && !profile.features.contains(def.feature))
            continue;
        if (def.kind == ParamSpec::List)
            m_lists[def.path] = &def;
        else if (def.kind == ParamSpec::MessageSet)
            m_messageSets[def.path] = {&def, ParseMessageSet(def.defaultValue)};
        else
            AddParam(def, def.path);
    }
    for (const PortSpec& port : model.Ports())
        if (port.refuses)
            m_refusing.insert(port.path);
    for (const auto& [path, value] : profile.values)
        if (auto it = m_params.find(path);
            it != m_params.end() && it->second.def->kind == ParamSpec::PortMessages)
            m_messages[PortOf(path)] =
                SplitTopLevel(value.mid(1, value.size() - 2), QLatin1Char(','));
        else if (it != m_params.end())
            it->second.value = value;
        else if (auto set = m_messageSets.find(path); set != m_messageSets.end())
            set->second.messages = ParseMessageSet(value);
    for (const auto& [path, field] : kIdentity)
        if (auto it = m_params.find(QLatin1String(path)); it != m_params.end())
            it->second.value = profile.*field;
}

void CReceiverState::AddParam(const ParamSpec& def, const QString& path) {
    m_params[path] = {&def, def.defaultValue};
}

std::optional<QString> CReceiverState::Value(const QString& path) const {
    const QString canonical = CModel::Canonical(path);
    if (!Exists(canonical))
        return std::nullopt;
    return Subtree(canonical);
}

bool CReceiverState::Exists(const QString& path) const {
    if (path.isEmpty() || m_params.contains(path) || m_lists.contains(path) ||
        m_messageSets.contains(path))
        return true;
    if (const auto message = SplitMessagePath(path)) {
        const Schedules& messages = m_messageSets.at(message->first).messages;
        return FindMessage(messages, message->second) != messages.end();
    }
    const QString prefix = path + QLatin1Char('/');
    const auto below = [&prefix](const auto& map) {
        const auto next = map.lower_bound(prefix);
        return next != map.end() && next->first.startsWith(prefix);
    };
    return below(m_params) || below(m_lists) || below(m_messageSets);
}

std::optional<std::pair<QString, QString>>
CReceiverState::SplitMessagePath(const QString& path) const {
    for (const auto& [set, messages] : m_messageSets)
        if (path.size() > set.size() + 1 && path.startsWith(set + QLatin1Char('/')))
            return std::pair(set, path.mid(set.size() + 1));
    return std::nullopt;
}

QStringList CReceiverState::Children(const QString& path) const {
    QStringList names;
    if (const auto set = m_messageSets.find(path); set != m_messageSets.end()) {
        for (const auto& message : set->second.messages)
            names << message.first;
        return names;
    }
    const QString prefix = path.isEmpty() ? QString() : path + QLatin1Char('/');
    for (auto it = m_params.lower_bound(prefix); it != m_params.end(); ++it) {
        if (!it->first.startsWith(prefix))
            break;
        const QString name = it->first.mid(prefix.size()).section(QLatin1Char('/'), 0, 0);
        if (names.isEmpty() || names.back() != name)
            names << name;
    }
    // A list without items or a message set has no parameters, but is a member all the same.
    const qsizetype fromParams = names.size();
    const auto addNodes = [&](const auto& map) {
        for (auto it = map.lower_bound(prefix); it != map.end(); ++it) {
            if (!it->first.startsWith(prefix))
                break;
            names << it->first.mid(prefix.size()).section(QLatin1Char('/'), 0, 0);
        }
    };
    addNodes(m_lists);
    addNodes(m_messageSets);
    if (names.size() > fromParams) {
        names.sort();
        names.removeDuplicates();
    }
    return names;
}

QString CReceiverState::Subtree(const QString& path) const {
    if (const auto it = m_params.find(path); it != m_params.end()) {
        const ParamSpec& def = *it->second.def;
        if (def.kind == ParamSpec::PortMessages) {
            const auto port = m_messages.find(path.section(QLatin1Char('/'), 0, -2));
            return JoinRecord(port == m_messages.end() ? QStringList() : port->second);
        }
        return def.kind == ParamSpec::Text ? Quote(it->second.value) : it->second.value;
    }
    if (const auto set = m_messageSets.find(path); set != m_messageSets.end()) {
        QStringList items;
        for (const auto& [name, schedule] : set->second.messages)
            items << name + QLatin1Char('=') + schedule;
        return JoinRecord(items);
    }
    if (const auto message = SplitMessagePath(path)) {
        const Schedules& messages = m_messageSets.at(message->first).messages;
        return FindMessage(messages, message->second)->second;
    }
    QStringList parts;
    const QString prefix = path.isEmpty() ? QString() : path + QLatin1Char('/');
    // Keys are the path segments as they are, so list items read 00={...},03={...} and a key
    // joined to its parent is a path the receiver knows.
    for (const QString& name : Children(path))
        parts << name + QLatin1Char('=') + Subtree(prefix + name);
    return JoinRecord(parts);
}

bool CReceiverState::IsPort(const QString& path) const {
    for (const PortSpec& port : m_model.Ports())
        if (port.path == path &&
            (port.feature.isEmpty() || m_profile.features.contains(port.feature)))
            return true;
    return false;
}

QString CReceiverState::PortOf(const QString& path) const {
    const QString canonical = CModel::Canonical(path);
    const QString owner = canonical.section(QLatin1Char('/'), 0, -2);
    return canonical.endsWith(QLatin1String("/msgs")) && IsPort(owner) ? owner : canonical;
}

Answer CReceiverState::Execute(const QString& line, SideEffects& effects) {
    QStringList replies;
    for (const QString& command : SplitCommands(line)) {
        Answer answer = RunOne(command.trimmed(), effects);
        if (answer.error)
            return answer;
        replies << answer.text;
    }
    return {false, replies.join(QLatin1Char(';'))};
}

Answer CReceiverState::RunOne(const QString& command, SideEffects& effects) {
    static const std::map<QString, Handler> verbs = {
        {"print", &CReceiverState::Print},       {"set", &CReceiverState::Set},
        {"list", &CReceiverState::List},         {"init", &CReceiverState::Init},
        {"create", &CReceiverState::Create},     {"remove", &CReceiverState::Remove},
        {"em", &CReceiverState::EnableMessages}, {"dm", &CReceiverState::DisableMessages},
        {"out", &CReceiverState::Out},           {"event", &CReceiverState::Event},
        {"power", &CReceiverState::Power},       {"reset", &CReceiverState::Reset},
    };
    QStringList args = SplitTopLevel(command, QLatin1Char(','));
    const QString verb = args.takeFirst().trimmed().toLower();
    const auto handler = verbs.find(verb);
    if (handler == verbs.end())
        return ErrorAnswer(4, QStringLiteral("unknown command"));
    return (this->*handler->second)(args, effects);
}

Answer CReceiverState::Print(const QStringList& args, SideEffects&) {
    if (args.size() != 1)
        return ErrorAnswer(3, QStringLiteral("bad syntax"));
    const Target t = ParseTarget(args[0]);
    if (t.path == QLatin1String("alm") && t.attribute.isEmpty())
        return {false, AlmanacRecord(m_almanacs)};
    if (!Exists(t.path))
        return ErrorAnswer(1, QStringLiteral("unknown path"));
    if (t.attribute == QLatin1String("def")) {
        const auto it = m_params.find(t.path);
        if (it == m_params.end())
            return ErrorAnswer(1, QStringLiteral("unknown path"));
        const ParamSpec& def = *it->second.def;
        return {false, def.kind == ParamSpec::Text ? Quote(def.defaultValue) : def.defaultValue};
    }
    if (t.attribute == QLatin1String("reset")) {
        const auto it = m_params.find(t.path);
        if (it == m_params.end())
            return ErrorAnswer(1, QStringLiteral("unknown path"));
        return {false, it->second.def->needsReset ? QStringLiteral("y") : QStringLiteral("n")};
    }
    if (t.attribute == QLatin1String("size"))
        return {false, QString::number(Children(t.path).size())};
    if (t.attribute.startsWith(QLatin1Char('['))) {
        const auto selected = Selection(t.path, t.attribute);
        return selected ? Answer{false, *selected} : ErrorAnswer(3, QStringLiteral("bad syntax"));
    }
    if (!t.attribute.isEmpty())
        return ErrorAnswer(1, QStringLiteral("unknown path"));
    return {false, Subtree(t.path)};
}

std::optional<QString> CReceiverState::Selection(const QString& path, const QString& fields) const {
    if (fields.size() < 3 || !fields.endsWith(QLatin1Char(']')))
        return std::nullopt;
    const QStringList names = fields.mid(1, fields.size() - 2).split(QLatin1Char(','));
    if (names.contains(QString()))
        return std::nullopt;
    const QString prefix = path.isEmpty() ? QString() : path + QLatin1Char('/');
    QStringList members;
    for (const QString& member : Children(path)) {
        QStringList picked;
        for (const QString& name : names)
            if (const QString field = prefix + member + QLatin1Char('/') + name; Exists(field))
                picked << name + QLatin1Char('=') + Subtree(field);
        members << member + QStringLiteral("={") + picked.join(QLatin1Char(',')) + QLatin1Char('}');
    }
    return QLatin1Char('{') + members.join(QLatin1Char(',')) + QLatin1Char('}');
}

std::optional<QString> CReceiverState::Validate(const ParamSpec& def, const QString& value) const {
    switch (def.kind) {
    case ParamSpec::Enum: {
        const EnumSpec& e = m_model.Enums().at(def.enumName);
        if (e.numeric) {
            bool ok = false;
            const long long number = value.toLongLong(&ok);
            for (const QString& text : e.texts)
                if (ok && text.toLongLong() == number)
                    return text;
            return std::nullopt;
        }
        return e.texts.contains(value) ? std::optional<QString>(value) : std::nullopt;
    }
    case ParamSpec::Hex: {
        const auto number = HexNumber(value);
        if (!number || *number < def.min || *number > def.max)
            return std::nullopt;
        return QString::number(*number, 16).toUpper();
    }
    case ParamSpec::Message:
        return MessageSchedule(value);
    case ParamSpec::Int:
    case ParamSpec::UInt: {
        bool ok = false;
        const long long number = value.toLongLong(&ok);
        if (!ok || number < def.min || number > def.max)
            return std::nullopt;
        return QString::number(number);
    }
    case ParamSpec::Real: {
        bool ok = false;
        const double number = value.toDouble(&ok);
        if (!ok || !std::isfinite(number) || number < def.min || number > def.max)
            return std::nullopt;
        return value;
    }
    case ParamSpec::Text: {
        const auto text = Unquote(value);
        if (!text || (def.maxLength > 0 && text->size() > def.maxLength))
            return std::nullopt;
        return text;
    }
    case ParamSpec::Raw:
        return !value.isEmpty() && BalancedBraces(value) ? std::optional<QString>(value)
                                                         : std::nullopt;
    case ParamSpec::List:
    case ParamSpec::MessageSet:
    case ParamSpec::PortMessages:
        return std::nullopt;
    }
    return std::nullopt;
}

Answer CReceiverState::Set(const QStringList& args, SideEffects&) {
    if (args.size() < 2)
        return ErrorAnswer(3, QStringLiteral("bad syntax"));
    const QString path = ParseTarget(args[0]).path;
    const QString value = args.mid(1).join(QLatin1Char(',')).trimmed();
    if (const auto message = SplitMessagePath(path)) {
        Schedules& messages = m_messageSets.at(message->first).messages;
        const auto named = FindMessage(messages, message->second);
        if (named == messages.end())
            return ErrorAnswer(1, QStringLiteral("unknown path"));
        const auto schedule = MessageSchedule(value);
        if (!schedule)
            return ErrorAnswer(2, QStringLiteral("value out of range"));
        named->second = *schedule;
        return {};
    }
    const auto it = m_params.find(path);
    if (it == m_params.end())
        return ErrorAnswer(1, QStringLiteral("unknown path"));
    const ParamSpec& def = *it->second.def;
    if (def.readonly)
        return ErrorAnswer(2, QStringLiteral("access denied"));
    if (def.kind == ParamSpec::Text && !Unquote(value))
        return ErrorAnswer(3, QStringLiteral("bad syntax"));
    const auto accepted = Validate(def, value);
    if (!accepted)
        return ErrorAnswer(2, QStringLiteral("value out of range"));
    it->second.value = *accepted;
    if (path.startsWith(QLatin1String("ntrip/")))
        UpdateNtripClient();
    return {};
}

void CReceiverState::UpdateNtripClient() {
    const auto value = [this](const char* path) -> QString* {
        const auto it = m_params.find(QLatin1String(path));
        return it == m_params.end() ? nullptr : &it->second.value;
    };
    QString* table = value("ntrip/caster/table");
    QString* state = value("ntrip/state");
    QString* error = value("ntrip/error");
    const QString* mode = value("ntrip/mode");
    const QString* host = value("ntrip/caster/addr");
    const QString* mountpoint = value("ntrip/caster/mountpt");
    if (!table || !state || !error || !mode || !host || !mountpoint)
        return;
    const auto served = CasterSourceTable(host->toStdString());
    *table = served ? *served : m_params.at(QStringLiteral("ntrip/caster/table")).def->defaultValue;
    // A client with a caster and a mount point gets its corrections; one without cannot connect.
    *error = *mode != QLatin1String("client") ? QString()
             : host->isEmpty()                ? QStringLiteral("no caster address")
             : mountpoint->isEmpty()          ? QStringLiteral("no mount point")
                                              : QString();
    *state = *mode != QLatin1String("client") ? QStringLiteral("off")
             : error->isEmpty()               ? QStringLiteral("data")
                                              : QStringLiteral("sleep");
}

Answer CReceiverState::List(const QStringList& args, SideEffects&) {
    if (args.size() != 1)
        return ErrorAnswer(3, QStringLiteral("bad syntax"));
    const QString path = ParseTarget(args[0]).path;
    if (!Exists(path))
        return ErrorAnswer(1, QStringLiteral("unknown path"));
    return {false, QLatin1Char('{') + Children(path).join(QLatin1Char(',')) + QLatin1Char('}')};
}

Answer CReceiverState::Init(const QStringList& args, SideEffects&) {
    if (args.size() != 1)
        return ErrorAnswer(3, QStringLiteral("bad syntax"));
    const QString path = ParseTarget(args[0]).path;
    if (!path.isEmpty() && !Exists(path))
        return ErrorAnswer(1, QStringLiteral("unknown path"));
    const QString prefix = path.isEmpty() ? QString() : path + QLatin1Char('/');
    for (auto& [name, param] : m_params)
        if ((name == path || name.startsWith(prefix)) && !param.def->readonly)
            param.value = param.def->defaultValue;
    for (auto& [name, set] : m_messageSets)
        if (name == path || name.startsWith(prefix))
            set.messages = ParseMessageSet(set.def->defaultValue);
    return {};
}

Answer CReceiverState::Create(const QStringList& args, SideEffects&) {
    if (args.isEmpty() || args.size() > 2)
        return ErrorAnswer(3, QStringLiteral("bad syntax"));
    const QString path = ParseTarget(args[0]).path;
    if (const auto message = SplitMessagePath(path)) {
        Schedules& messages = m_messageSets.at(message->first).messages;
        if (args.size() != 1)
            return ErrorAnswer(3, QStringLiteral("bad syntax"));
        if (!m_model.MessageNames().contains(message->second) ||
            FindMessage(messages, message->second) != messages.end())
            return ErrorAnswer(2, QStringLiteral("value out of range"));
        messages.emplace_back(message->second, kDefaultSchedule);
        return {};
    }
    const auto list = m_lists.find(path);
    if (list == m_lists.end())
        return ErrorAnswer(1, QStringLiteral("unknown path"));
    const ParamSpec& def = *list->second;
    const QStringList used = Children(path);
    int index = 0;
    if (args.size() == 2) {
        bool ok = false;
        index = args[1].trimmed().toInt(&ok);
        if (!ok || index < 0 || index >= def.maxItems)
            return ErrorAnswer(2, QStringLiteral("value out of range"));
        // An item that exists keeps its values: creating it again is refused.
        if (used.contains(QString::asprintf("%02d", index)))
            return ErrorAnswer(2, QStringLiteral("value out of range"));
    } else {
        while (used.contains(QString::asprintf("%02d", index)))
            ++index;
        if (index >= def.maxItems)
            return ErrorAnswer(2, QStringLiteral("value out of range"));
    }
    const QString item = path + QLatin1Char('/') + QString::asprintf("%02d", index);
    for (const ParamSpec& field : def.item)
        AddParam(field, item + QLatin1Char('/') + field.path);
    return {false, QString::number(index)};
}

Answer CReceiverState::Remove(const QStringList& args, SideEffects&) {
    if (args.size() != 1)
        return ErrorAnswer(3, QStringLiteral("bad syntax"));
    const QString path = ParseTarget(args[0]).path;
    if (const auto set = m_messageSets.find(path); set != m_messageSets.end()) {
        set->second.messages.clear();
        return {};
    }
    if (const auto message = SplitMessagePath(path)) {
        Schedules& messages = m_messageSets.at(message->first).messages;
        const auto named = FindMessage(messages, message->second);
        if (named == messages.end())
            return ErrorAnswer(1, QStringLiteral("unknown path"));
        messages.erase(named);
        return {};
    }
    // A modem's stored driver goes from its slot, which stays: dev/modem/<m>/jps/<n>.
    if (path.section(QLatin1Char('/'), -2, -2) == QLatin1String("jps") &&
        path.startsWith(QLatin1String("dev/modem/"))) {
        const auto id = m_params.find(path + QLatin1String("/id"));
        const auto mode = m_params.find(path + QLatin1String("/mode"));
        if (id == m_params.end() || mode == m_params.end())
            return ErrorAnswer(1, QStringLiteral("unknown path"));
        id->second.value = id->second.def->defaultValue;
        mode->second.value = mode->second.def->defaultValue;
        return {};
    }
    if (!m_lists.contains(path.section(QLatin1Char('/'), 0, -2)) || !Exists(path))
        return ErrorAnswer(1, QStringLiteral("unknown path"));
    std::erase_if(m_params, [&](const auto& entry) {
        return entry.first.startsWith(path + QLatin1Char('/'));
    });
    return {};
}

std::optional<Answer> CReceiverState::RefusePort(const QString& port, bool sending) const {
    if (!IsPort(port))
        return ErrorAnswer(1, QStringLiteral("unknown path"));
    if (sending && m_refusing.contains(port))
        return ErrorAnswer(2, QStringLiteral("access denied"));
    return std::nullopt;
}

Answer CReceiverState::EnableMessages(const QStringList& args, SideEffects&) {
    if (args.size() != 2)
        return ErrorAnswer(3, QStringLiteral("bad syntax"));
    const QString port = PortOf(args[0]);
    if (const auto refused = RefusePort(port, true))
        return *refused;
    const QString set = args[1].trimmed();
    if (!m_model.MessageNames().contains(set))
        return ErrorAnswer(2, QStringLiteral("value out of range"));
    if (!m_messages[port].contains(set))
        m_messages[port] << set;
    return {};
}

Answer CReceiverState::DisableMessages(const QStringList& args, SideEffects&) {
    if (args.isEmpty() || args.size() > 2)
        return ErrorAnswer(3, QStringLiteral("bad syntax"));
    const QString port = PortOf(args[0]);
    if (const auto refused = RefusePort(port, false))
        return *refused;
    if (args.size() == 1)
        m_messages.erase(port);
    else if (m_model.MessageNames().contains(args[1].trimmed()))
        m_messages[port].removeAll(args[1].trimmed());
    else
        return ErrorAnswer(2, QStringLiteral("value out of range"));
    return {};
}

Answer CReceiverState::Out(const QStringList& args, SideEffects& effects) {
    if (args.size() != 2)
        return ErrorAnswer(3, QStringLiteral("bad syntax"));
    const QString port = CModel::Canonical(args[0]);
    if (const auto refused = RefusePort(port, true))
        return *refused;
    const auto text = Unquote(args[1].trimmed());
    if (!text)
        return ErrorAnswer(3, QStringLiteral("bad syntax"));
    effects.portOutput.emplace_back(port, text->toUtf8());
    return {};
}

Answer CReceiverState::Event(const QStringList& args, SideEffects&) {
    const auto text = args.size() == 1 ? Unquote(args[0].trimmed()) : std::nullopt;
    if (!text || !text->contains(QLatin1Char('=')))
        return ErrorAnswer(3, QStringLiteral("bad syntax"));
    AppendBounded(m_events, *text, kKeptEvents);
    return {};
}

Answer CReceiverState::Power(const QStringList& args, SideEffects& effects) {
    if (args != QStringList{QStringLiteral("off")})
        return ErrorAnswer(3, QStringLiteral("bad syntax"));
    effects.powerOff = true;
    return {};
}

Answer CReceiverState::Reset(const QStringList& args, SideEffects& effects) {
    if (args != QStringList{QStringLiteral("yes")})
        return ErrorAnswer(3, QStringLiteral("bad syntax"));
    effects.reset = true;
    return {};
}

} // namespace rxsim
