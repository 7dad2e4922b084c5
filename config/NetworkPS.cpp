#include "config/NetworkPS.h"

#include "config/IPv4Dlg.h"
#include "config/PasswordField.h"
#include "config/UserCredentialsDlg.h"
#include "lib/Common.h"
#include "lib/PellLib.h"
#include "resources/StringIds.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

using namespace rxio::vex;
namespace ids = pell::ids;

QString Label(unsigned id) {
    return XString(id) + QLatin1Char(':');
}

// A text field about as wide as `characters` typical characters.
QLineEdit* TextField(int characters) {
    auto* edit = new QLineEdit;
    edit->setMinimumWidth(edit->fontMetrics().horizontalAdvance(QLatin1Char('x')) * characters);
    return edit;
}

QLineEdit* PasswordField() {
    QLineEdit* edit = TextField(24);
    MaskPassword(edit);
    return edit;
}

// A value beside a button that changes it, as one form field.
QHBoxLayout* WithButton(QWidget* value, QPushButton* button) {
    auto* row = new QHBoxLayout;
    row->addWidget(value);
    row->addSpacing(value->fontMetrics().height());
    row->addWidget(button);
    row->addStretch();
    return row;
}

QSpinBox* Seconds() {
    return CParameterPage::SpinBox(0, 3600);
}

} // namespace

CNetworkEthernetPP::CNetworkEthernetPP(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent)
    : CParameterPage(std::move(receiver), XString(ids::NetworkEthernetPage), parent),
      m_dhcp(new QCheckBox(XString(ids::NetworkDhcp))), m_fixed(nullptr) {
    auto* address = new QLineEdit;
    auto* mask = new QLineEdit;
    auto* gateway = new QLineEdit;
    auto* dns = new QLineEdit;
    auto* host = new QLabel;
    auto* mac = new QLabel;

    auto* page = new QVBoxLayout(this);
    page->addWidget(m_dhcp);
    QGroupBox* fixed = Group(XString(ids::NetworkAddressGroup), page);
    m_fixed = fixed;
    QFormLayout* form = Form(fixed);
    form->addRow(Label(ids::NetworkIpAddress), address);
    form->addRow(Label(ids::NetworkIpMask), mask);
    form->addRow(Label(ids::NetworkGateway), gateway);
    form->addRow(Label(ids::NetworkDns), dns);
    QFormLayout* device = Form(Group(XString(ids::NetworkInterfaceGroup), page));
    device->addRow(Label(ids::NetworkHostName), host);
    device->addRow(Label(ids::NetworkMacAddress), mac);
    page->addStretch();

    BindSwitch(m_dhcp, QStringLiteral("net/ip/dhcp"));
    BindIPv4(*this, address, QStringLiteral("net/ip/addr"), EIPv4Field::Address);
    BindIPv4(*this, mask, QStringLiteral("net/ip/mask"), EIPv4Field::Mask);
    BindIPv4(*this, gateway, QStringLiteral("net/ip/gw"), EIPv4Field::Gateway);
    BindIPv4(*this, dns, QStringLiteral("net/ip/dns"), EIPv4Field::Dns);
    BindShown(host, QStringLiteral("net/ip/hostname"));
    BindShown(mac, QStringLiteral("net/mac/addr"));

    connect(m_dhcp, &QCheckBox::toggled, this, [this] { FollowDhcp(); });
}

void CNetworkEthernetPP::OnValuesRead() {
    FollowDhcp();
}

void CNetworkEthernetPP::FollowDhcp() {
    m_fixed->setEnabled(!m_dhcp->isChecked());
}

CNetworkWlanPP::CNetworkWlanPP(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent)
    : CParameterPage(std::move(receiver), XString(ids::NetworkWlanPage), parent),
      m_mode(new QComboBox), m_accessPoint(nullptr), m_client(nullptr), m_apAddress(new QLabel),
      m_apMask(new QLabel) {
    auto* mac = new QLabel;
    QLineEdit* apName = TextField(24);
    QLineEdit* apPassword = PasswordField();
    auto* hide = new QCheckBox(XString(ids::NetworkHideName));
    auto* change = new QPushButton(XString(ids::NetworkChange));
    QLineEdit* network = TextField(24);
    QLineEdit* clientPassword = PasswordField();
    auto* obtained = new QLabel;

    auto* page = new QVBoxLayout(this);
    QFormLayout* general = Form(nullptr);
    page->addLayout(general);
    general->addRow(Label(ids::NetworkMode), m_mode);
    general->addRow(Label(ids::NetworkMacAddress), mac);

    QGroupBox* accessPoint = Group(XString(ids::NetworkAccessPoint), page);
    m_accessPoint = accessPoint;
    QFormLayout* ap = Form(accessPoint);
    ap->addRow(Label(ids::NetworkNetworkName), apName);
    ap->addRow(Label(ids::NetworkPassword), apPassword);
    ap->addRow(QString(), hide);
    auto* addressLabel = new QLabel(Label(ids::NetworkIpAddress));
    addressLabel->setBuddy(m_apAddress);
    ap->addRow(addressLabel, WithButton(m_apAddress, change));
    ap->addRow(Label(ids::NetworkIpMask), m_apMask);

    QGroupBox* client = Group(XString(ids::NetworkClient), page);
    m_client = client;
    QFormLayout* joined = Form(client);
    joined->addRow(Label(ids::NetworkNetworkName), network);
    joined->addRow(Label(ids::NetworkPassword), clientPassword);
    joined->addRow(Label(ids::NetworkObtainedAddress), obtained);
    page->addStretch();

    BindChoice(m_mode, QStringLiteral("wlan/mode"), TableOf(WlanMode::EWlanMode{}));
    BindShown(mac, QStringLiteral("wlan/mac"));
    BindText(apName, QStringLiteral("wlan/ap/name"));
    BindText(apPassword, QStringLiteral("wlan/ap/passwd"));
    BindSwitch(hide, QStringLiteral("wlan/ap/hidessid"));
    BindShown(m_apAddress, QStringLiteral("wlan/ap/ip"));
    BindShown(m_apMask, QStringLiteral("wlan/ap/mask"));
    BindText(network, QStringLiteral("wlan/client/network"));
    BindText(clientPassword, QStringLiteral("wlan/client/passwd"));
    BindShown(obtained, QStringLiteral("wlan/client/addr"));

    connect(m_mode, &QComboBox::currentIndexChanged, this, [this] { FollowMode(); });
    connect(change, &QPushButton::clicked, this,
            [this] { RunUserAction([this] { EditAccessPointAddress(); }); });
}

void CNetworkWlanPP::EditAccessPointAddress() {
    RunParameterDialog<CIPv4Dlg>(
        *this,
        [this](CIPv4Dlg& dialog) {
            m_apAddress->setText(dialog.Address());
            m_apMask->setText(dialog.Mask());
        },
        XString(ids::NetworkAccessPointAddress),
        CIPv4Dlg::Paths{QStringLiteral("wlan/ap/ip"), QStringLiteral("wlan/ap/mask"), {}, {}});
}

void CNetworkWlanPP::OnValuesRead() {
    FollowMode();
}

// The group of the mode not chosen is greyed; what it holds is still written if changed.
void CNetworkWlanPP::FollowMode() {
    const QString mode = m_mode->currentData().toString();
    const EnumTable& modes = TableOf(WlanMode::EWlanMode{});
    m_accessPoint->setEnabled(mode == modes.Text(WlanMode::AccessPoint));
    m_client->setEnabled(mode == modes.Text(WlanMode::Client));
}

CNetworkPPPPP::CNetworkPPPPP(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent)
    : CParameterPage(std::move(receiver), XString(ids::NetworkPppPage), parent),
      m_mode(new QComboBox), m_state(new QLabel) {
    QLineEdit* dial = TextField(16);
    QLineEdit* apn = TextField(24);
    QLineEdit* user = TextField(24);
    QLineEdit* password = PasswordField();
    auto* manual = new QCheckBox(XString(ids::NetworkPppManual));
    auto* debug = new QCheckBox(XString(ids::NetworkPppDebug));

    auto* page = new QVBoxLayout(this);
    QFormLayout* general = Form(nullptr);
    page->addLayout(general);
    general->addRow(Label(ids::NetworkPppMode), m_mode);
    general->addRow(Label(ids::NetworkState), m_state);
    QFormLayout* dialling = Form(Group(XString(ids::NetworkDialling), page));
    dialling->addRow(Label(ids::NetworkDialString), dial);
    dialling->addRow(Label(ids::NetworkApn), apn);
    dialling->addRow(Label(ids::NetworkUser), user);
    dialling->addRow(Label(ids::NetworkPassword), password);
    page->addWidget(manual);
    page->addWidget(debug);
    page->addStretch();

    BindChoice(m_mode, QStringLiteral("ppp/mode"), TableOf(PppMode::EPppMode{}));
    BindSwitch(manual, QStringLiteral("ppp/manual"));
    BindText(dial, QStringLiteral("ppp/gprs/dial"));
    BindText(apn, QStringLiteral("ppp/gprs/pdp/apn"));
    BindText(user, QStringLiteral("ppp/gprs/user"));
    BindText(password, QStringLiteral("ppp/gprs/passwd"));
    BindSwitch(debug, QStringLiteral("ppp/debug"));
    BindShown(m_state, QStringLiteral("ppp/state"), &TableOf(PppState::EPppState{}));
}

// A link that is off is neither connected nor trying: its state reads "Off".
void CNetworkPPPPP::OnValuesRead() {
    const EnumTable& modes = TableOf(PppMode::EPppMode{});
    if (m_mode->currentData().toString() == modes.Text(PppMode::Off))
        m_state->setText(ulm_std::CTranslatorInstance::Ref().XlateEx(modes.Name(PppMode::Off)));
}

CNetworkFTPPP::CNetworkFTPPP(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent)
    : CParameterPage(std::move(receiver), XString(ids::NetworkFtpPage), parent),
      m_login(new QLabel) {
    QSpinBox* port = PortBox();
    QSpinBox* timeout = Seconds();
    auto* change = new QPushButton(XString(ids::NetworkChange));

    auto* page = new QVBoxLayout(this);
    QFormLayout* server = Form(nullptr);
    page->addLayout(server);
    server->addRow(Label(ids::NetworkPort), port);
    server->addRow(Label(ids::NetworkTimeout), timeout);
    QFormLayout* account = Form(Group(XString(ids::NetworkAccount), page));
    auto* loginLabel = new QLabel(Label(ids::NetworkLogin));
    loginLabel->setBuddy(m_login);
    account->addRow(loginLabel, WithButton(m_login, change));
    page->addStretch();

    BindSigned(port, QStringLiteral("net/ftp/port"));
    BindSigned(timeout, QStringLiteral("net/ftp/timeout"));
    BindShown(m_login, QStringLiteral("net/ftp/login"));

    connect(change, &QPushButton::clicked, this,
            [this] { RunUserAction([this] { EditAccount(); }); });
}

void CNetworkFTPPP::EditAccount() {
    RunParameterDialog<CUserCredentialsDlg>(
        *this, [this](CUserCredentialsDlg& dialog) { m_login->setText(dialog.Login()); },
        XString(ids::NetworkFtpAccountDialog), QStringLiteral("net/ftp/login"),
        QStringLiteral("net/ftp/passwd"));
}

CNetworkHTTPPP::CNetworkHTTPPP(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent)
    : CParameterPage(std::move(receiver), XString(ids::NetworkHttpPage), parent),
      m_login(new QLabel) {
    QSpinBox* port = PortBox();
    QSpinBox* securePort = PortBox();
    auto* change = new QPushButton(XString(ids::NetworkChange));

    auto* page = new QVBoxLayout(this);
    QFormLayout* server = Form(nullptr);
    page->addLayout(server);
    server->addRow(Label(ids::NetworkHttpPort), port);
    server->addRow(Label(ids::NetworkHttpsPort), securePort);
    QFormLayout* account = Form(Group(XString(ids::NetworkServerLogin), page));
    auto* loginLabel = new QLabel(Label(ids::NetworkLogin));
    loginLabel->setBuddy(m_login);
    account->addRow(loginLabel, WithButton(m_login, change));
    QFormLayout* web = Form(Group(XString(ids::NetworkWebAccounts), page));
    for (const QString& name : {QStringLiteral("admin"), QStringLiteral("user")}) {
        auto* set = new QPushButton(XString(ids::NetworkSetPassword));
        set->setObjectName(name + QLatin1String("Password"));
        web->addRow(name + QLatin1Char(':'), set);
        connect(set, &QPushButton::clicked, this,
                [this, name] { RunUserAction([this, name] { EditWebPassword(name); }); });
    }
    page->addStretch();

    BindUnsigned(port, QStringLiteral("net/http/port"));
    BindUnsigned(securePort, QStringLiteral("net/http/sport"));
    BindShown(m_login, QStringLiteral("net/http/login"));

    connect(change, &QPushButton::clicked, this,
            [this] { RunUserAction([this] { EditAccount(); }); });
}

void CNetworkHTTPPP::EditAccount() {
    RunParameterDialog<CUserCredentialsDlg>(
        *this, [this](CUserCredentialsDlg& dialog) { m_login->setText(dialog.Login()); },
        XString(ids::NetworkHttpAccountDialog), QStringLiteral("net/http/login"),
        QStringLiteral("net/http/passwd"));
}

void CNetworkHTTPPP::EditWebPassword(const QString& account) {
    RunParameterDialog<CUserCredentialsDlg>(
        *this, [](CUserCredentialsDlg&) {}, XString(ids::NetworkWebAccountDialog).arg(account),
        QString(), QStringLiteral("net/http/%1passwd").arg(account), account);
}

CNetworkTCPClientPP::CNetworkTCPClientPP(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent)
    : CParameterPage(std::move(receiver), XString(ids::NetworkTcpClientPage), parent) {
    auto* enable = new QCheckBox(XString(ids::NetworkTcpClientEnable));
    QLineEdit* address = TextField(28);
    QSpinBox* port = PortBox();
    QSpinBox* timeout = Seconds();

    auto* page = new QVBoxLayout(this);
    page->addWidget(enable);
    QFormLayout* server = Form(Group(XString(ids::NetworkServer), page));
    server->addRow(Label(ids::NetworkServerAddress), address);
    server->addRow(Label(ids::NetworkPort), port);
    server->addRow(Label(ids::NetworkTimeout), timeout);
    page->addStretch();

    BindSwitch(enable, QStringLiteral("net/tcpc/enable"));
    BindText(address, QStringLiteral("net/tcpc/addr"));
    BindSigned(port, QStringLiteral("net/tcpc/port"));
    BindSigned(timeout, QStringLiteral("net/tcpc/timeout"));
}

CNetworkTCPOldPP::CNetworkTCPOldPP(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent)
    : CParameterPage(std::move(receiver), XString(ids::NetworkTcpServerPage), parent) {
    QSpinBox* port = PortBox();
    auto* open = new QCheckBox(XString(ids::NetworkNoPassword));

    auto* page = new QVBoxLayout(this);
    QFormLayout* server = Form(nullptr);
    page->addLayout(server);
    server->addRow(Label(ids::NetworkPort), port);
    page->addWidget(open);
    page->addStretch();

    BindSigned(port, QStringLiteral("net/tcp/port"));
    BindSwitch(open, QStringLiteral("net/tcp/noauth"));
}

CNetworkTCPNewPP::CNetworkTCPNewPP(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent)
    : CParameterPage(std::move(receiver), XString(ids::NetworkTcpServerPage), parent) {
    QLineEdit* password = PasswordField();
    QSpinBox* timeout = Seconds();
    QSpinBox* idle = Seconds();
    auto* note = new QLabel(XString(ids::NetworkTcpPortsNote));
    note->setWordWrap(true);

    auto* page = new QVBoxLayout(this);
    QFormLayout* server = Form(nullptr);
    page->addLayout(server);
    server->addRow(Label(ids::NetworkAccessPassword), password);
    server->addRow(Label(ids::NetworkTimeout), timeout);
    server->addRow(Label(ids::NetworkIdle), idle);
    page->addWidget(note);
    page->addStretch();

    BindText(password, QStringLiteral("net/passwd"));
    BindSigned(timeout, QStringLiteral("net/tcp/timeout"));
    BindSigned(idle, QStringLiteral("net/tcp/idle"));
}

CNetworkPS::CNetworkPS(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent)
    : CParameterSheet(receiver, XString(ids::NetworkSheet),
                      {QStringLiteral("net/*"), QStringLiteral("wlan/*"), QStringLiteral("ppp/*")},
                      parent) {
    AskBeforeReset(XString(ids::SoftResetQuestion));
    if (Knows(QStringLiteral("net/ip/addr")))
        AddPage(new CNetworkEthernetPP(receiver));
    if (Knows(QStringLiteral("wlan/mode")))
        AddPage(new CNetworkWlanPP(receiver));
    if (Knows(QStringLiteral("dev/modem")))
        AddPage(new CNetworkCellPP(receiver));
    if (Knows(QStringLiteral("ppp/mode")))
        AddPage(new CNetworkPPPPP(receiver));
    if (Knows(QStringLiteral("net/ftp")))
        AddPage(new CNetworkFTPPP(receiver));
    if (Knows(QStringLiteral("net/http")))
        AddPage(new CNetworkHTTPPP(receiver));
    if (Knows(QStringLiteral("net/tcp/a/port")))
        AddPage(new CNetworkTCPNewPP(receiver));
    else if (Knows(QStringLiteral("net/tcp/port")))
        AddPage(new CNetworkTCPOldPP(receiver));
    if (Knows(QStringLiteral("net/tcpc/enable")))
        AddPage(new CNetworkTCPClientPP(receiver));
}

int run_NetworkPS(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent) {
    const CPellModuleState state;
    CPellWindow<CNetworkPS> sheet(std::move(receiver), parent);
    if (sheet.GetPageCount() == 0 && !sheet.Unanswered()) {
        g_PellLibApp.MessageBox(parent, XString(ids::NetworkNotSupported),
                                pell::MB_OK | pell::MB_ICONERROR);
        return pell::IDCANCEL;
    }
    return sheet.exec();
}

int run_NetworkPS_PageCount(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent) {
    const CPellModuleState state;
    const CPellWindow<CNetworkPS> sheet(std::move(receiver), parent);
    return sheet.Unanswered() ? -1 : sheet.GetPageCount();
}
