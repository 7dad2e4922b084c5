#pragma once

#include "lib/pell_export.h"
#include "links/PassThrough.h"
#include "receiver/VexReceiverMate.h"
#include "rxio/Receiver.h"

#include <QString>
#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

// Who the receiver is, as the Bluetooth LE module is told after a factory reset: read from
// rcv/vendor, rcv/model, rcv/ver/hw, rcv/id and rcv/uid.
struct PELL_EXPORT CBluetoothSmartIdentity {
    QString vendor;
    QString model;
    QString hardwareVersion;
    QString serialNumber;
    QString secondId;

    static CBluetoothSmartIdentity Read(const CVexReceiverMate& mate);
};

// The receiver's Bluetooth LE module, reached through the receiver's echo pass-through: Open
// hands the controller's port to the module and wakes it into command mode, SendCommand runs one
// AT-style command, Close gives the port back to the receiver connection. Whatever fails, the
// two ports end with the settings they had before Open and the connection is resumed.
//
// Failures: CCommException (source "BLE") for a module reply "ERROR=...", CWinException 1460
// for a command without an answer, 50 for a receiver without such a module (construction), 55
// for a module that does not answer Open, 87 for a text the module could take for a second
// command (a quotation mark, CR, LF or other control character).
class PELL_EXPORT CBluetoothSmartEngine {
public:
    using Pairs = std::vector<std::pair<QString, QString>>;
    using AdvertisingRecord = std::array<std::uint8_t, 14>;

    static constexpr unsigned kCommandTimeoutMs = 5000;
    static constexpr int kOpenAttempts = 5;

    explicit CBluetoothSmartEngine(std::shared_ptr<rxio::IReceiver> receiver);
    virtual ~CBluetoothSmartEngine();
    CBluetoothSmartEngine(const CBluetoothSmartEngine&) = delete;
    CBluetoothSmartEngine& operator=(const CBluetoothSmartEngine&) = delete;

    // 950 or 103.
    unsigned GetModulePort() const { return m_modulePort; }
    // A command is waiting for its answer (the wait lets events through: a timer must not start
    // another one).
    bool IsBusy() const { return m_busy; }
    // The pass-through is on: module commands can go out.
    bool IsOpen() const { return m_suspended; }

    void Open();
    // Safe when not open. Puts everything back even when a step fails, then throws the first
    // failure.
    void Close();
    // Whether the module answers as a Bluetooth LE module; the second attempt always escapes.
    bool Probe(bool sendEscape);
    void SendCommand(const QString& command, QString& reply, bool tolerateErrors,
                     unsigned timeoutMs);
    // What the bytes a module sent so far amount to: its reply before "OK\r\n" (looked for
    // first), an "ERROR=" line (whole once its CR LF came), or nothing complete yet (the text of
    // an unfinished error line, if any).
    struct Framed {
        enum EState { Waiting, Ok, Error } state = Waiting;
        QString text;
    };
    static Framed FrameReply(const QByteArray& response);

    void ReadInformation(Pairs& pairs);
    void ReadSettings(Pairs& pairs);
    void SetFriendlyName(const QString& name);
    void SetPin(const QString& pin);
    void SetRadio(bool on);
    void SetVendorId(const QString& text);
    void SetModelId(const QString& text);
    void SetSerialNumber(const QString& text);
    void SetHardwareVersion(const QString& text);
    void SetPersistentData(const std::uint8_t* bytes, std::size_t count);
    // The module restarts with its factory settings: Open again before the next command.
    void BootInit();

    // 950 for the Ostrel and Pardo families, 103 for "Lumen7", 0 for any other model.
    static unsigned ModulePortFor(const QString& model);
    // "name=value" lines of a reply in order; lines without "=" are left out.
    static Pairs ParseReply(const QString& reply);
    // A non-empty PIN shorter than six characters, filled with "0" on the left.
    static QString PadPin(const QString& pin);
    // The 14 bytes the module advertises for this receiver.
    static AdvertisingRecord MakeAdvertisingRecord(const CBluetoothSmartIdentity& identity);
    // "<prefix>-<serial or second id>-L" without spaces.
    static QString MakeFriendlyName(const CBluetoothSmartIdentity& identity);

private:
    using Restorer = pell::passthrough::Restorer;

    // Sends `command` with `argument` in the module's quotes, refusing text that would not stay
    // one command.
    void SendQuoted(const char* format, const QString& argument);
    void Run(const QString& command);
    void OpenSteps();

    std::shared_ptr<rxio::IReceiver> m_receiver;
    unsigned m_modulePort = 0;
    std::shared_ptr<CVexReceiverMate> m_mate;
    std::shared_ptr<Restorer> m_guard;
    bool m_commandMode = false;
    bool m_suspended = false;
    bool m_busy = false;
};
