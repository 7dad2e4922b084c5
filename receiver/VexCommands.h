#pragma once

#include "lib/pell_export.h"

#include <QString>
#include <QStringList>
#include <optional>

// Command lines of the receiver language, one per value kind. Every function checks what it is
// given, so no value can end its own command or start another: a path or word with a separator,
// quote or control character, or a text that cannot be quoted, raises CWinException with
// ERROR_INVALID_PARAMETER and nothing is sent.
namespace pell::vexcmd {

// print,<path>
PELL_EXPORT QString Print(const QString& path);
// print,<node>&[f1,f2,...]: each member of the node with only the named fields
PELL_EXPORT QString PrintFields(const QString& path, const QStringList& fields);
// print,<leaf>&reset: "y" when a new value takes effect only after a reset
PELL_EXPORT QString PrintNeedsReset(const QString& leaf);
// reset,yes
PELL_EXPORT QString Reset();
// set,<path>,<word> for enumerations and other bare words
PELL_EXPORT QString SetChoice(const QString& path, const QString& word);
// set,<path>,<n>
PELL_EXPORT QString SetSigned(const QString& path, long long value);
PELL_EXPORT QString SetUnsigned(const QString& path, unsigned long long value);
// set,<path>,<value> with six decimals, as the receiver expects reals
PELL_EXPORT QString SetReal(const QString& path, double value);
// set,<path>,"<text>" with the text escaped the receiver's way
PELL_EXPORT QString SetText(const QString& path, const QString& text);
// set,<path>,<value> with a value exactly as the receiver printed it; refused when the value
// is not one value (a separator outside quotes, an open quote, a control character, nothing).
PELL_EXPORT QString SetPrinted(const QString& path, const QString& value);
// create,<list>,<index>, create,<path> (an item named by its path) and remove,<item>
PELL_EXPORT QString Create(const QString& list, unsigned index);
PELL_EXPORT QString CreateNamed(const QString& path);
PELL_EXPORT QString Remove(const QString& item);
// init,<path>: every writable leaf at or under the path back to its default
PELL_EXPORT QString Init(const QString& path);
// list,<path>
PELL_EXPORT QString List(const QString& path);
// em,<port>,<messages>, dm,<port> and dm,<port>,<messages>
PELL_EXPORT QString EnableMessages(const QString& port, const QString& messages);
PELL_EXPORT QString DisableMessages(const QString& port);
PELL_EXPORT QString DisableMessages(const QString& port, const QString& messages);
// out,<port>,"<text>": an empty text asks whether the port takes output without sending any.
PELL_EXPORT QString Out(const QString& port, const QString& text);

// Receiver ports by number: 1 the controller's own port ("cur/term"), 100-103 the serial ports
// ("dev/ser/a".."dev/ser/d"), 950 the Bluetooth LE module ("dev/ble/a"). Empty, or 0, when the
// number or path is none of these; a path may start with "/".
PELL_EXPORT QString PortPath(unsigned port);
PELL_EXPORT unsigned PortId(const QString& path);
// The line settings a pass-through copies from a serial controller port to the module's port.
PELL_EXPORT const QStringList& SerialLineLeaves();
// set,<port>/mode,none: no service output on the port while a module uses it.
PELL_EXPORT QString ReleasePort(const QString& port);
// One line that passes the controller's port `current` through to `module` until `terminator`
// arrives: ewrap off, input mode none on the module and echo on the controller's port, the echo
// target on the controller's port and the terminator on both. `lineSettings` (values of
// SerialLineLeaves(), or empty) are copied to the module's port. One line, so the receiver starts
// passing bytes through only after the whole set-up is in place.
PELL_EXPORT QString StartEcho(const QString& current, const QString& module,
                              const QString& terminator, const QStringList& lineSettings);
// set,<current>/imode,cmd: the controller's port reads commands again.
PELL_EXPORT QString EndEcho(const QString& current);

// "text" with \" \\ \r \n escapes; throws for other control characters and broken UTF-16.
PELL_EXPORT QString QuoteText(const QString& text, const QString& path);
// The text of one well-formed quoted string; nullopt for anything else.
PELL_EXPORT std::optional<QString> UnquoteText(const QString& quoted);

} // namespace pell::vexcmd
