#include "config/SettingsImport.h"

#include "lib/PellLib.h"
#include "resources/StringIds.h"

namespace VOXA2JSON {

CSettingsImport::CSettingsImport(Object& root) : m_variables(SelectedVariables(root)) {}

ImportRow CSettingsImport::WriteNext(ReceiverAccessor& accessor) {
    Variable& variable = *m_variables.at(m_next++);
    ImportRow row{variable.Path(), EWriteOutcome::Skipped, {}};
    if (variable.value.invalid || variable.Has(ReadOnly) || variable.type == EType::Unknown)
        return row;
    const Value fromFile = variable.value;
    Value before;
    if (!variable.Has(WriteOnly)) {
        try {
            ReadVariable(variable, accessor);
        } catch (...) {
            variable.value = fromFile;
            throw;
        }
        before = variable.value;
        variable.value = fromFile;
    }
    // Recorded before the write: a write stopped half-way is put back too.
    m_touched.push_back({&variable, before});
    row.outcome = WriteVariable(variable, accessor);
    // A refused set changes nothing, nor does a write that never got to the receiver; the
    // message commands of a set may have changed part of it.
    const bool messageSet =
        variable.name == QLatin1String("OMode") || variable.name == QLatin1String("DefMsgSet");
    if (row.outcome == EWriteOutcome::Failed &&
        (!messageSet || !variable.Resolved() ||
         variable.error == g_PellLibApp.XLoadString(pell::ids::SettingsCannotCompose)))
        m_touched.pop_back();
    row.text = row.outcome == EWriteOutcome::Written
                   ? g_PellLibApp.XLoadString(pell::ids::SettingsImported)
                   : variable.error;
    return row;
}

QStringList CSettingsImport::Undo(ReceiverAccessor& accessor) {
    QStringList failed;
    for (auto touched = m_touched.rbegin(); touched != m_touched.rend(); ++touched) {
        Variable& variable = *touched->variable;
        if (touched->before.invalid) {
            failed << variable.Path();
            continue;
        }
        const Value fromFile = std::exchange(variable.value, touched->before);
        const QString error = variable.error;
        if (WriteVariable(variable, accessor) == EWriteOutcome::Failed)
            failed << variable.Path();
        variable.value = fromFile;
        variable.error = error;
    }
    m_touched.clear();
    return failed;
}

} // namespace VOXA2JSON
