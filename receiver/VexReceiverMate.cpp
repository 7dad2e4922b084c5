#include "receiver/VexReceiverMate.h"

#include "lib/Common.h"
#include "lib/Exceptions.h"
#include "receiver/VexCommands.h"

#include <QEventLoop>
#include <QPointer>
#include <QRegularExpression>
#include <algorithm>
#include <atomic>
#include <set>

namespace {

using pell::vexcmd::UnquoteText;

const QString kDevice = QStringLiteral("Receiver");
const QString kSource = QStringLiteral("VexReceiverMate");

// Receivers with a command waiting in this thread.
thread_local std::set<const rxio::IReceiver*> t_pending;

class PendingMark {
public:
    explicit PendingMark(const rxio::IReceiver* receiver) : m_receiver(receiver) {
        t_pending.insert(receiver);
    }
    ~PendingMark() { t_pending.erase(m_receiver); }
    PendingMark(const PendingMark&) = delete;
    PendingMark& operator=(const PendingMark&) = delete;

private:
    const rxio::IReceiver* m_receiver;
};

// What the completion leaves for the waiting side; shared, because a completion may still be
// on its way when the wait has already given up.
struct Wait {
    bool done = false;
    std::atomic<bool> cancelled = false; // set by whichever thread requests the stop
    rxio::CommandResult result;
    QPointer<QEventLoop> loop;
};

} // namespace

CVexReceiverMate::CVexReceiverMate(std::shared_ptr<rxio::IReceiver> receiver, bool keepAlive)
    : m_receiver(std::move(receiver)), m_keepAlive(keepAlive) {}

bool CVexReceiverMate::IsOstrelFamily(const QString& model) {
    return model.compare(QLatin1String("Ostrel Q"), Qt::CaseInsensitive) == 0 ||
           model.compare(QLatin1String("Ostrel W"), Qt::CaseInsensitive) == 0;
}

bool CVexReceiverMate::IsPardoFamily(const QString& model) {
    return model.compare(QLatin1String("Pardo7"), Qt::CaseInsensitive) == 0;
}

bool CVexReceiverMate::PreparesModulePort(const QString& model) {
    return model.compare(QLatin1String("Lumen7"), Qt::CaseInsensitive) == 0;
}

QString CVexReceiverMate::Model() const {
    if (m_receiver) {
        const QString known = m_receiver->Identity().model;
        if (!known.isEmpty())
            return known;
    }
    return Run(pell::vexcmd::Print(QStringLiteral("rcv/model")), RemoveQuotes);
}

void CVexReceiverMate::SetPortRate(const QString& port, const QString& rate) const {
    Run(pell::vexcmd::SetChoice(port + QStringLiteral("/rate"), rate));
}

void CVexReceiverMate::SetPortRtsCts(const QString& port, bool on) const {
    Run(pell::vexcmd::SetChoice(port + QStringLiteral("/rtscts"),
                                on ? QStringLiteral("on") : QStringLiteral("off")));
}

void CVexReceiverMate::ReleasePort(const QString& port) const {
    Run(pell::vexcmd::ReleasePort(port));
}

void CVexReceiverMate::StartEcho(const QString& module, const QString& terminator) const {
    const QString current = pell::vexcmd::PortPath(1);
    const unsigned own = pell::vexcmd::PortId(
        Run(pell::vexcmd::Print(current + QStringLiteral("/id")), RemoveQuotes));
    QStringList line;
    if (own >= 100 && own <= 103)
        for (const QString& leaf : pell::vexcmd::SerialLineLeaves())
            line << Run(pell::vexcmd::Print(pell::vexcmd::PortPath(own) + QLatin1Char('/') + leaf));
    Run(pell::vexcmd::StartEcho(current, module, terminator, line));
}

void CVexReceiverMate::WriteRaw(const QString& text) const {
    if (!m_receiver)
        PELL_THROW_WIN(text, pell::ERROR_DEV_NOT_EXIST);
    m_receiver->Port().Write(text.toUtf8());
}

void CVexReceiverMate::EndEcho() const {
    Run(pell::vexcmd::EndEcho(pell::vexcmd::PortPath(1)));
}

bool CVexReceiverMate::IsPending(const rxio::IReceiver* receiver) {
    return t_pending.contains(receiver);
}

bool CVexReceiverMate::IsAccessDenied(const QString& reply) {
    return reply.compare(QLatin1String("{2,,access denied}"), Qt::CaseInsensitive) == 0;
}

QString CVexReceiverMate::Run(const QString& command, EQuotes quotes,
                              const Validator& validator) const {
    if (!m_receiver)
        PELL_THROW_WIN(command, pell::ERROR_DEV_NOT_EXIST);
    PELL_REQUIRE(m_receiver->IsOwnerThread(), command, pell::ERROR_INVALID_THREAD_ID);
    if (IsPending(m_receiver.get()))
        PELL_THROW_WIN(command, pell::ERROR_BUSY);
    if (m_cancel.stop_requested())
        PELL_THROW_WIN(command, pell::ERROR_CANCELLED);

    const PendingMark mark(m_receiver.get());
    QEventLoop loop;
    const auto wait = std::make_shared<Wait>();
    wait->loop = &loop;
    const auto id =
        m_receiver->StartCommand(command, m_timeoutMs, [wait](const rxio::CommandResult& result) {
            wait->done = true;
            wait->result = result;
            if (wait->loop)
                wait->loop->quit();
        });
    {
        const std::stop_callback onCancel(m_cancel, [wait, &loop] {
            wait->cancelled = true;
            // By name: nothing of ours travels to the waiting thread inside Qt's event.
            QMetaObject::invokeMethod(&loop, "quit", Qt::QueuedConnection);
        });
        if (!wait->done && !wait->cancelled)
            loop.exec(m_keepAlive ? QEventLoop::AllEvents : QEventLoop::ExcludeUserInputEvents);
    }
    wait->loop = nullptr;

    if (!wait->done) {
        m_receiver->Abandon(id);
        PELL_THROW_WIN(command,
                       wait->cancelled ? pell::ERROR_CANCELLED : pell::ERROR_INTERNAL_ERROR);
    }
    const rxio::CommandResult& result = wait->result;
    if (result.status == rxio::CommandResult::TimedOut)
        PELL_THROW_WIN(command, pell::ERROR_TIMEOUT);
    if (result.status == rxio::CommandResult::Disconnected)
        PELL_THROW_WIN(command, pell::ERROR_DEV_NOT_EXIST);
    // Refused here, never sent: not the receiver's answer, so not shown as one.
    if (result.status == rxio::CommandResult::Refused)
        PELL_THROW_WIN(command, pell::ERROR_INVALID_PARAMETER);

    const QString reply = result.reply.trimmed();
    const bool outputRefused = IsAccessDenied(reply) && (command.startsWith(QLatin1String("em,")) ||
                                                         command.startsWith(QLatin1String("out,")));
    if (result.error && !outputRefused)
        throw ulm_std::CCommException(command, kDevice, reply, kSource);
    if (validator && !validator(reply))
        throw ulm_std::CCommException(command, kDevice, reply, kSource);
    if (quotes == RemoveQuotes)
        if (auto text = UnquoteText(reply))
            return *text;
    return reply;
}

QString CVexReceiverMate::StripBraces(const QString& text) {
    if (text.size() >= 2 && text.startsWith(QLatin1Char('{')) && text.endsWith(QLatin1Char('}')))
        return text.mid(1, text.size() - 2);
    return text;
}

bool CVexReceiverMate::IsMessageSetName(const QString& name) {
    static const QRegularExpression set(QStringLiteral("^[A-Za-z0-9_]+(/[A-Za-z0-9_]+)*$"));
    return set.match(name).hasMatch();
}

QStringList CVexReceiverMate::SplitList(const QString& text) {
    const QString inner = StripBraces(text.trimmed());
    QStringList parts;
    if (inner.trimmed().isEmpty())
        return parts;
    qsizetype start = 0;
    int depth = 0;
    bool quoted = false;
    for (qsizetype i = 0; i < inner.size(); ++i) {
        const QChar c = inner.at(i);
        if (quoted) {
            if (c == QLatin1Char('\\'))
                ++i;
            else if (c == QLatin1Char('"'))
                quoted = false;
        } else if (c == QLatin1Char('"')) {
            quoted = true;
        } else if (c == QLatin1Char('{')) {
            ++depth;
        } else if (c == QLatin1Char('}')) {
            depth = std::max(0, depth - 1);
        } else if (c == QLatin1Char(',') && depth == 0) {
            parts << inner.mid(start, i - start).trimmed();
            start = i + 1;
        }
    }
    parts << inner.mid(start).trimmed();
    return parts;
}

std::vector<std::pair<unsigned, QString>>
CVexReceiverMate::SplitKeyedList(const QString& text, const QString& operation) {
    std::vector<std::pair<unsigned, QString>> items;
    for (const QString& element : SplitList(text)) {
        qsizetype digits = 0;
        unsigned index = 0;
        while (digits < element.size() && element.at(digits).isDigit() &&
               element.at(digits).unicode() < 0x80 && index <= 255)
            index = index * 10 + unsigned(element.at(digits++).unicode() - '0');
        if (digits == 0 || index > 255 || digits >= element.size() ||
            element.at(digits) != QLatin1Char('='))
            PELL_THROW_WIN(operation, pell::ERROR_INVALID_PARAMETER);
        items.emplace_back(index, element.mid(digits + 1));
    }
    return items;
}

std::map<QString, QString> CVexReceiverMate::SplitRecord(const QString& text) {
    std::map<QString, QString> record;
    for (const QString& element : SplitList(text)) {
        const qsizetype equals = element.indexOf(QLatin1Char('='));
        if (equals <= 0)
            continue;
        const QString key = element.left(equals).trimmed();
        // A quote or brace before the "=" means the "=" belongs to a value, not to a key.
        if (key.isEmpty() || key.contains(QLatin1Char('"')) || key.contains(QLatin1Char('{')))
            continue;
        record.emplace(key, element.mid(equals + 1).trimmed());
    }
    return record;
}

std::vector<std::pair<unsigned, std::map<QString, QString>>>
CVexReceiverMate::SplitKeyedRecords(const QString& text, const QString& operation,
                                    const QStringList& keys) {
    std::vector<std::pair<unsigned, std::map<QString, QString>>> records;
    for (auto& [index, value] : SplitKeyedList(text, operation)) {
        auto record = SplitRecord(value);
        if (std::all_of(keys.begin(), keys.end(),
                        [&](const QString& key) { return record.contains(key); }))
            records.emplace_back(index, std::move(record));
    }
    return records;
}
