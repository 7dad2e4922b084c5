// Any text typed as a watcher's address: one it accepts has a single '@' between non-empty parts,
// holds nothing that could end a quoted text or a command, and goes into the command unchanged.
#include "config/NotificationsPS.h"
#include "receiver/VexCommands.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QString text =
        QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    if (!CNotifications_WatcherDlg::IsValidAddress(text))
        return 0;
    const QStringList parts = text.split(QLatin1Char('@'));
    if (parts.size() != 2 || parts[0].isEmpty() || !parts[1].contains(QLatin1Char('.')))
        std::abort();
    for (const QChar c : text)
        if (c.unicode() <= 0x20 || c.unicode() >= 0x7f ||
            QStringLiteral("\",;\\<>()[]:").contains(c))
            std::abort();
    if (pell::vexcmd::SetText(QStringLiteral("a"), text) !=
        QStringLiteral("set,a,\"%1\"").arg(text))
        std::abort();
    return 0;
}
