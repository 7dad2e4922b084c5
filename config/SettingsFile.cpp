#include "config/SettingsFile.h"

#include "lib/PellLib.h"
#include "resources/StringIds.h"

#include <QFile>
#include <QSaveFile>

namespace VOXA2JSON {

bool WriteSettingsFile(const QString& path, const QByteArray& json, QString* error) {
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly) && file.write(json) == json.size() && file.commit())
        return true;
    if (error)
        *error = g_PellLibApp.XLoadString(pell::ids::SettingsFileCannotBeWritten)
                     .arg(path, file.errorString());
    file.cancelWriting();
    return false;
}

bool ExportSettings(Object& root, ReceiverAccessor& accessor, const QString& path,
                    const Progress& progress, QString* error) {
    return ReadAll(root, accessor, progress) && WriteSettingsFile(path, BuildJson(root), error);
}

std::optional<SettingsDocument> ReadSettingsFile(const QString& path, QString* error) {
    QFile file(path);
    std::optional<SettingsDocument> document;
    if (file.open(QIODevice::ReadOnly) && file.size() <= SettingsDocument::kMaxBytes) {
        const QByteArray json = file.read(SettingsDocument::kMaxBytes + 1);
        if (json.size() == file.size())
            document = SettingsDocument::Parse(json);
    }
    if (!document && error)
        *error = g_PellLibApp.XLoadString(pell::ids::SettingsFileCannotBeParsed);
    return document;
}

bool ImportSettings(Object& root, ReceiverAccessor& accessor,
                    const std::function<void(const ImportRow&)>& report, const Progress& progress) {
    const std::vector<Variable*> variables = SelectedVariables(root);
    const int total = int(variables.size());
    if (progress && !progress(0, total))
        return false;
    for (int i = 0; i < total; ++i) {
        Variable& variable = *variables[i];
        const EWriteOutcome outcome = WriteVariable(variable, accessor);
        if (outcome != EWriteOutcome::Skipped && report)
            report({variable.Path(), outcome,
                    outcome == EWriteOutcome::Written
                        ? g_PellLibApp.XLoadString(pell::ids::SettingsImported)
                        : variable.error});
        if (progress && !progress(i + 1, total))
            return false;
    }
    return true;
}

} // namespace VOXA2JSON
