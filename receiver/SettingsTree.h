#pragma once

#include "lib/pell_export.h"

#include <QString>
#include <QStringList>
#include <map>

namespace pell {

// A receiver subtree as "print,<node>:on" shows it: nodes are records of key=value, leaves keep
// their value exactly as printed, ready to be written back with "set,<path>,<value>".
struct PELL_EXPORT SettingsNode {
    bool leaf = true;
    QString value;                            // a leaf's printed value
    std::map<QString, SettingsNode> children; // a node's children by key

    // Reads a printed value; `node` forces a record reading of the top level (":on" replies).
    static SettingsNode Parse(const QString& printed, bool node);
    bool operator==(const SettingsNode&) const = default;
};

// The commands that take the receiver from `current` back to `recorded` under `path`: items a
// list gained are removed, items it lost are created again and filled, leaves that changed are
// set back. Values that could not be written back as one command are left out and listed in
// `skipped`.
PELL_EXPORT QStringList RestoreCommands(const QString& path, const SettingsNode& recorded,
                                        const SettingsNode& current, QStringList* skipped);

} // namespace pell
