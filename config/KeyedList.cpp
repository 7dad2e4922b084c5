#include "config/KeyedList.h"

#include "lib/Common.h"
#include "lib/Exceptions.h"
#include "receiver/VexCommands.h"
#include "receiver/VexReceiverMate.h"

#include <algorithm>
#include <set>

CKeyedList::CKeyedList(QString path, std::vector<Field> fields, QString operation)
    : m_path(std::move(path)), m_fields(std::move(fields)), m_operation(std::move(operation)) {}

void CKeyedList::Read(const CVexReceiverMate& mate) {
    QStringList names;
    for (const Field& field : m_fields)
        names << field.name;
    const QString reply = mate.Run(pell::vexcmd::PrintFields(m_path, names));
    std::vector<Item> items;
    for (auto& [index, record] : CVexReceiverMate::SplitKeyedRecords(reply, m_operation, names)) {
        Item item{int(index), {}};
        for (const Field& field : m_fields) {
            QString value = record.at(field.name);
            if (field.kind == Text) {
                const auto text = pell::vexcmd::UnquoteText(value);
                if (!text)
                    PELL_THROW_WIN(m_operation, pell::ERROR_INVALID_PARAMETER);
                value = *text;
            }
            item.values[field.name] = value;
        }
        items.push_back(std::move(item));
    }
    m_read = items;
    m_items = std::move(items);
    m_unread = false;
}

void CKeyedList::Forget() {
    m_read.clear();
    m_items.clear();
    m_unread = true;
}

void CKeyedList::Add(Values values) {
    m_items.push_back({-1, std::move(values)});
}

void CKeyedList::Change(std::size_t row, Values values) {
    m_items.at(row).values = std::move(values);
}

void CKeyedList::Remove(std::size_t row) {
    m_items.erase(m_items.begin() + std::ptrdiff_t(row));
}

QString CKeyedList::ItemPath(int index) const {
    return m_path + QStringLiteral("/%1").arg(index, 2, 10, QLatin1Char('0'));
}

QString CKeyedList::Set(const QString& item, const Field& field, const QString& value) const {
    const QString path = item + QLatin1Char('/') + field.name;
    switch (field.kind) {
    case Text:
        return pell::vexcmd::SetText(path, value);
    case Unsigned:
        return pell::vexcmd::SetUnsigned(path, value.toULongLong());
    case Word:
        return pell::vexcmd::SetChoice(path, value);
    }
    return {};
}

QStringList CKeyedList::Commands() const {
    QStringList commands;
    if (m_unread)
        return commands;
    std::set<int> kept;
    for (const Item& item : m_items)
        if (item.index >= 0)
            kept.insert(item.index);
    for (const Item& read : m_read)
        if (!kept.contains(read.index))
            commands << pell::vexcmd::Remove(ItemPath(read.index));
    for (const Item& item : m_items) {
        if (item.index < 0)
            continue;
        const auto read = std::find_if(m_read.begin(), m_read.end(),
                                       [&](const Item& r) { return r.index == item.index; });
        for (const Field& field : m_fields)
            if (read == m_read.end() || read->values.at(field.name) != item.values.at(field.name))
                commands << Set(ItemPath(item.index), field, item.values.at(field.name));
    }
    std::set<int> used = kept;
    for (const Item& item : m_items) {
        if (item.index >= 0)
            continue;
        int index = 0;
        while (used.contains(index))
            ++index;
        used.insert(index);
        commands << pell::vexcmd::Create(m_path, unsigned(index));
        for (const Field& field : m_fields)
            commands << Set(ItemPath(index), field, item.values.at(field.name));
    }
    return commands;
}

void CKeyedList::Write(const CVexReceiverMate& mate) {
    for (const QString& command : Commands())
        mate.Run(command);
    Read(mate);
}
