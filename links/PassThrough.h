#pragma once

#include "lib/pell_export.h"
#include "receiver/SettingsRestorer.h"
#include "receiver/VexReceiverMate.h"

#include <QString>
#include <memory>

// The receiver's echo pass-through to a module behind one of its ports, shared by the Bluetooth
// LE engine and the classic Bluetooth dialog.
namespace pell::passthrough {

using Restorer = CSettingsRestorer<CVexReceiverMate>;

// The text that ends a pass-through.
PELL_EXPORT const QString& Terminator();
// Whether `text` stays one argument of one module command: no control character (a line break
// would end the command early) and, for a module that quotes it, no quote.
PELL_EXPORT bool FitsOneArgument(const QString& text, bool quoted);
// Records what a pass-through changes: the module port's line, echo and output settings and the
// controller port's echo settings, put back when the restorer goes.
PELL_EXPORT std::unique_ptr<Restorer> RecordPorts(const CVexReceiverMate& mate,
                                                  const QString& module);
// Frees the module port, passes the controller's port through to it and suspends the
// connection's own use of the port.
PELL_EXPORT void Start(const CVexReceiverMate& mate, const QString& module);
// Sends the terminator, gives the port back to the connection and puts the controller's port
// back into command mode.
PELL_EXPORT void End(const CVexReceiverMate& mate);

} // namespace pell::passthrough
