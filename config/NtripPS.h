#pragma once

#include "config/ParameterDialog.h"
#include "config/ParameterPage.h"
#include "config/ParameterSheet.h"
#include "lib/pell_export.h"

#include <vector>

class QComboBox;
class QLabel;
class QLineEdit;
class QSpinBox;

// The receiver's NTRIP client: the caster it connects to, the mount point it asks for (chosen
// from the caster's source table), its account and how its corrections come in; the receiver's
// NTRIP function and the port its data goes through; the client's state. Protocol, position
// reports and the proxy server are in the advanced dialog.
class PELL_EXPORT CNtrip_ClientPP : public CParameterPage {
    Q_OBJECT
public:
    explicit CNtrip_ClientPP(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent = nullptr);

    // Opens the source table's list and takes the mount point chosen there.
    void SelectMountpoint();
    // Opens the advanced dialog; the proxy line shows what it wrote.
    void EditAdvanced();

protected:
    bool OnApply() override;
    void OnValuesRead() override;

private:
    // The lines under "Caster" and "Proxy Server": what the receiver holds.
    void ShowAddresses();

    QComboBox* m_function;
    QLineEdit* m_caster;
    QSpinBox* m_casterPort;
    QLineEdit* m_mountpoint;
    QComboBox* m_inputMode;
    QLabel* m_proxy;
    QLabel* m_proxyPort;
    QLabel* m_state;
    QLabel* m_casterLine;
    QLabel* m_proxyLine;
};

// How the client talks to its caster: protocol, position reports, initialisation, and the proxy
// server between them.
class PELL_EXPORT CNtrip_Client_AdvancedDlg : public CParameterDialog {
    Q_OBJECT
public:
    explicit CNtrip_Client_AdvancedDlg(std::shared_ptr<rxio::IReceiver> receiver,
                                       QWidget* parent = nullptr);

    QString Proxy() const;
    QString ProxyPort() const;

private:
    QLineEdit* m_proxy;
    QSpinBox* m_proxyPort;
};

// The receiver's NTRIP server of older firmware, one per receiver: the caster it sends its data to,
// the mount point it announces and its account there.
class PELL_EXPORT CNtrip_ServerLegacyPP : public CParameterPage {
    Q_OBJECT
public:
    explicit CNtrip_ServerLegacyPP(std::shared_ptr<rxio::IReceiver> receiver,
                                   QWidget* parent = nullptr);
};

// One of the NTRIP servers of current firmware ("/app/ntrip/server/<n>"): whether it runs, the
// caster, mount point and account; protocol and proxy in its advanced dialog.
class PELL_EXPORT CNtrip_ServerPP : public CParameterPage {
    Q_OBJECT
public:
    CNtrip_ServerPP(std::shared_ptr<rxio::IReceiver> receiver, int server,
                    QWidget* parent = nullptr);

    int Server() const { return m_server; }
    // "/app/ntrip/server/<n>/<leaf>".
    static QString Path(int server, const char* leaf);

private:
    int m_server;
};

// A server's protocol and the proxy between it and its caster.
class PELL_EXPORT CNtrip_Server_AdvancedDlg : public CParameterDialog {
    Q_OBJECT
public:
    CNtrip_Server_AdvancedDlg(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent,
                              int server);
};

// What a server sends to its caster: the receiver's output in one of its modes, its period and
// elevation mask, as a port's output is set.
class PELL_EXPORT CNtrip_Server_OutputDlg : public CParameterDialog {
    Q_OBJECT
public:
    CNtrip_Server_OutputDlg(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent, int server);
};

// The caster built into the receiver: whether it runs, its name, country and how it
// authenticates users, and the port each of its listeners takes connections on, with the
// listener's mount points and the caster's users in their dialogs.
class PELL_EXPORT CNtrip_CastersPP : public CParameterPage {
    Q_OBJECT
public:
    // `mountpointSlots`: for each listener the receiver has ("/app/ntrip/caster/<n>", from 0),
    // how many mount points it can serve.
    CNtrip_CastersPP(std::shared_ptr<rxio::IReceiver> receiver, std::vector<int> mountpointSlots,
                     QWidget* parent = nullptr);
};

// The NTRIP sheet.
class PELL_EXPORT CNtripPS : public CParameterSheet {
    Q_OBJECT
public:
    explicit CNtripPS(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent = nullptr);
};

// Shows the NTRIP sheet modally; IDOK or IDCANCEL.
PELL_EXPORT int run_NtripPS(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent);
