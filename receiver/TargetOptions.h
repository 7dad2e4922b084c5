#pragma once

#include "lib/pell_export.h"
#include "receiver/ReceiverTarget.h"

#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QStringList>
#include <optional>

namespace pell {

// The options that tell a host program where its receiver is, the same in every program:
// --simulator[=PROFILE] (also "--simulator PROFILE"), --connect tcp://HOST:PORT and
// --serial DEVICE[@RATE][,rtscts]; at most one of them.
class PELL_EXPORT CTargetOptions {
public:
    // `profiles`: the simulator's profile names, the first being the default.
    explicit CTargetOptions(QStringList profiles);

    void AddTo(QCommandLineParser& parser) const;
    // Before parsing: "--simulator PROFILE" becomes "--simulator=PROFILE" when a word that is not
    // an option follows. `valued`: the program's other options that take the next argument, whose
    // values stay as they are. `onlyProfiles`, for a program that takes words of its own after
    // its options: only a profile's name is joined, so "--simulator FILE" is the default profile
    // and FILE.
    void JoinSimulatorProfile(QStringList& arguments, const QStringList& valued = {},
                              bool onlyProfiles = false) const;
    // After parsing: the receiver chosen, or nothing; `error` is set when the options make no
    // sense (two receivers, an unknown profile, a malformed address).
    std::optional<ReceiverTarget> Read(const QCommandLineParser& parser, QString& error) const;

private:
    QStringList m_profiles;
    QCommandLineOption m_simulator;
    QCommandLineOption m_tcp;
    QCommandLineOption m_serial;
};

} // namespace pell
