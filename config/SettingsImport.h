#pragma once

#include "config/VOXA2JSON.h"
#include "lib/pell_export.h"

#include <QString>
#include <QStringList>
#include <utility>
#include <vector>

namespace VOXA2JSON {

// One line of an import's report: the variable's path and what became of it.
struct PELL_EXPORT ImportRow {
    QString path;
    EWriteOutcome outcome = EWriteOutcome::Skipped;
    QString text; // "Successfully Imported", or the variable's error
};

// An import, one variable at a time: the selected variables of a tree (values taken from a file)
// in tree order. Before each write it reads what the variable holds, so that an import stopped
// half-way can put the receiver back as it was.
class PELL_EXPORT CSettingsImport {
public:
    explicit CSettingsImport(Object& root);

    int Total() const { return int(m_variables.size()); }
    int Done() const { return int(m_next); }
    bool AtEnd() const { return m_next == m_variables.size(); }

    // Writes the next variable. A skipped one (no value in the file, READONLY) has no report
    // line to show. A cancel or a lost connection comes out as the accessor's exception.
    ImportRow WriteNext(ReceiverAccessor& accessor);
    // Writes back what each variable held before this import touched it, newest first, and
    // gives the paths that could not be put back (a WRITEONLY one cannot be read beforehand).
    QStringList Undo(ReceiverAccessor& accessor);

private:
    struct Touched {
        Variable* variable;
        Value before; // invalid when it could not be read
    };

    std::vector<Variable*> m_variables;
    size_t m_next = 0;
    std::vector<Touched> m_touched;
};

} // namespace VOXA2JSON
