#pragma once

#include "lib/pell_export.h"

#include <QString>
#include <QStringList>
#include <map>
#include <vector>

class CVexReceiverMate;

// A receiver list (the NTRIP caster's users, notification watchers) as a window edits it: its
// items read with the fields the window shows, added, changed and removed in memory, and the
// commands that make the receiver's list so, all composed before the first goes out.
class PELL_EXPORT CKeyedList {
public:
    enum EKind {
        Text,     // "set,<item>/<field>,\"<text>\""
        Unsigned, // "set,<item>/<field>,<n>"
        Word,     // "set,<item>/<field>,<word>"
    };
    struct Field {
        QString name;
        EKind kind;
    };
    using Values = std::map<QString, QString>; // field → value, texts unquoted
    struct Item {
        int index = -1; // on the receiver; -1 for an item added here
        Values values;
    };

    // `operation` names the reading in the error a malformed reply gives.
    CKeyedList(QString path, std::vector<Field> fields, QString operation);

    // Reads the items with their fields ("print,<list>&[f1,f2,...]"); edits are dropped. A reply
    // that is no keyed list of records, or a text that is not quoted, fails the read with
    // ERROR_INVALID_PARAMETER.
    void Read(const CVexReceiverMate& mate);
    const std::vector<Item>& Items() const { return m_items; }
    const QString& Path() const { return m_path; }
    // Drops what was read and edited: a list that could not be read writes nothing, whatever is
    // added to it, until it is read again.
    void Forget();
    void Add(Values values);
    void Change(std::size_t row, Values values);
    void Remove(std::size_t row);

    // The commands that make the receiver's list what Items() holds: removals, then changed
    // fields, then new items (each at the lowest free index). Throws, sending nothing, for a value
    // that cannot be written.
    QStringList Commands() const;
    // Runs Commands() and reads the list again.
    void Write(const CVexReceiverMate& mate);

private:
    QString ItemPath(int index) const;
    QString Set(const QString& item, const Field& field, const QString& value) const;

    QString m_path;
    std::vector<Field> m_fields;
    QString m_operation;
    std::vector<Item> m_read;
    std::vector<Item> m_items;
    bool m_unread = false;
};
