#pragma once

#include "config/VOXA2JSON.h"
#include "lib/pell_export.h"

#include <QByteArray>
#include <QString>
#include <functional>
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

// One row of an import's report: a variable written, or one that failed and why.
struct PELL_EXPORT ImportRow {
    QString path; // the names from the root's child down, joined by "/"
    EWriteOutcome outcome = EWriteOutcome::Written;
    QString text; // "Successfully Imported", or the variable's error
};

// An import: writes each selected variable of `root` in tree order (values taken from a file
// with TakeValues) and reports a row for each one written or failed; a variable with nothing to
// write (no value in the file, READONLY) gets no row, as it is no failure. `progress` counts
// every selected variable and may stop the walk between two of them: false then. A cancel
// request or a lost connection leaves through the accessor's exception, the rows so far told.
PELL_EXPORT bool ImportSettings(Object& root, ReceiverAccessor& accessor,
                                const std::function<void(const ImportRow&)>& report,
                                const Progress& progress = {});

} // namespace VOXA2JSON
