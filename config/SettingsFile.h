#pragma once

#include "config/VOXA2JSON.h"
#include "lib/pell_export.h"

#include <QByteArray>
#include <QString>
#include <optional>

namespace VOXA2JSON {

// Writes the file through a temporary one beside it that replaces `path` only once every byte is
// written, so a failure never damages the file that stood there. False with the reason in `error`.
PELL_EXPORT bool WriteSettingsFile(const QString& path, const QByteArray& json, QString* error);

// An export: reads the selected variables of `root` (progress as ReadAll) and writes the file.
// False when the walk was stopped (nothing written, `error` left empty) or the file could not be
// written (`error` says why); whichever way, the file that stood at `path` is left as it was.
PELL_EXPORT bool ExportSettings(Object& root, ReceiverAccessor& accessor, const QString& path,
                                const Progress& progress, QString* error);

// Reads and parses a settings file whole. nullopt with "The specified file cannot be parsed." in
// `error` when it cannot be read whole, is larger than SettingsDocument::kMaxBytes or is not
// a settings document.
PELL_EXPORT std::optional<SettingsDocument> ReadSettingsFile(const QString& path, QString* error);

} // namespace VOXA2JSON
