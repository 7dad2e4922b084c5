// Any reply text goes through every reply helper without a crash, and what they hand out
// stays within what they were given: list elements come from the text, keyed lists hold only
// indexes 0..255 or fail as a whole, quoting undoes unquoting, and a restore never writes a
// control character.
#include "lib/Exceptions.h"
#include "receiver/SettingsTree.h"
#include "receiver/VexCommands.h"
#include "receiver/VexReceiverMate.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QString reply =
        QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));

    const QStringList elements = CVexReceiverMate::SplitList(reply);
    if (elements.size() > reply.count(QLatin1Char(',')) + 1)
        std::abort();
    for (const QString& element : elements)
        if (!reply.contains(element))
            std::abort();

    try {
        for (const auto& [index, value] : CVexReceiverMate::SplitKeyedList(reply, "fuzz"))
            if (index > 255 || !reply.contains(value))
                std::abort();
    } catch (const ulm_std::CWinException& e) {
        if (e.GetErrorCode() != 87)
            std::abort();
    }
    for (const auto& [key, value] : CVexReceiverMate::SplitRecord(reply))
        if (key.isEmpty() || key.contains(QLatin1Char('=')))
            std::abort();

    if (const auto text = pell::vexcmd::UnquoteText(reply.trimmed())) {
        try {
            if (pell::vexcmd::UnquoteText(pell::vexcmd::QuoteText(*text, "fuzz")) != *text)
                std::abort();
        } catch (const ulm_std::CWinException&) {
            // a control character the receiver could not take back: refused, never sent
        }
    }

    const pell::SettingsNode tree = pell::SettingsNode::Parse(reply, true);
    QStringList skipped;
    for (const QString& command :
         pell::RestoreCommands("p", tree, pell::SettingsNode::Parse("{}", true), &skipped)) {
        for (const QChar c : command)
            if (c.unicode() < 0x20)
                std::abort();
    }
    return 0;
}
