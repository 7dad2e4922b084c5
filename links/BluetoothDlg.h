#pragma once

#include "lib/PellDialog.h"
#include "lib/pell_export.h"
#include "links/PassThrough.h"
#include "receiver/VexReceiverMate.h"

#include <QString>
#include <memory>
#include <optional>

class QCheckBox;
class QLineEdit;

// Which Bluetooth module a receiver model carries. `error` explains an Unknown device.
struct PELL_EXPORT CBluetoothDeviceType {
    enum EType { Unknown, Classic, Smart };
    EType type = Unknown;
    QString error;

    // "Marten" carries the classic module; the Ostrel, Pardo and Lumen models the LE module.
    static CBluetoothDeviceType Detect(const QString& model);
};

// The classic module behind port 102, reached through the receiver's echo pass-through. Set-up
// hands the controller's port to the module; the destructor gives it back and puts both ports'
// settings back.
class PELL_EXPORT CBluetoothModuleLink {
public:
    static constexpr unsigned kModulePort = 102;
    static constexpr unsigned kTimeoutMs = 5000;
    static constexpr unsigned kWakeUpTimeoutMs = 1000;

    explicit CBluetoothModuleLink(std::shared_ptr<rxio::IReceiver> receiver);
    ~CBluetoothModuleLink();
    CBluetoothModuleLink(const CBluetoothModuleLink&) = delete;
    CBluetoothModuleLink& operator=(const CBluetoothModuleLink&) = delete;

    // Sets up the pass-through and wakes the module; a module that stays silent here is fine.
    void SetUp();
    // One command and its reply, cut to what lies between `start` and `end` (either may be
    // empty: not looked for). CWinException 1460 when no complete reply comes in time.
    QString Transaction(const QString& command, const QString& start, const QString& end,
                        unsigned timeoutMs = kTimeoutMs);
    // The reply in what the module sent so far: between `start` and the first `end` after it
    // (an empty marker is not looked for), none while either is missing.
    static std::optional<QString> FrameReply(const QByteArray& bytes, const QByteArray& start,
                                             const QByteArray& end);
    // How the module's replies read: "ON" in any case is on; "NoPinSet" in any case is no PIN.
    static bool IsOn(const QString& reply);
    static QString Pin(const QString& reply);
    // Transaction with the markers "\r\n" and "\r\n" of every command but "ati".
    QString Command(const QString& command);
    // "set,<name>,<value>": refused with CWinException 87 when the value holds a line break or
    // other control character, so that nothing a user types becomes a second command.
    void Set(const char* name, const QString& value);

private:
    void TearDown();

    std::shared_ptr<rxio::IReceiver> m_receiver;
    CVexReceiverMate m_mate;
    std::unique_ptr<pell::passthrough::Restorer> m_restorer;
    bool m_suspended = false;
};

// Name, PIN, authentication and encryption of the receiver's classic Bluetooth module.
class PELL_EXPORT CBluetoothDlg : public CPellDialog {
    Q_OBJECT
public:
    explicit CBluetoothDlg(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent = nullptr);
    ~CBluetoothDlg() override;

    // The pass-through; call before exec().
    void Prepare();
    void accept() override;

protected:
    void OnInitDialog() override;
    // Says "Bluetooth disconnected" before the dialog closes.
    void OnConnectionLost() override;

private:
    CBluetoothModuleLink m_link;
    QLineEdit* m_identification;
    QLineEdit* m_name;
    QLineEdit* m_pin;
    QCheckBox* m_authentication;
    QCheckBox* m_encryption;
};

// Opens the dialog of the receiver's Bluetooth module: the classic dialog, the Bluetooth LE
// sheet, or for a receiver without a known module an error box and IDCANCEL.
PELL_EXPORT int run_BluetoothDlg(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent);
