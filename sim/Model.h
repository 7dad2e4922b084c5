#pragma once

#include <QString>
#include <QStringList>
#include <map>
#include <optional>
#include <vector>

namespace rxsim {

// What one parameter of the simulated receiver is: its kind, range and default.
struct ParamSpec {
    // Hex: an unsigned number printed in upper-case hexadecimal without prefix. Message: one
    // output message's schedule {period,phase,count,0xflags}. MessageSet: named messages, each
    // with its schedule, kept in the order they were created. PortMessages: the message sets
    // enabled on a port (made for every port, never written in the model file).
    enum EKind { Enum, Int, UInt, Real, Text, Raw, List, Hex, Message, MessageSet, PortMessages };

    QString path; // canonical: no leading "/", no "par/"
    EKind kind = Raw;
    QString enumName;
    double min = 0;
    double max = 0;
    int maxLength = 0; // 0: any length
    QString defaultValue;
    bool readonly = false;
    bool needsReset = false;
    QString feature;             // the profile feature the path needs, empty for every profile
    int maxItems = 0;            // List: how many items may exist
    std::vector<ParamSpec> item; // List: the fields of one item, paths relative to the item
};

struct EnumSpec {
    QStringList texts;
    QStringList names;
    int fallback = 0;
    bool numeric = false;
};

struct PortSpec {
    int id = 0;
    QString path;
    QString kind; // controller, serial, tcp, ble, bt, ...
    QString feature;
    bool refuses = false;  // answers "em," and "out," with access denied
    QString module;        // the device behind the port: "ble", "btclassic", or empty for none
    QString moduleFeature; // the profile feature that puts the module there
};

struct Profile {
    QString name;
    QString model;
    QString firmware;
    QString board;
    QString serial;
    QStringList features;
    std::map<QString, QString> values;
};

// The receiver's parameter tree and its model profiles, read from sim/model.json.
class CModel {
public:
    // Throws std::runtime_error with a readable reason when the file is not a valid model.
    static CModel Load(const QString& fileName);
    // The model file installed beside the simulator, or the source tree's in a build.
    static QString DefaultFile();

    const std::map<QString, EnumSpec>& Enums() const { return m_enums; }
    const std::vector<ParamSpec>& Params() const { return m_params; }
    const std::vector<PortSpec>& Ports() const { return m_ports; }
    const std::vector<Profile>& Profiles() const { return m_profiles; }
    // The message set names the receiver can output ("nmea/GGA", "jps/RT", ...).
    const QStringList& MessageNames() const { return m_messageNames; }
    const Profile* FindProfile(const QString& name) const;

    // "/par/dev/ser/a/rate", "par/dev/ser/a/rate" and "dev/ser/a/rate" are the same parameter.
    static QString Canonical(QString path);

private:
    std::map<QString, EnumSpec> m_enums;
    std::vector<ParamSpec> m_params;
    std::vector<PortSpec> m_ports;
    std::vector<Profile> m_profiles;
    QStringList m_messageNames;
};

} // namespace rxsim
