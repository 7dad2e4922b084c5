#pragma once

#include "PortModule.h"

#include <QString>

namespace rxsim {

// What the Bluetooth LE module keeps across escapes, ATO and pass-through sessions.
struct BleSettings {
    QString friendlyName = QStringLiteral("PELL-BLE"); // 1 to 32 characters
    QString pin;                                       // empty, or 6 to 16 digits
    bool radio = true;
    QString vendorId; // the identity fields: at most 32 characters each
    QString modelId;
    QString serialNumber;
    QString hardwareVersion;
    QByteArray advertising = QByteArray(14, '\0'); // persistent advertising data

    bool operator==(const BleSettings&) const = default;
};

// The Bluetooth LE module: data mode until "+++", then AT-style command lines answered with
// "OK\r\n" or "ERROR=<reason>\r\n" (docs/simulator.md).
class CBleModule final : public CPortModule {
    Q_OBJECT
public:
    // The module as it leaves the receiver maker's line: set up for `settings`, with the
    // Bluetooth address `address` ("00:1B:C5:0A:42:17"), which no command changes.
    CBleModule(const BleSettings& settings, const QString& address, QObject* parent = nullptr);

    const BleSettings& Settings() const { return m_settings; }
    const QString& Address() const { return m_address; }
    bool InCommandMode() const { return m_commandMode; }

private:
    struct Command;
    using Handler = QByteArray (CBleModule::*)(const Command&, const QString& argument);

    void Hear(const QByteArray& bytes) override;
    void Run(const QByteArray& line);
    QByteArray Information(const Command&, const QString& argument);
    QByteArray ProductId(const Command&, const QString& argument);
    QByteArray ReadSettings(const Command&, const QString& argument);
    QByteArray SetText(const Command&, const QString& argument);
    QByteArray SetPin(const Command&, const QString& argument);
    QByteArray SetRadio(const Command&, const QString& argument);
    QByteArray SetAdvertising(const Command&, const QString& argument);
    QByteArray BootInit(const Command&, const QString& argument);
    QByteArray DataMode(const Command&, const QString& argument);

    BleSettings m_settings;
    QString m_address;
    bool m_commandMode = false;
    int m_pluses = 0; // '+' in a row heard in data mode
    bool m_restart = false;
    CLineBuffer m_line;

    static const Command kCommands[];
};

} // namespace rxsim
