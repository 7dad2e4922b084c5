#pragma once

#include "lib/pell_export.h"

#include <QString>
#include <QStringList>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>

// The receiver settings file: a dictionary (VOXA2JSON.xml in the data folder) names the
// receiver's settings as a tree of objects and variables, each variable bound to receiver paths;
// the engine reads the values with "print", writes them to a compact UTF-8 JSON file, reads such
// a file back and writes the values with "set" (and the message commands for message sets).
// docs/settings-file.md describes the dictionary, the file and the decisions taken here.
namespace VOXA2JSON {

// The Attr flags of an object or variable.
enum EAttr : unsigned {
    DoNotExportByDefault = 1,
    DoNotImportByDefault = 2,
    ReadOnly = 4,
    WriteOnly = 8,
};
// "a; readonly;b" → ReadOnly; items are trimmed and upper-cased, unknown ones ignored.
PELL_EXPORT unsigned ParseAttributes(const QString& attr);

enum class EType : int {
    Unknown = 0,
    Boolean,
    Integer,
    Float,
    String,
    QString,
    Message,
    BooleanList,
    IntegerList,
    FloatList,
    StringList,
    QStringList,
    MessageList,
};
// "boolean" … "message", a leading "[" for a list of them; case does not matter.
PELL_EXPORT EType ParseType(const QString& type);
// "Unknown", "Boolean", …, "[Message".
PELL_EXPORT QString TypeDisplayName(EType type);
PELL_EXPORT bool IsList(EType type);
// The type of one item: Boolean for BooleanList; the type itself when it is no list.
PELL_EXPORT EType ItemType(EType type);

// One periodic output message of a message set.
struct PELL_EXPORT Message {
    QString name;      // the message set's name, e.g. "nmea/GGA"
    double period = 0; // seconds
    double phase = 0;  // seconds
    std::uint32_t count = 0;
    std::uint32_t flags = 0;
    bool operator==(const Message&) const = default;
};

// A variable's value: the member of its type holds it (texts for String and QString, the lists
// for list types); `invalid` while nothing was read or taken from a file.
struct PELL_EXPORT Value {
    EType type = EType::Unknown;
    bool invalid = true;
    bool boolean = false;
    std::int32_t integer = 0;
    double real = 0;
    QString text;
    Message message;
    std::vector<bool> booleans;
    std::vector<std::int32_t> integers;
    std::vector<double> reals;
    QStringList texts;
    std::vector<Message> messages;
    bool operator==(const Value&) const = default;
};

// "FAMILY-VARIANT" of a ReceiverModels item; see ModelMatches.
struct PELL_EXPORT ModelPattern {
    QString family;
    QString variant;
    bool operator==(const ModelPattern&) const = default;
};

// One VOXA element: where a variable lives on receivers of some models, firmware and boards.
struct PELL_EXPORT Binding {
    QString parameter;
    QString test; // a path whose existence also proves the binding; may be empty
    QString defaultValue;
    QString trueText; // a boolean's receiver texts
    QString falseText;
    int index = -1; // item of a list-valued parameter, −1 when not indexed
    int radix = 10; // integers: 10 or 16, anything else can be neither read nor written
    QStringList firmwarePatterns;
    std::vector<ModelPattern> models;
    QStringList boardPatterns;
};

// "*" any run, "?" any one character, everything else without regard to case.
PELL_EXPORT bool PatternMatches(const QString& pattern, const QString& text);
// Whether a model reply ("Ostrel Q") is the model a pattern names ("Ostrel-Q", "ostrel-*").
PELL_EXPORT bool ModelMatches(const ModelPattern& pattern, const QString& model);
// "Ostrel-Q" → {Ostrel, Q}; nullopt unless it is two non-empty parts of letters, digits and
// wildcards joined by one "-".
PELL_EXPORT std::optional<ModelPattern> ParseModelPattern(const QString& item);

class Object;

class PELL_EXPORT Element {
public:
    Element(const Element&) = delete;
    Element& operator=(const Element&) = delete;
    virtual ~Element();

    virtual bool IsObject() const = 0;
    bool Has(EAttr flag) const { return (attributes & flag) != 0; }
    // The friendly name translated, or the name when there is none.
    QString DisplayName() const;
    // Names from the root's child down to this element joined by "/".
    QString Path() const;

    QString name;
    QString friendlyName;
    unsigned attributes = 0;
    bool selected = true;
    Object* parent = nullptr;

protected:
    Element() = default;
};

class PELL_EXPORT Object final : public Element {
public:
    bool IsObject() const override { return true; }
    std::vector<std::shared_ptr<Element>> children;
};

class PELL_EXPORT Variable final : public Element {
public:
    bool IsObject() const override { return false; }
    // The binding the last resolution took, or nullptr.
    const Binding* Resolved() const;

    EType type = EType::Unknown;
    Value value;
    std::vector<Binding> bindings;
    QString error; // the last error of this variable, empty when none
    int resolved = -1;
};

// The dictionary file: its root object is named "<ROOT>".
class PELL_EXPORT Dictionary {
public:
    static constexpr const char* kRootName = "<ROOT>";
    // VOXA2JSON.xml in the library's data folder.
    static QString DefaultPath();
    // The root, or nullptr with "Invalid file format" in `error`.
    static std::shared_ptr<Object> Load(const QString& file, QString* error);
    static std::shared_ptr<Object> Parse(const QByteArray& xml, QString* error);
};

// A reply of the receiver, or the error text of a command that failed.
struct PELL_EXPORT Reply {
    bool ok = false;
    QString text;
};

// The engine's link to the receiver. Only Execute is the receiver's; the rest compose their
// commands (a value that would not stay one command is refused unsent) and keep the print and
// existence caches of this accessor.
class PELL_EXPORT ReceiverAccessor {
public:
    static constexpr int kCommandLimit = 512; // characters of one command line

    virtual ~ReceiverAccessor();
    virtual Reply Execute(const QString& command) = 0;

    // "list,<path>" answered without an error.
    virtual bool Exists(const QString& path);
    // "print,<path>", sent once per path for the life of the accessor.
    virtual Reply Print(const QString& path);
    // "set,<path>,<value>"; the receiver's reply is the error text of a refusal.
    virtual Reply Set(const QString& path, const QString& value);
    // "rcv/ver/main", "rcv/model", "rcv/ver/board", trimmed and unquoted.
    virtual Reply FirmwareVersion();
    virtual Reply Model();
    virtual Reply Board();

    // Forgets what was printed for `path`, so the next Print asks again.
    void Forget(const QString& path);

private:
    Reply Identity(const QString& path);
    std::map<QString, Reply> m_printed;
    std::map<QString, bool> m_exists;
};

// Progress of a long walk: (variables done, variables in the walk). Returning false stops it.
using Progress = std::function<bool(int done, int total)>;

// Which starting selection: by DONOTEXPORTBYDEFAULT or by DONOTIMPORTBYDEFAULT.
enum class EDirection { Export, Import };
// Selects every element but those the flags leave out for `direction`; `all` selects all.
PELL_EXPORT void SelectDefaults(Object& root, EDirection direction, bool all = false);
// The variables the walk reaches, in tree order: through selected objects only.
PELL_EXPORT std::vector<Variable*> SelectedVariables(Object& root);
// How many of the selected variables have a value: what a file written now would hold.
PELL_EXPORT int SelectedValueCount(Object& root);
// Every variable of the tree, in tree order, selected or not.
PELL_EXPORT std::vector<Variable*> AllVariables(Object& root);

// The binding that applies to this receiver, or nullptr with the variable's error set.
PELL_EXPORT const Binding* Resolve(Variable& variable, ReceiverAccessor& accessor);
// Resolves, prints and parses one variable; its value is invalid with an error on failure.
PELL_EXPORT void ReadVariable(Variable& variable, ReceiverAccessor& accessor);
// Reads every selected variable that is not WRITEONLY, telling `read` of each as it is done;
// false when `progress` stopped it.
PELL_EXPORT bool ReadAll(Object& root, ReceiverAccessor& accessor, const Progress& progress = {},
                         const std::function<void(const Variable&)>& read = {});

// The compact UTF-8 JSON text of the selected tree.
PELL_EXPORT QByteArray BuildJson(const Object& root);

// A parsed settings file.
class PELL_EXPORT SettingsDocument {
public:
    // Files beyond this are refused unread.
    static constexpr qint64 kMaxBytes = 16 * 1024 * 1024;
    // Objects and arrays nested deeper than this are refused; a dictionary is far shallower.
    static constexpr int kMaxDepth = 64;

    SettingsDocument(SettingsDocument&&) noexcept;
    SettingsDocument& operator=(SettingsDocument&&) noexcept;
    ~SettingsDocument();
    // nullopt for anything but one JSON object in valid UTF-8 of at most kMaxBytes.
    static std::optional<SettingsDocument> Parse(const QByteArray& json);

private:
    friend void TakeValues(Object& root, const SettingsDocument& document);
    struct Impl;
    explicit SettingsDocument(std::unique_ptr<Impl> impl);
    std::unique_ptr<Impl> m_impl;
};

// Gives each variable the value of its member in the file, or leaves it invalid when the member
// is missing or of the wrong kind. Members the dictionary does not know are ignored.
PELL_EXPORT void TakeValues(Object& root, const SettingsDocument& document);

enum class EWriteOutcome {
    Written,
    Failed,  // the variable's error says why
    Skipped, // nothing to write: not selected, no value, or READONLY
};
// Writes one variable's value to the receiver.
PELL_EXPORT EWriteOutcome WriteVariable(Variable& variable, ReceiverAccessor& accessor);

// The display form: integers in decimal, booleans "true"/"false", items joined by ", ",
// messages "name:{period,phase,count,0xflags}". Empty for an invalid value.
PELL_EXPORT QString DisplayText(const Variable& variable);

} // namespace VOXA2JSON
