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

} // namespace VOXA2JSON
