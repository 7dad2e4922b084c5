#include "config/VOXA2JSON.h"

#include "lib/Exceptions.h"
#include "lib/PellLib.h"
#include "lib/Translator.h"
#include "receiver/VexCommands.h"
#include "receiver/VexReceiverMate.h"
#include "resources/StringIds.h"

#include <QDomDocument>
#include <QFile>
#include <QXmlStreamReader>
#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstring>
#include <rapidjson/document.h>
#include <rapidjson/encodedstream.h>
#include <rapidjson/memorystream.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>
#include <variant>

namespace VOXA2JSON {

namespace {

struct TypeName {
    EType type;
    const char* name;    // the dictionary's Type text
    const char* display; // the display name
};

constexpr std::array<TypeName, 6> kBaseTypes{{
    {EType::Boolean, "boolean", "Boolean"},
    {EType::Integer, "integer", "Integer"},
    {EType::Float, "float", "Float"},
    {EType::String, "string", "String"},
    {EType::QString, "qstring", "QString"},
    {EType::Message, "message", "Message"},
}};

constexpr int kListOffset = static_cast<int>(EType::BooleanList) - static_cast<int>(EType::Boolean);

EType ListOf(EType base) {
    return static_cast<EType>(static_cast<int>(base) + kListOffset);
}

Value EmptyValue(EType type) {
    Value value;
    value.type = type;
    return value;
}

bool IsWildcardPart(const QString& part) {
    return !part.isEmpty() && std::all_of(part.begin(), part.end(), [](QChar c) {
        return c.isLetterOrNumber() || c == QLatin1Char('*') || c == QLatin1Char('?');
    });
}

QStringList SplitItems(const QString& list) {
    QStringList items;
    for (const QString& item : list.split(QLatin1Char(';'), Qt::SkipEmptyParts)) {
        const QString trimmed = item.trimmed();
        if (!trimmed.isEmpty())
            items += trimmed;
    }
    return items;
}

// ---- values in the receiver's form ----

std::optional<std::int32_t> ParseInteger(const QString& text, int radix) {
    bool ok = false;
    if (radix == 10) {
        const qlonglong value = text.toLongLong(&ok, 10);
        if (!ok || value < INT32_MIN || value > INT32_MAX)
            return std::nullopt;
        return static_cast<std::int32_t>(value);
    }
    if (radix != 16)
        return std::nullopt;
    QString digits = text;
    if (digits.startsWith(QLatin1String("0x"), Qt::CaseInsensitive))
        digits = digits.mid(2);
    if (digits.isEmpty() || digits.size() > 8 || digits.startsWith(QLatin1Char('-')) ||
        digits.startsWith(QLatin1Char('+')))
        return std::nullopt;
    const qulonglong value = digits.toULongLong(&ok, 16);
    if (!ok)
        return std::nullopt;
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(value));
}

std::optional<double> ParseReal(const QString& text) {
    bool ok = false;
    const double value = text.toDouble(&ok); // always with a decimal point, whatever the locale
    if (!ok || !std::isfinite(value))
        return std::nullopt;
    return value;
}

std::optional<std::uint32_t> ParseUnsigned(const QString& text, int base) {
    bool ok = false;
    const qulonglong value = text.toULongLong(&ok, base);
    if (!ok || value > UINT32_MAX || text.startsWith(QLatin1Char('+')))
        return std::nullopt;
    return static_cast<std::uint32_t>(value);
}

// [name=]{period,phase,count,0xflags}
std::optional<Message> ParseMessage(const QString& text) {
    Message message;
    QString record = text;
    const qsizetype brace = text.indexOf(QLatin1Char('{'));
    if (brace > 0 && text.at(brace - 1) == QLatin1Char('=')) {
        message.name = text.left(brace - 1).trimmed();
        record = text.mid(brace);
    }
    if (!record.startsWith(QLatin1Char('{')) || !record.endsWith(QLatin1Char('}')))
        return std::nullopt;
    const QStringList fields = record.mid(1, record.size() - 2).split(QLatin1Char(','));
    if (fields.size() != 4)
        return std::nullopt;
    const auto period = ParseReal(fields[0].trimmed());
    const auto phase = ParseReal(fields[1].trimmed());
    const auto count = ParseUnsigned(fields[2].trimmed(), 10);
    QString flags = fields[3].trimmed();
    if (flags.startsWith(QLatin1String("0x"), Qt::CaseInsensitive))
        flags = flags.mid(2);
    const auto flagBits = flags.isEmpty() ? std::nullopt : ParseUnsigned(flags, 16);
    if (!period || !phase || !count || !flagBits)
        return std::nullopt;
    message.period = *period;
    message.phase = *phase;
    message.count = *count;
    message.flags = *flagBits;
    return message;
}

// One item of a value, or nothing when its source does not fit the type.
using Item = std::optional<std::variant<bool, std::int32_t, double, QString, Message>>;

void Store(Value& value, bool item, bool list) {
    list ? value.booleans.push_back(item) : void(value.boolean = item);
}
void Store(Value& value, std::int32_t item, bool list) {
    list ? value.integers.push_back(item) : void(value.integer = item);
}
void Store(Value& value, double item, bool list) {
    list ? value.reals.push_back(item) : void(value.real = item);
}
void Store(Value& value, const QString& item, bool list) {
    list ? value.texts.push_back(item) : void(value.text = item);
}
void Store(Value& value, const Message& item, bool list) {
    list ? value.messages.push_back(item) : void(value.message = item);
}

// A value of `type` from its items, whichever source they come from: `read(itemType, i)` gives
// item i of a list of `count`, or with i = -1 the one item of a value that is no list.
template <class Read> std::optional<Value> Collect(EType type, qsizetype count, const Read& read) {
    Value value = EmptyValue(type);
    const bool list = IsList(type);
    for (qsizetype i = list ? 0 : -1; i < (list ? count : 0); ++i) {
        const Item item = read(ItemType(type), i);
        if (!item)
            return std::nullopt;
        std::visit([&](const auto& stored) { Store(value, stored, list); }, *item);
    }
    value.invalid = false;
    return value;
}

QString UnquotedText(const QString& text) {
    if (const auto unquoted = pell::vexcmd::UnquoteText(text))
        return *unquoted;
    if (text.size() >= 2 && text.startsWith(QLatin1Char('"')) && text.endsWith(QLatin1Char('"')))
        return text.mid(1, text.size() - 2);
    return text;
}

// The receiver's reply for one item (of a base type), or nothing when it does not parse.
Item ParseItem(EType type, const Binding& binding, const QString& text) {
    switch (type) {
    case EType::Boolean: {
        const bool isTrue =
            !binding.trueText.isEmpty() && text.compare(binding.trueText, Qt::CaseInsensitive) == 0;
        const bool isFalse = !binding.falseText.isEmpty() &&
                             text.compare(binding.falseText, Qt::CaseInsensitive) == 0;
        if (isTrue == isFalse)
            return std::nullopt;
        return isTrue;
    }
    case EType::Integer:
        if (const auto integer = ParseInteger(text, binding.radix))
            return *integer;
        return std::nullopt;
    case EType::Float:
        if (const auto real = ParseReal(text))
            return *real;
        return std::nullopt;
    case EType::String:
        return text;
    case EType::QString:
        return UnquotedText(text);
    case EType::Message:
        if (const auto message = ParseMessage(text))
            return *message;
        return std::nullopt;
    default:
        return std::nullopt;
    }
}

std::optional<Value> ParseValue(EType type, const Binding& binding, const QString& reply) {
    if (IsList(type) && (!reply.startsWith(QLatin1Char('{')) || !reply.endsWith(QLatin1Char('}'))))
        return std::nullopt;
    const QStringList items = IsList(type) ? CVexReceiverMate::SplitList(reply) : QStringList();
    return Collect(type, items.size(), [&](EType itemType, qsizetype i) {
        return ParseItem(itemType, binding, i < 0 ? reply : items[i].trimmed());
    });
}

// A bare text item that would change the list around it.
bool ChangesList(const QString& text) {
    return std::any_of(text.begin(), text.end(), [](QChar c) {
        return c == QLatin1Char(',') || c == QLatin1Char('{') || c == QLatin1Char('}') ||
               c == QLatin1Char('"');
    });
}

QString RealText(double value) {
    return QString::asprintf("%f", value); // locale-independent, six decimals
}

QString MessageRecord(const Message& message) {
    return QStringLiteral("{%1,%2,%3,0x%4}")
        .arg(RealText(message.period), RealText(message.phase), QString::number(message.count),
             QString::number(message.flags, 16));
}

// The receiver form of item `i` of a list value (or of the scalar with i < 0).
std::optional<QString> ComposeItem(EType type, const Binding& binding, const Value& value, int i) {
    switch (type) {
    case EType::Boolean: {
        const QString& word = (i < 0 ? value.boolean : bool(value.booleans[i])) ? binding.trueText
                                                                                : binding.falseText;
        if (word.isEmpty())
            return std::nullopt;
        return word;
    }
    case EType::Integer: {
        const std::int32_t integer = i < 0 ? value.integer : value.integers[i];
        if (binding.radix == 10)
            return QString::number(integer);
        if (binding.radix == 16)
            return QString::number(static_cast<std::uint32_t>(integer), 16).toUpper();
        return std::nullopt;
    }
    case EType::Float: {
        const double real = i < 0 ? value.real : value.reals[i];
        if (!std::isfinite(real))
            return std::nullopt;
        return RealText(real);
    }
    case EType::String: {
        const QString& text = i < 0 ? value.text : value.texts[i];
        if (i >= 0 && ChangesList(text))
            return std::nullopt;
        return text;
    }
    case EType::QString:
        return pell::vexcmd::QuoteText(i < 0 ? value.text : value.texts[i], binding.parameter);
    case EType::Message: {
        const Message& message = i < 0 ? value.message : value.messages[i];
        if (!std::isfinite(message.period) || !std::isfinite(message.phase))
            return std::nullopt;
        return MessageRecord(message);
    }
    default:
        return std::nullopt;
    }
}

qsizetype ItemCount(const Value& value) {
    switch (ItemType(value.type)) {
    case EType::Boolean:
        return qsizetype(value.booleans.size());
    case EType::Integer:
        return qsizetype(value.integers.size());
    case EType::Float:
        return qsizetype(value.reals.size());
    case EType::String:
    case EType::QString:
        return value.texts.size();
    case EType::Message:
        return qsizetype(value.messages.size());
    default:
        return 0;
    }
}

// The items of a list value in their receiver form; nullopt when one cannot be written (a text
// that cannot be quoted among them).
std::optional<QStringList> ComposeItems(const Binding& binding, const Value& value) {
    QStringList items;
    try {
        for (qsizetype i = 0; i < ItemCount(value); ++i) {
            const auto item = ComposeItem(ItemType(value.type), binding, value, int(i));
            if (!item)
                return std::nullopt;
            items += *item;
        }
    } catch (const ulm_std::CException&) {
        return std::nullopt;
    }
    return items;
}

std::optional<QString> ComposeValue(const Binding& binding, const Value& value) {
    if (IsList(value.type)) {
        const auto items = ComposeItems(binding, value);
        if (!items)
            return std::nullopt;
        return QLatin1Char('{') + items->join(QLatin1Char(',')) + QLatin1Char('}');
    }
    try {
        return ComposeItem(value.type, binding, value, -1);
    } catch (const ulm_std::CException&) {
        return std::nullopt; // a text that cannot be quoted
    }
}

// A command line of the engine's own: refused (nullopt) when a part would not stay one word or
// the line is longer than the receiver's buffer.
template <typename Compose> std::optional<QString> Command(Compose compose) {
    try {
        QString line = compose();
        if (line.size() > ReceiverAccessor::kCommandLimit)
            return std::nullopt;
        return line;
    } catch (const ulm_std::CException&) {
        return std::nullopt;
    }
}

Reply CannotCompose() {
    return {false, XString(pell::ids::SettingsCannotCompose)};
}

Reply Run(ReceiverAccessor& accessor, const std::optional<QString>& command) {
    return command ? accessor.Execute(*command) : CannotCompose();
}

// ---- the dictionary ----

constexpr int kMaxDictionaryDepth = 64;
constexpr qint64 kMaxDictionaryBytes = 16 * 1024 * 1024;

bool NameIs(const QDomElement& element, const char* name) {
    return element.tagName().compare(QLatin1String(name), Qt::CaseInsensitive) == 0;
}

void ReadElement(const QDomElement& source, Element& element) {
    element.name = source.attribute(QStringLiteral("Name"));
    element.friendlyName = source.attribute(QStringLiteral("XLATE_FriendlyName"));
    element.attributes = ParseAttributes(source.attribute(QStringLiteral("Attr")));
}

Binding ReadBinding(const QDomElement& voxa) {
    Binding binding;
    binding.parameter = voxa.attribute(QStringLiteral("Parameter"));
    binding.test = voxa.attribute(QStringLiteral("Test"));
    binding.defaultValue = voxa.attribute(QStringLiteral("Default"));
    binding.trueText = voxa.attribute(QStringLiteral("True"));
    binding.falseText = voxa.attribute(QStringLiteral("False"));
    bool ok = false;
    const int index = voxa.attribute(QStringLiteral("Index")).trimmed().toInt(&ok);
    binding.index = ok && index >= 0 ? index : -1;
    const QString radix = voxa.attribute(QStringLiteral("Radix")).trimmed();
    binding.radix = radix.isEmpty() ? 10 : radix.toInt(&ok);
    if (!ok && !radix.isEmpty())
        binding.radix = 0; // neither 10 nor 16: the variable can be neither read nor written
    binding.firmwarePatterns = SplitItems(voxa.attribute(QStringLiteral("GNSSFirmwareVersions")));
    for (const QString& item : SplitItems(voxa.attribute(QStringLiteral("ReceiverModels"))))
        if (const auto model = ParseModelPattern(item))
            binding.models.push_back(*model);
    binding.boardPatterns = SplitItems(voxa.attribute(QStringLiteral("GNSSBoardModels")));
    return binding;
}

void ReadChildren(const QDomElement& source, Object& object) {
    for (QDomElement child = source.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        if (NameIs(child, "Object")) {
            auto element = std::make_shared<Object>();
            ReadElement(child, *element);
            element->parent = &object;
            ReadChildren(child, *element);
            object.children.push_back(std::move(element));
        } else if (NameIs(child, "Variable")) {
            auto element = std::make_shared<Variable>();
            ReadElement(child, *element);
            element->parent = &object;
            element->type = ParseType(child.attribute(QStringLiteral("Type")));
            element->value.type = element->type;
            for (QDomElement voxa = child.firstChildElement(); !voxa.isNull();
                 voxa = voxa.nextSiblingElement())
                if (NameIs(voxa, "VOXA"))
                    element->bindings.push_back(ReadBinding(voxa));
            object.children.push_back(std::move(element));
        }
    }
}

// Deep nesting is refused before the document is built, so that neither the document nor our
// walk over it can run out of stack.
bool ShallowEnough(const QByteArray& xml) {
    QXmlStreamReader reader(xml);
    int depth = 0;
    while (!reader.atEnd()) {
        const auto token = reader.readNext();
        if (token == QXmlStreamReader::StartElement && ++depth > kMaxDictionaryDepth)
            return false;
        if (token == QXmlStreamReader::EndElement)
            --depth;
    }
    return !reader.hasError();
}

// ---- the settings file ----

using JsonWriter = rapidjson::Writer<rapidjson::StringBuffer>;

void WriteString(JsonWriter& writer, const QString& text) {
    const QByteArray utf8 = text.toUtf8();
    writer.String(utf8.constData(), rapidjson::SizeType(utf8.size()));
}

void WriteMessage(JsonWriter& writer, const Message& message) {
    writer.StartObject();
    writer.Key("Message");
    WriteString(writer, message.name);
    writer.Key("Period");
    writer.Double(message.period);
    writer.Key("Phase");
    writer.Double(message.phase);
    writer.Key("Count");
    writer.Uint(message.count);
    writer.Key("Flags");
    writer.Uint(message.flags);
    writer.EndObject();
}

void WriteItem(JsonWriter& writer, EType type, const Value& value, int i) {
    switch (type) {
    case EType::Boolean:
        writer.Bool(i < 0 ? value.boolean : bool(value.booleans[i]));
        break;
    case EType::Integer:
        writer.Int(i < 0 ? value.integer : value.integers[i]);
        break;
    case EType::Float:
        writer.Double(i < 0 ? value.real : value.reals[i]);
        break;
    case EType::String:
    case EType::QString:
        WriteString(writer, i < 0 ? value.text : value.texts[i]);
        break;
    case EType::Message:
        WriteMessage(writer, i < 0 ? value.message : value.messages[i]);
        break;
    default:
        writer.Null();
        break;
    }
}

void WriteObject(JsonWriter& writer, const Object& object) {
    writer.StartObject();
    for (const auto& child : object.children) {
        if (!child->selected)
            continue;
        if (child->IsObject()) {
            WriteString(writer, child->name);
            WriteObject(writer, static_cast<const Object&>(*child));
            continue;
        }
        const auto& variable = static_cast<const Variable&>(*child);
        if (variable.value.invalid || variable.value.type == EType::Unknown)
            continue;
        WriteString(writer, variable.name);
        if (!IsList(variable.value.type)) {
            WriteItem(writer, variable.value.type, variable.value, -1);
            continue;
        }
        writer.StartArray();
        for (qsizetype i = 0; i < ItemCount(variable.value); ++i)
            WriteItem(writer, ItemType(variable.value.type), variable.value, int(i));
        writer.EndArray();
    }
    writer.EndObject();
}

using JsonValue = rapidjson::Value;

// Finds the members of one object by name, looking first just after the member found last: a file
// written from the same dictionary holds them in its order, so each is found at once.
class Members {
public:
    explicit Members(const JsonValue* object) : m_object(object) {
        if (m_object)
            m_next = m_object->MemberBegin();
    }

    const JsonValue* Find(const QString& name) {
        if (!m_object)
            return nullptr;
        const QByteArray key = name.toUtf8();
        const auto size = rapidjson::SizeType(key.size());
        auto member = m_next;
        if (member == m_object->MemberEnd() || member->name.GetStringLength() != size ||
            std::memcmp(member->name.GetString(), key.constData(), size) != 0)
            member = m_object->FindMember(rapidjson::StringRef(key.constData(), size));
        if (member == m_object->MemberEnd())
            return nullptr;
        m_next = member + 1;
        return &member->value;
    }

private:
    const JsonValue* m_object;
    JsonValue::ConstMemberIterator m_next;
};

QString JsonText(const JsonValue& value) {
    return QString::fromUtf8(value.GetString(), qsizetype(value.GetStringLength()));
}

std::optional<Message> JsonMessage(const JsonValue& value) {
    if (!value.IsObject())
        return std::nullopt;
    Members members(&value);
    const JsonValue* name = members.Find(QStringLiteral("Message"));
    const JsonValue* period = members.Find(QStringLiteral("Period"));
    const JsonValue* phase = members.Find(QStringLiteral("Phase"));
    const JsonValue* count = members.Find(QStringLiteral("Count"));
    const JsonValue* flags = members.Find(QStringLiteral("Flags"));
    if (!name || !name->IsString() || !period || !period->IsNumber() || !phase ||
        !phase->IsNumber() || !count || !count->IsUint() || !flags || !flags->IsUint())
        return std::nullopt;
    return Message{JsonText(*name), period->GetDouble(), phase->GetDouble(), count->GetUint(),
                   flags->GetUint()};
}

Item TakeItem(EType type, const JsonValue& json) {
    switch (type) {
    case EType::Boolean:
        return json.IsBool() ? Item(json.GetBool()) : std::nullopt;
    case EType::Integer:
        return json.IsInt() ? Item(std::int32_t(json.GetInt())) : std::nullopt;
    case EType::Float:
        return json.IsNumber() ? Item(json.GetDouble()) : std::nullopt;
    case EType::String:
    case EType::QString:
        return json.IsString() ? Item(JsonText(json)) : std::nullopt;
    case EType::Message:
        if (const auto message = JsonMessage(json))
            return *message;
        return std::nullopt;
    default:
        return std::nullopt;
    }
}

std::optional<Value> TakeValue(EType type, const JsonValue& json) {
    if (IsList(type) && !json.IsArray())
        return std::nullopt;
    return Collect(type, IsList(type) ? qsizetype(json.Size()) : 0,
                   [&](EType itemType, qsizetype i) {
                       return TakeItem(itemType, i < 0 ? json : json[rapidjson::SizeType(i)]);
                   });
}

void TakeObject(Object& object, const JsonValue* json) {
    Members members(json);
    for (const auto& child : object.children) {
        const JsonValue* member = members.Find(child->name);
        if (child->IsObject()) {
            TakeObject(static_cast<Object&>(*child),
                       member && member->IsObject() ? member : nullptr);
            continue;
        }
        auto& variable = static_cast<Variable&>(*child);
        variable.error.clear();
        const auto value = member ? TakeValue(variable.type, *member) : std::nullopt;
        variable.value = value ? *value : EmptyValue(variable.type);
    }
}

// Builds the document, refusing objects and arrays nested deeper than kMaxDepth as they come, and
// with numbers converted by the standard library, correctly rounded: the fast conversion of
// rapidjson 1.1.0 reads some floats a bit off what was written, its precise one reads "0e90" as a
// huge number.
class DocumentBuilder {
public:
    explicit DocumentBuilder(rapidjson::Document& document) : m_document(document) {}

    bool RawNumber(const char* text, rapidjson::SizeType length, bool) {
        const char* end = text + length;
        const char* exponent = std::find_if(text, end, [](char c) { return c == 'e' || c == 'E'; });
        if (exponent == end && std::find(text, end, '.') == end) {
            std::int64_t integer = 0;
            if (std::from_chars(text, end, integer).ec == std::errc())
                return m_document.Int64(integer);
            std::uint64_t natural = 0;
            if (std::from_chars(text, end, natural).ec == std::errc())
                return m_document.Uint64(natural);
        }
        double real = 0;
        const std::errc error = std::from_chars(text, end, real).ec;
        // Out of range with a negative exponent is too small for a double: the reader has refused
        // integer parts too large for one already.
        if (error == std::errc::result_out_of_range && exponent != end && exponent[1] == '-')
            return m_document.Double(*text == '-' ? -0.0 : 0.0);
        return error == std::errc() && m_document.Double(real);
    }
    // The reader's own number events never come with kParseNumbersAsStringsFlag; it still needs
    // them to exist.
    bool Int(int i) { return m_document.Int(i); }
    bool Uint(unsigned u) { return m_document.Uint(u); }
    bool Int64(std::int64_t i) { return m_document.Int64(i); }
    bool Uint64(std::uint64_t u) { return m_document.Uint64(u); }
    bool Double(double d) { return m_document.Double(d); }
    bool Null() { return m_document.Null(); }
    bool Bool(bool b) { return m_document.Bool(b); }
    bool String(const char* text, rapidjson::SizeType length, bool copy) {
        return m_document.String(text, length, copy);
    }
    bool StartObject() { return Enter() && m_document.StartObject(); }
    bool Key(const char* text, rapidjson::SizeType length, bool copy) {
        return m_document.Key(text, length, copy);
    }
    bool EndObject(rapidjson::SizeType members) {
        --m_depth;
        return m_document.EndObject(members);
    }
    bool StartArray() { return Enter() && m_document.StartArray(); }
    bool EndArray(rapidjson::SizeType items) {
        --m_depth;
        return m_document.EndArray(items);
    }

private:
    bool Enter() { return ++m_depth <= SettingsDocument::kMaxDepth; }

    rapidjson::Document& m_document;
    int m_depth = 0;
};

// ---- writing ----

// A message list longer than this is no receiver's: it would only flood the line.
constexpr qsizetype kMaxMessages = 256;

// Every line of a message list is composed before the first is sent, so that an item that cannot
// be written leaves the port's output, or the default set, as it was.
Reply WriteOutputMessages(ReceiverAccessor& accessor, const Binding& binding, const Value& value) {
    const QString& port = binding.parameter;
    const auto items = ComposeItems(binding, value);
    const auto disable = Command([&] { return pell::vexcmd::DisableMessages(port); });
    if (!items || !disable || items->size() > kMaxMessages)
        return CannotCompose();
    QStringList lines;
    for (const QString& item : *items) {
        const auto line = Command([&] { return pell::vexcmd::EnableMessages(port, item); });
        if (!line)
            return CannotCompose();
        lines << *line;
    }
    accessor.Forget(port);
    Reply reply = accessor.Execute(*disable);
    for (qsizetype i = 0; reply.ok && i < lines.size(); ++i)
        reply = accessor.Execute(lines[i]);
    return reply;
}

Reply WriteDefaultMessages(ReceiverAccessor& accessor, const Binding& binding, const Value& value) {
    const QString& set = binding.parameter;
    const std::vector<Message> messages =
        IsList(value.type) ? value.messages : std::vector<Message>{value.message};
    const auto remove = Command([&] { return pell::vexcmd::Remove(set); });
    if (!remove || qsizetype(messages.size()) > kMaxMessages)
        return CannotCompose();
    std::vector<std::pair<QString, QString>> lines; // create and set of each message
    for (const Message& message : messages) {
        const QString path = set + message.name;
        const auto create = Command([&] { return pell::vexcmd::CreateNamed(path); });
        const auto schedule =
            std::isfinite(message.period) && std::isfinite(message.phase)
                ? Command([&] { return pell::vexcmd::SetPrinted(path, MessageRecord(message)); })
                : std::nullopt;
        if (!create || !schedule)
            return CannotCompose();
        lines.emplace_back(*create, *schedule);
    }
    accessor.Forget(set);
    const Reply removed = accessor.Execute(*remove);
    if (!removed.ok)
        return removed;
    unsigned failed = 0;
    for (const auto& [create, schedule] : lines)
        failed += accessor.Execute(create).ok && accessor.Execute(schedule).ok ? 0 : 1;
    if (failed == 0)
        return {true, {}};
    const auto total = unsigned(messages.size());
    return {false, QString::asprintf(qUtf8Printable(XString(pell::ids::SettingsMessagesRestored)),
                                     total - failed, total)};
}

Reply WriteIndexed(ReceiverAccessor& accessor, const Binding& binding, const Value& value) {
    const auto item = ComposeValue(binding, value);
    if (!item || (value.type == EType::String && ChangesList(value.text)))
        return CannotCompose();
    const Reply printed = accessor.Print(binding.parameter);
    if (!printed.ok)
        return printed;
    if (!printed.text.startsWith(QLatin1Char('{')) || !printed.text.endsWith(QLatin1Char('}')))
        return {false, XString(pell::ids::SettingsCannotParseReply)};
    QStringList items = CVexReceiverMate::SplitList(printed.text);
    if (items.size() < binding.index + 1)
        return CannotCompose();
    items[binding.index] = *item;
    return accessor.Set(binding.parameter,
                        QLatin1Char('{') + items.join(QLatin1Char(',')) + QLatin1Char('}'));
}

void CollectVariables(Object& object, std::vector<Variable*>& out, bool selectedOnly) {
    for (const auto& child : object.children) {
        if (selectedOnly && !child->selected)
            continue;
        if (child->IsObject())
            CollectVariables(static_cast<Object&>(*child), out, selectedOnly);
        else
            out.push_back(static_cast<Variable*>(child.get()));
    }
}

void Select(Object& object, unsigned offFlag) {
    for (const auto& child : object.children) {
        child->selected = (child->attributes & offFlag) == 0;
        if (child->IsObject())
            Select(static_cast<Object&>(*child), offFlag);
    }
}

} // namespace

unsigned ParseAttributes(const QString& attr) {
    static const std::array<std::pair<const char*, EAttr>, 4> keywords{{
        {"DONOTEXPORTBYDEFAULT", DoNotExportByDefault},
        {"DONOTIMPORTBYDEFAULT", DoNotImportByDefault},
        {"READONLY", ReadOnly},
        {"WRITEONLY", WriteOnly},
    }};
    unsigned flags = 0;
    for (const QString& item : attr.split(QLatin1Char(';'))) {
        const QString upper = item.trimmed().toUpper();
        for (const auto& [keyword, flag] : keywords)
            if (upper == QLatin1String(keyword))
                flags |= flag;
    }
    return flags;
}

EType ParseType(const QString& type) {
    const bool list = type.startsWith(QLatin1Char('['));
    const QString base = list ? type.mid(1) : type;
    for (const TypeName& entry : kBaseTypes)
        if (base.compare(QLatin1String(entry.name), Qt::CaseInsensitive) == 0)
            return list ? ListOf(entry.type) : entry.type;
    return EType::Unknown;
}

QString TypeDisplayName(EType type) {
    for (const TypeName& entry : kBaseTypes) {
        if (entry.type == type)
            return QLatin1String(entry.display);
        if (ListOf(entry.type) == type)
            return QLatin1Char('[') + QLatin1String(entry.display);
    }
    return QStringLiteral("Unknown");
}

bool IsList(EType type) {
    return type >= EType::BooleanList && type <= EType::MessageList;
}

EType ItemType(EType type) {
    return IsList(type) ? static_cast<EType>(static_cast<int>(type) - kListOffset) : type;
}

bool PatternMatches(const QString& pattern, const QString& text) {
    // Greedy matching with one backtrack point: linear in practice, never exponential.
    qsizetype p = 0, t = 0, star = -1, resume = 0;
    while (t < text.size()) {
        if (p < pattern.size() && (pattern.at(p) == QLatin1Char('?') ||
                                   (pattern.at(p) != QLatin1Char('*') &&
                                    pattern.at(p).toCaseFolded() == text.at(t).toCaseFolded()))) {
            ++p;
            ++t;
        } else if (p < pattern.size() && pattern.at(p) == QLatin1Char('*')) {
            star = p++;
            resume = t;
        } else if (star >= 0) {
            p = star + 1;
            t = ++resume;
        } else {
            return false;
        }
    }
    while (p < pattern.size() && pattern.at(p) == QLatin1Char('*'))
        ++p;
    return p == pattern.size();
}

std::optional<ModelPattern> ParseModelPattern(const QString& item) {
    const QStringList parts = item.trimmed().split(QLatin1Char('-'));
    if (parts.size() != 2 || !IsWildcardPart(parts[0]) || !IsWildcardPart(parts[1]))
        return std::nullopt;
    return ModelPattern{parts[0], parts[1]};
}

bool ModelMatches(const ModelPattern& pattern, const QString& model) {
    const QString trimmed = model.trimmed();
    for (const QString& joint : {QStringLiteral(" "), QStringLiteral("-"), QString()})
        if (PatternMatches(pattern.family + joint + pattern.variant, trimmed))
            return true;
    return false;
}

Element::~Element() = default;

QString Element::DisplayName() const {
    return friendlyName.isEmpty() ? name
                                  : ulm_std::CTranslatorInstance::Ref().XlateEx(friendlyName);
}

QString Element::Path() const {
    QString path = name;
    for (const Object* up = parent; up && up->parent; up = up->parent)
        path = up->name + QLatin1Char('/') + path;
    return path;
}

const Binding* Variable::Resolved() const {
    return resolved >= 0 && resolved < int(bindings.size()) ? &bindings[resolved] : nullptr;
}

QString Dictionary::DefaultPath() {
    return CPellLibApp::GetDataPath(QStringLiteral("VOXA2JSON"), QStringLiteral(".xml"));
}

std::shared_ptr<Object> Dictionary::Load(const QString& file, QString* error) {
    QFile input(file);
    // Read with a limit: a device or a growing file has no size to check beforehand.
    const QByteArray xml =
        input.open(QIODevice::ReadOnly) ? input.read(kMaxDictionaryBytes + 1) : QByteArray();
    return Parse(xml, error);
}

std::shared_ptr<Object> Dictionary::Parse(const QByteArray& xml, QString* error) {
    QDomDocument document;
    if (xml.size() > kMaxDictionaryBytes || !ShallowEnough(xml) || !document.setContent(xml) ||
        !NameIs(document.documentElement(), "Objects")) {
        if (error)
            *error = XString(pell::ids::SettingsInvalidFileFormat);
        return nullptr;
    }
    auto root = std::make_shared<Object>();
    root->name = root->friendlyName = QLatin1String(kRootName);
    ReadChildren(document.documentElement(), *root);
    return root;
}

ReceiverAccessor::~ReceiverAccessor() = default;

bool ReceiverAccessor::Exists(const QString& path) {
    const auto known = m_exists.find(path);
    if (known != m_exists.end())
        return known->second;
    const bool exists = Run(*this, Command([&] { return pell::vexcmd::List(path); })).ok;
    m_exists.emplace(path, exists);
    return exists;
}

Reply ReceiverAccessor::Print(const QString& path) {
    const auto printed = m_printed.find(path);
    if (printed != m_printed.end())
        return printed->second;
    const Reply reply = Run(*this, Command([&] { return pell::vexcmd::Print(path); }));
    m_printed.emplace(path, reply);
    return reply;
}

Reply ReceiverAccessor::Set(const QString& path, const QString& value) {
    Reply reply = Run(*this, Command([&] { return pell::vexcmd::SetPrinted(path, value); }));
    if (reply.ok)
        m_printed[path] = {true, value}; // a later indexed write reads the list as it is now
    return reply;
}

Reply ReceiverAccessor::Identity(const QString& path) {
    Reply reply = Print(path);
    reply.text = UnquotedText(reply.text.trimmed()).trimmed();
    return reply;
}

Reply ReceiverAccessor::FirmwareVersion() {
    return Identity(QStringLiteral("rcv/ver/main"));
}

Reply ReceiverAccessor::Model() {
    return Identity(QStringLiteral("rcv/model"));
}

Reply ReceiverAccessor::Board() {
    return Identity(QStringLiteral("rcv/ver/board"));
}

void ReceiverAccessor::Forget(const QString& path) {
    m_printed.erase(path);
}

void SelectDefaults(Object& root, EDirection direction, bool all) {
    Select(root, all ? 0u
                     : (direction == EDirection::Export ? unsigned(DoNotExportByDefault)
                                                        : unsigned(DoNotImportByDefault)));
}

std::vector<Variable*> SelectedVariables(Object& root) {
    std::vector<Variable*> variables;
    CollectVariables(root, variables, true);
    return variables;
}

int SelectedValueCount(Object& root) {
    const std::vector<Variable*> variables = SelectedVariables(root);
    return int(std::count_if(variables.begin(), variables.end(),
                             [](const Variable* variable) { return !variable->value.invalid; }));
}

std::vector<Variable*> AllVariables(Object& root) {
    std::vector<Variable*> variables;
    CollectVariables(root, variables, false);
    return variables;
}

const Binding* Resolve(Variable& variable, ReceiverAccessor& accessor) {
    variable.resolved = -1;
    const Reply firmware = accessor.FirmwareVersion();
    const Reply model = accessor.Model();
    const Reply board = accessor.Board();
    std::vector<int> candidates;
    if (firmware.ok && model.ok && board.ok) {
        for (int i = 0; i < int(variable.bindings.size()); ++i) {
            const Binding& binding = variable.bindings[i];
            const auto any = [](const QStringList& patterns, const QString& text) {
                return patterns.isEmpty() ||
                       std::any_of(patterns.begin(), patterns.end(), [&](const QString& pattern) {
                           return PatternMatches(pattern, text);
                       });
            };
            const bool modelFits =
                binding.models.empty() || std::any_of(binding.models.begin(), binding.models.end(),
                                                      [&](const ModelPattern& pattern) {
                                                          return ModelMatches(pattern, model.text);
                                                      });
            if (modelFits && any(binding.firmwarePatterns, firmware.text) &&
                any(binding.boardPatterns, board.text))
                candidates.push_back(i);
        }
    }
    for (const int i : candidates)
        if (accessor.Exists(variable.bindings[i].parameter)) {
            variable.resolved = i;
            return &variable.bindings[i];
        }
    for (const int i : candidates)
        if (!variable.bindings[i].test.isEmpty() && accessor.Exists(variable.bindings[i].test)) {
            variable.resolved = i;
            return &variable.bindings[i];
        }
    variable.error = XString(pell::ids::SettingsDoesNotApply);
    return nullptr;
}

void ReadVariable(Variable& variable, ReceiverAccessor& accessor) {
    variable.value = EmptyValue(variable.type);
    variable.error.clear();
    const Binding* binding = Resolve(variable, accessor);
    if (!binding)
        return;
    const Reply reply = accessor.Print(binding->parameter);
    if (!reply.ok) {
        variable.error = reply.text;
        return;
    }
    QString text = reply.text.trimmed();
    if (binding->index >= 0) {
        const QStringList items =
            text.startsWith(QLatin1Char('{')) && text.endsWith(QLatin1Char('}'))
                ? CVexReceiverMate::SplitList(text)
                : QStringList();
        text = binding->index < items.size() ? items[binding->index].trimmed() : QString();
    }
    const auto value = text.isNull() ? std::nullopt : ParseValue(variable.type, *binding, text);
    if (!value) {
        variable.error = XString(pell::ids::SettingsCannotParseReply);
        return;
    }
    variable.value = *value;
}

bool ReadAll(Object& root, ReceiverAccessor& accessor, const Progress& progress,
             const std::function<void(const Variable&)>& read) {
    std::vector<Variable*> variables = SelectedVariables(root);
    std::erase_if(variables, [](const Variable* variable) { return variable->Has(WriteOnly); });
    const int total = int(variables.size());
    if (progress && !progress(0, total))
        return false;
    for (int i = 0; i < total; ++i) {
        ReadVariable(*variables[i], accessor);
        if (read)
            read(*variables[i]);
        if (progress && !progress(i + 1, total))
            return false;
    }
    return true;
}

QByteArray BuildJson(const Object& root) {
    rapidjson::StringBuffer buffer(nullptr, 256);
    JsonWriter writer(buffer);
    WriteObject(writer, root);
    return QByteArray(buffer.GetString(), qsizetype(buffer.GetSize()));
}

struct SettingsDocument::Impl {
    rapidjson::Document document;
};

SettingsDocument::SettingsDocument(std::unique_ptr<Impl> impl) : m_impl(std::move(impl)) {}
SettingsDocument::SettingsDocument(SettingsDocument&&) noexcept = default;
SettingsDocument& SettingsDocument::operator=(SettingsDocument&&) noexcept = default;
SettingsDocument::~SettingsDocument() = default;

std::optional<SettingsDocument> SettingsDocument::Parse(const QByteArray& json) {
    if (json.size() > kMaxBytes)
        return std::nullopt;
    auto impl = std::make_unique<Impl>();
    constexpr unsigned flags = rapidjson::kParseIterativeFlag |
                               rapidjson::kParseValidateEncodingFlag |
                               rapidjson::kParseNumbersAsStringsFlag;
    bool parsed = false;
    const auto parse = [&](rapidjson::Document& document) {
        DocumentBuilder handler(document);
        // A byte-order mark, as some editors write one, is no part of the document.
        const qsizetype skip = json.startsWith("\xEF\xBB\xBF") ? 3 : 0;
        rapidjson::MemoryStream bytes(json.constData() + skip, size_t(json.size() - skip));
        rapidjson::EncodedInputStream<rapidjson::UTF8<>, rapidjson::MemoryStream> input(bytes);
        parsed = !rapidjson::Reader().Parse<flags>(input, handler).IsError();
        return parsed;
    };
    impl->document.Populate(parse);
    if (!parsed || !impl->document.IsObject())
        return std::nullopt;
    return SettingsDocument(std::move(impl));
}

void TakeValues(Object& root, const SettingsDocument& document) {
    TakeObject(root, &document.m_impl->document);
}

EWriteOutcome WriteVariable(Variable& variable, ReceiverAccessor& accessor) {
    if (!variable.selected || variable.value.invalid || variable.Has(ReadOnly) ||
        variable.type == EType::Unknown)
        return EWriteOutcome::Skipped;
    variable.error.clear();
    const Binding* binding = Resolve(variable, accessor);
    if (!binding)
        return EWriteOutcome::Failed;
    Reply reply;
    if (variable.name == QLatin1String("OMode")) {
        reply = WriteOutputMessages(accessor, *binding, variable.value);
    } else if (variable.name == QLatin1String("DefMsgSet")) {
        reply = WriteDefaultMessages(accessor, *binding, variable.value);
    } else if (binding->index >= 0) {
        reply = WriteIndexed(accessor, *binding, variable.value);
    } else {
        const auto text = ComposeValue(*binding, variable.value);
        reply = text ? accessor.Set(binding->parameter, *text) : CannotCompose();
    }
    if (reply.ok)
        return EWriteOutcome::Written;
    variable.error = reply.text;
    return EWriteOutcome::Failed;
}

QString DisplayText(const Variable& variable) {
    const Value& value = variable.value;
    if (value.invalid)
        return {};
    const auto item = [&](EType type, int i) -> QString {
        switch (type) {
        case EType::Boolean:
            return (i < 0 ? value.boolean : bool(value.booleans[i])) ? QStringLiteral("true")
                                                                     : QStringLiteral("false");
        case EType::Integer:
            return QString::number(i < 0 ? value.integer : value.integers[i]);
        case EType::Float:
            return QString::number(i < 0 ? value.real : value.reals[i], 'g', 12);
        case EType::String:
        case EType::QString:
            return i < 0 ? value.text : value.texts[i];
        case EType::Message: {
            const Message& message = i < 0 ? value.message : value.messages[i];
            return message.name + QLatin1Char(':') + MessageRecord(message);
        }
        default:
            return {};
        }
    };
    if (!IsList(value.type))
        return item(value.type, -1);
    QStringList items;
    for (qsizetype i = 0; i < ItemCount(value); ++i)
        items += item(ItemType(value.type), int(i));
    return items.join(QStringLiteral(", "));
}

} // namespace VOXA2JSON
