#pragma once

#include "Model.h"
#include "rxio/Almanac.h"

#include <QString>
#include <QStringList>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <vector>

namespace rxsim {

// The answer to one command line.
struct Answer {
    bool error = false;
    QString text; // payload: the reply, or {code,,text} for an error
};

// Something the receiver does besides answering, for the session to carry out.
struct SideEffects {
    bool powerOff = false;
    bool reset = false;
    std::vector<std::pair<QString, QByteArray>> portOutput; // port path, bytes ("out,")
};

// The simulated receiver's parameters and the verbs that read and change them. No I/O: a
// session feeds it command lines and carries out what it asks.
class CReceiverState {
public:
    CReceiverState(const CModel& model, const Profile& profile);

    // Runs one line (commands joined by ';' run in order; the first error ends the line).
    Answer Execute(const QString& line, SideEffects& effects);

    // Current value of a parameter, as "print" would give it; empty when unknown.
    std::optional<QString> Value(const QString& path) const;
    const Profile& GetProfile() const { return m_profile; }
    // Ports that refuse "em," and "out," (as real receivers refuse them on some ports).
    std::set<QString>& RefusingPorts() { return m_refusing; }
    const std::map<QString, QStringList>& Messages() const { return m_messages; }
    // The Keplerian almanacs "print,alm" answers.
    void SetAlmanacs(std::vector<rxio::Almanac> almanacs) { m_almanacs = std::move(almanacs); }
    // The most recent texts given to "event" (at most kKeptEvents), oldest first.
    static constexpr qsizetype kKeptEvents = 256;
    const QStringList& Events() const { return m_events; }

    // Splits a line at ';' outside quotes and braces.
    static QStringList SplitCommands(const QString& line);

private:
    using Handler = Answer (CReceiverState::*)(const QStringList& args, SideEffects& effects);

    struct Param {
        const ParamSpec* def;
        QString value;
    };
    // Message names with their schedules, in the order they were created.
    using Schedules = std::vector<std::pair<QString, QString>>;
    struct MessageSet {
        const ParamSpec* def;
        Schedules messages;
    };

    Answer Print(const QStringList& args, SideEffects&);
    Answer Set(const QStringList& args, SideEffects&);
    Answer List(const QStringList& args, SideEffects&);
    Answer Init(const QStringList& args, SideEffects&);
    Answer Create(const QStringList& args, SideEffects&);
    Answer Remove(const QStringList& args, SideEffects&);
    Answer EnableMessages(const QStringList& args, SideEffects&);
    Answer DisableMessages(const QStringList& args, SideEffects&);
    Answer Out(const QStringList& args, SideEffects&);
    Answer Event(const QStringList& args, SideEffects&);
    Answer Power(const QStringList& args, SideEffects&);
    Answer Reset(const QStringList& args, SideEffects&);

    Answer RunOne(const QString& command, SideEffects& effects);
    void AddParam(const ParamSpec& def, const QString& path);
    // The NTRIP client follows its settings: it fetches the source table of the caster it is
    // pointed to, and gets corrections once it has a caster and a mount point.
    void UpdateNtripClient();
    bool Exists(const QString& path) const;
    // The printed subtree at `path`: a value, or a record {name=...} of its children.
    QString Subtree(const QString& path) const;
    // "&[a,b]": each member of `path` with only the named fields it has.
    std::optional<QString> Selection(const QString& path, const QString& fields) const;
    QStringList Children(const QString& path) const;
    std::optional<QString> Validate(const ParamSpec& def, const QString& value) const;
    bool IsPort(const QString& path) const;
    // "<port>/msgs" reads and changes the port's message sets as "<port>" does.
    QString PortOf(const QString& path) const;
    // {set path, message name} when `path` names a message below a message set.
    std::optional<std::pair<QString, QString>> SplitMessagePath(const QString& path) const;
    // The error for a port that is unknown, or that refuses output when `sending`.
    std::optional<Answer> RefusePort(const QString& port, bool sending) const;

    const CModel& m_model;
    Profile m_profile;
    std::map<QString, Param> m_params;
    std::map<QString, const ParamSpec*> m_lists; // keyed lists by path
    std::map<QString, MessageSet> m_messageSets;
    std::set<QString> m_refusing;
    std::map<QString, QStringList> m_messages; // port → enabled message sets
    QStringList m_events;
    std::vector<rxio::Almanac> m_almanacs;
};

// {code,,text}
Answer ErrorAnswer(int code, const QString& text);

// Appends to a history that keeps only its newest `keep` entries, so a long session stays small.
void AppendBounded(QStringList& history, const QString& entry, qsizetype keep);

} // namespace rxsim
