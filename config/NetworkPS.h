#pragma once

#include "config/ParameterPage.h"
#include "config/ParameterSheet.h"
#include "lib/pell_export.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QTreeWidget;

// The Ethernet interface: DHCP or a fixed address, mask, gateway and name server.
class PELL_EXPORT CNetworkEthernetPP : public CParameterPage {
    Q_OBJECT
public:
    explicit CNetworkEthernetPP(std::shared_ptr<rxio::IReceiver> receiver,
                                QWidget* parent = nullptr);

protected:
    void OnValuesRead() override;

private:
    // The fixed address fields are greyed while the address comes by DHCP.
    void FollowDhcp();

    QCheckBox* m_dhcp;
    QWidget* m_fixed;
};

// The wireless LAN: off, client of a network, or its own access point.
class PELL_EXPORT CNetworkWlanPP : public CParameterPage {
    Q_OBJECT
public:
    explicit CNetworkWlanPP(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent = nullptr);

    // Opens the access point's address dialog.
    void EditAccessPointAddress();

protected:
    void OnValuesRead() override;

private:
    void FollowMode();

    QComboBox* m_mode;
    QWidget* m_accessPoint;
    QWidget* m_client;
    QLabel* m_apAddress;
    QLabel* m_apMask;
};

// The PPP link over the cellular modem: mode, dialling and account, and its state ("Off" while
// the link is off).
class PELL_EXPORT CNetworkPPPPP : public CParameterPage {
    Q_OBJECT
public:
    explicit CNetworkPPPPP(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent = nullptr);

protected:
    void OnValuesRead() override;

private:
    QComboBox* m_mode;
    QLabel* m_state;
};

// The FTP server: port, time-out and its account.
class PELL_EXPORT CNetworkFTPPP : public CParameterPage {
    Q_OBJECT
public:
    explicit CNetworkFTPPP(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent = nullptr);

    void EditAccount();

private:
    QLabel* m_login;
};

// The HTTP server: its ports, its login, and the passwords of the web interface's "admin" and
// "user" accounts.
class PELL_EXPORT CNetworkHTTPPP : public CParameterPage {
    Q_OBJECT
public:
    explicit CNetworkHTTPPP(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent = nullptr);

    void EditAccount();
    // "admin" or "user".
    void EditWebPassword(const QString& account);

private:
    QLabel* m_login;
};

// The TCP client: whether the receiver connects to a server, which, and its time-out.
class PELL_EXPORT CNetworkTCPClientPP : public CParameterPage {
    Q_OBJECT
public:
    explicit CNetworkTCPClientPP(std::shared_ptr<rxio::IReceiver> receiver,
                                 QWidget* parent = nullptr);
};

// The single TCP server port of older receivers and whether it asks for a password.
class PELL_EXPORT CNetworkTCPOldPP : public CParameterPage {
    Q_OBJECT
public:
    explicit CNetworkTCPOldPP(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent = nullptr);
};

// The TCP server of receivers with several TCP ports: the password and time-outs they share (the
// ports themselves are on the receiver ports sheet).
class PELL_EXPORT CNetworkTCPNewPP : public CParameterPage {
    Q_OBJECT
public:
    explicit CNetworkTCPNewPP(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent = nullptr);
};

// The cellular modems' state and their profiles' variables, read only. The view (the modems
// alone, or with the selected modem's profile) is remembered under "private\CNetworkCellPP",
// value "ViewMode".
class PELL_EXPORT CNetworkCellPP : public CParameterPage {
    Q_OBJECT
public:
    enum EViewMode { Modems, ModemsAndProfile };

    explicit CNetworkCellPP(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent = nullptr);

    QTreeWidget& ModemList() const { return *m_modems; }
    QTreeWidget& ProfileList() const { return *m_profile; }
    void SetViewMode(EViewMode mode);

protected:
    void OnInitDialog() override;
    void OnValuesRead() override;

private:
    void ShowProfile();

    QComboBox* m_view;
    QTreeWidget* m_modems;
    QTreeWidget* m_profile;
    QWidget* m_profileArea;
};

// The receiver's network services, a page for each it has.
class PELL_EXPORT CNetworkPS : public CParameterSheet {
    Q_OBJECT
public:
    explicit CNetworkPS(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent = nullptr);
};

// Shows the network sheet modally; IDOK or IDCANCEL. A receiver without any network service
// gets "The functionality is not supported by the connected hardware." instead.
PELL_EXPORT int run_NetworkPS(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent);
// The number of pages the sheet has for this receiver, without showing it; -1 for a receiver
// that does not answer.
PELL_EXPORT int run_NetworkPS_PageCount(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent);
