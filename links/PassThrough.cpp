#include "links/PassThrough.h"

#include "lib/Exceptions.h"
#include "receiver/VexCommands.h"

#include <QDebug>
#include <QScopeGuard>
#include <algorithm>

namespace pell::passthrough {

const QString& Terminator() {
    static const QString terminator = QStringLiteral("#OFF#");
    return terminator;
}

bool FitsOneArgument(const QString& text, bool quoted) {
    return std::none_of(text.begin(), text.end(), [quoted](QChar c) {
        return c.unicode() < 0x20 || c.unicode() == 0x7F || (quoted && c == QLatin1Char('"'));
    });
}

std::unique_ptr<Restorer> RecordPorts(const CVexReceiverMate& mate, const QString& module) {
    const QStringList echo = {QStringLiteral("imode"), QStringLiteral("echo"),
                              QStringLiteral("eoff"), QStringLiteral("ewrap")};
    return std::make_unique<Restorer>(
        mate,
        std::make_unique<Restorer::CPortLeafSettings>(
            module, vexcmd::SerialLineLeaves() + echo + QStringList{QStringLiteral("mode")}),
        std::make_unique<Restorer::CPortLeafSettings>(vexcmd::PortPath(1), echo));
}

void Start(const CVexReceiverMate& mate, const QString& module) {
    mate.ReleasePort(module);
    try {
        mate.StartEcho(module, Terminator());
    } catch (const ulm_std::CException&) {
        // A reply lost after the whole line may leave the echo on: end it either way (a receiver
        // not echoing takes the terminator for a command it does not know).
        mate.Receiver()->SuspendPort();
        try {
            End(mate);
        } catch (const ulm_std::CException& e) {
            qWarning() << "Pass-through not ended after a failed start:" << e.GetErrorMessage();
        }
        throw;
    }
    mate.Receiver()->SuspendPort();
}

void End(const CVexReceiverMate& mate) {
    {
        // The connection must read its port again before the receiver can answer anything,
        // whatever became of the terminator.
        const auto resume = qScopeGuard([&mate] { mate.Receiver()->ResumePort(); });
        mate.WriteRaw(Terminator() + QStringLiteral("\r\n"));
    }
    mate.EndEcho();
}

} // namespace pell::passthrough
