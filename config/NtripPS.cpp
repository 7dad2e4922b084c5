#include "config/NtripPS.h"

#include "config/Ntrip_Caster_MountpointsDlg.h"
#include "config/Ntrip_Caster_UsersDlg.h"
#include "config/Ntrip_Client_SelectMountpointDlg.h"
#include "config/PasswordField.h"
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
#include <QVBoxLayout>

namespace {

using namespace rxio::vex;

} // namespace

CNtrip_ClientPP::CNtrip_ClientPP(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent)
    : CParameterPage(std::move(receiver), XString(pell::ids::NtripClientPage), parent),
      m_function(new QComboBox), m_caster(new QLineEdit), m_casterPort(PortBox()),
      m_mountpoint(new QLineEdit), m_inputMode(new QComboBox), m_proxy(new QLabel),
      m_proxyPort(new QLabel), m_state(new QLabel), m_casterLine(new QLabel),
      m_proxyLine(new QLabel) {
    auto* dataPort = new QComboBox;
    auto* user = new QLineEdit;
    auto* password = new QLineEdit;
    auto* error = new QLabel;
    auto* select = new QPushButton(XString(pell::ids::NtripSelect));
    auto* advanced = new QPushButton(XString(pell::ids::NtripAdvanced));
    select->setObjectName(QStringLiteral("selectButton"));
    advanced->setObjectName(QStringLiteral("advancedButton"));
    MaskPassword(password);
    m_state->setWordWrap(true);
    error->setWordWrap(true);

    auto* page = new QVBoxLayout(this);
    QFormLayout* general = Form(nullptr);
    page->addLayout(general);
    general->addRow(XString(pell::ids::NtripFunction), m_function);
    general->addRow(XString(pell::ids::NtripDataPort), dataPort);

    QFormLayout* caster = Form(Group(XString(pell::ids::NtripCaster), page));
    caster->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
    caster->addRow(XString(pell::ids::NtripAddress), m_caster);
    caster->addRow(XString(pell::ids::NtripPort), m_casterPort);
    auto* mountpointRow = new QHBoxLayout;
    mountpointRow->addWidget(m_mountpoint, 1);
    mountpointRow->addWidget(select);
    auto* mountpointLabel = new QLabel(XString(pell::ids::NtripMountpoint));
    mountpointLabel->setBuddy(m_mountpoint);
    caster->addRow(mountpointLabel, mountpointRow);
    caster->addRow(XString(pell::ids::NtripUser), user);
    caster->addRow(XString(pell::ids::NtripPassword), password);
    caster->addRow(XString(pell::ids::NtripInputMode), m_inputMode);

    QFormLayout* state = Form(Group(XString(pell::ids::NtripStateGroup), page));
    state->addRow(m_state);
    state->addRow(XString(pell::ids::NtripCasterLine), m_casterLine);
    state->addRow(XString(pell::ids::NtripProxyLine), m_proxyLine);
    state->addRow(XString(pell::ids::NtripLastError), error);
    page->addStretch();
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(advanced);
    page->addLayout(buttons);

    BindChoice(m_function, QStringLiteral("ntrip/mode"), TableOf(NtripMode::ENtripMode{}));
    BindChoice(dataPort, QStringLiteral("ntrip/data/port"), TableOf(ECom{}));
    BindText(m_caster, QStringLiteral("ntrip/caster/addr"));
    BindUnsigned(m_casterPort, QStringLiteral("ntrip/caster/port"));
    BindText(m_mountpoint, QStringLiteral("ntrip/caster/mountpt"));
    BindText(user, QStringLiteral("ntrip/caster/user"));
    BindText(password, QStringLiteral("ntrip/caster/passwd"));
    BindChoice(m_inputMode, QStringLiteral("dev/ntrip/a/imode"), TableOf(IMode::EIMode{}));
    // The proxy's address and port feed the line under "Proxy Server".
    Hold(m_proxy, *this);
    Hold(m_proxyPort, *this);
    BindShown(m_proxy, QStringLiteral("ntrip/caster/proxy/addr"));
    BindShown(m_proxyPort, QStringLiteral("ntrip/caster/proxy/port"));
    BindShown(m_state, QStringLiteral("ntrip/state"), &TableOf(NtripState::ENtripState{}));
    BindShown(error, QStringLiteral("ntrip/error"));

    connect(select, &QPushButton::clicked, this,
            [this] { RunUserAction([this] { SelectMountpoint(); }); });
    connect(advanced, &QPushButton::clicked, this,
            [this] { RunUserAction([this] { EditAdvanced(); }); });
}

void CNtrip_ClientPP::SelectMountpoint() {
    CPellWindow<CNtrip_Client_SelectMountpointDlg> dialog(GetReceiver(), m_mountpoint->text(),
                                                          this);
    if (dialog.exec() != pell::IDOK)
        return;
    const std::optional<ntrip::Stream> stream = dialog.Selected();
    if (!stream)
        return;
    m_mountpoint->setText(stream->mountpoint);
    SetModified(true);
    // The corrections come in as the stream's format: a client fed RTCM 3 as RTCM 2 gets nothing.
    const int format = ntrip::IsRtcm3(stream->format)   ? int(IMode::Rtcm3)
                       : ntrip::IsRtcm2(stream->format) ? int(IMode::Rtcm2)
                                                        : -1;
    if (format >= 0 && m_inputMode->isEnabled())
        m_inputMode->setCurrentIndex(m_inputMode->findData(TableOf(IMode::EIMode{}).Text(format)));
}

void CNtrip_ClientPP::EditAdvanced() {
    RunParameterDialog<CNtrip_Client_AdvancedDlg>(*this, [this](CNtrip_Client_AdvancedDlg& dialog) {
        m_proxy->setText(dialog.Proxy());
        m_proxyPort->setText(dialog.ProxyPort());
        ShowAddresses();
    });
}

bool CNtrip_ClientPP::OnApply() {
    const bool applied = CParameterPage::OnApply();
    if (applied)
        ShowAddresses();
    return applied;
}

void CNtrip_ClientPP::OnValuesRead() {
    // The client's state means nothing while the receiver's NTRIP function is not the client.
    if (m_function->currentData().toString() !=
        TableOf(NtripMode::ENtripMode{}).Text(NtripMode::Client))
        m_state->setText(ulm_std::CTranslatorInstance::Ref().XlateEx(
            TableOf(NtripState::ENtripState{}).Name(NtripState::Off)));
    ShowAddresses();
}

void CNtrip_ClientPP::ShowAddresses() {
    m_casterLine->setText(AddressLine(m_caster->text(), QString::number(m_casterPort->value())));
    m_proxyLine->setText(AddressLine(m_proxy->text(), m_proxyPort->text()));
}

CNtrip_Client_AdvancedDlg::CNtrip_Client_AdvancedDlg(std::shared_ptr<rxio::IReceiver> receiver,
                                                     QWidget* parent)
    : CParameterDialog(std::move(receiver), XString(pell::ids::NtripAdvanced), parent),
      m_proxy(new QLineEdit), m_proxyPort(CParameterPage::PortBox(0)) {
    auto* protocol = new QComboBox;
    auto* nmea = CParameterPage::SpinBox(0, 3600);
    auto* init = new QComboBox;
    nmea->setSpecialValueText(XString(pell::ids::NtripNmeaOff));
    m_proxy->setMinimumWidth(m_proxy->fontMetrics().horizontalAdvance(QLatin1Char('x')) * 28);

    auto* page = new QVBoxLayout(&Body());
    QFormLayout* caster =
        CParameterPage::Form(CParameterPage::Group(XString(pell::ids::NtripCaster), page));
    caster->addRow(XString(pell::ids::NtripProtocol), protocol);
    caster->addRow(XString(pell::ids::NtripNmeaPeriod), nmea);
    caster->addRow(XString(pell::ids::NtripInit), init);
    QFormLayout* proxy =
        CParameterPage::Form(CParameterPage::Group(XString(pell::ids::NtripProxyServer), page));
    proxy->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
    proxy->addRow(XString(pell::ids::NtripAddress), m_proxy);
    proxy->addRow(XString(pell::ids::NtripPort), m_proxyPort);

    Body().BindChoice(protocol, QStringLiteral("ntrip/caster/protocol"),
                      TableOf(NtripProtocol::ENtripProtocol{}));
    Body().BindSigned(nmea, QStringLiteral("ntrip/caster/nmea"));
    Body().BindChoice(init, QStringLiteral("ntrip/caster/init"), TableOf(NtripInit::ENtripInit{}));
    Body().BindText(m_proxy, QStringLiteral("ntrip/caster/proxy/addr"));
    Body().BindUnsigned(m_proxyPort, QStringLiteral("ntrip/caster/proxy/port"));
}

QString CNtrip_Client_AdvancedDlg::Proxy() const {
    return m_proxy->text();
}

QString CNtrip_Client_AdvancedDlg::ProxyPort() const {
    return QString::number(m_proxyPort->value());
}

CNtrip_ServerLegacyPP::CNtrip_ServerLegacyPP(std::shared_ptr<rxio::IReceiver> receiver,
                                             QWidget* parent)
    : CParameterPage(std::move(receiver), XString(pell::ids::NtripServerPage), parent) {
    auto* caster = new QLineEdit;
    auto* port = PortBox();
    auto* mountpoint = new QLineEdit;
    auto* description = new QLineEdit;
    auto* user = new QLineEdit;
    auto* password = new QLineEdit;
    auto* protocol = new QComboBox;
    auto* proxy = new QLineEdit;
    auto* proxyPort = PortBox(0);
    MaskPassword(password);

    auto* page = new QVBoxLayout(this);
    QFormLayout* server = Form(Group(XString(pell::ids::NtripCaster), page));
    server->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
    server->addRow(XString(pell::ids::NtripAddress), caster);
    server->addRow(XString(pell::ids::NtripPort), port);
    server->addRow(XString(pell::ids::NtripMountpoint), mountpoint);
    server->addRow(XString(pell::ids::NtripDescription), description);
    server->addRow(XString(pell::ids::NtripUser), user);
    server->addRow(XString(pell::ids::NtripPassword), password);
    server->addRow(XString(pell::ids::NtripProtocol), protocol);
    QFormLayout* proxyForm = Form(Group(XString(pell::ids::NtripProxyServer), page));
    proxyForm->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
    proxyForm->addRow(XString(pell::ids::NtripAddress), proxy);
    proxyForm->addRow(XString(pell::ids::NtripPort), proxyPort);
    page->addStretch();

    BindText(caster, QStringLiteral("ntrip/server/addr"));
    BindUnsigned(port, QStringLiteral("ntrip/server/port"));
    BindText(mountpoint, QStringLiteral("ntrip/server/mountpt/name"));
    BindText(description, QStringLiteral("ntrip/server/mountpt/descr"));
    BindText(user, QStringLiteral("ntrip/server/user"));
    BindText(password, QStringLiteral("ntrip/server/passwd"));
    BindChoice(protocol, QStringLiteral("ntrip/server/protocol"),
               TableOf(NtripProtocol::ENtripProtocol{}));
    BindText(proxy, QStringLiteral("ntrip/server/proxy/addr"));
    BindUnsigned(proxyPort, QStringLiteral("ntrip/server/proxy/port"));
}

QString CNtrip_ServerPP::Path(int server, const char* leaf) {
    return QStringLiteral("/app/ntrip/server/%1/").arg(server) + QLatin1String(leaf);
}

CNtrip_ServerPP::CNtrip_ServerPP(std::shared_ptr<rxio::IReceiver> receiver, int server,
                                 QWidget* parent)
    : CParameterPage(std::move(receiver), XString(pell::ids::NtripServerNumbered).arg(server),
                     parent),
      m_server(server) {
    auto* enable = new QCheckBox(XString(pell::ids::NtripServerEnable));
    auto* caster = new QLineEdit;
    auto* port = PortBox();
    auto* mountpoint = new QLineEdit;
    auto* user = new QLineEdit;
    auto* password = new QLineEdit;
    auto* output = new QPushButton(XString(pell::ids::NtripServerOutput));
    auto* advanced = new QPushButton(XString(pell::ids::NtripAdvanced));
    output->setObjectName(QStringLiteral("outputButton"));
    advanced->setObjectName(QStringLiteral("advancedButton"));
    MaskPassword(password);

    auto* page = new QVBoxLayout(this);
    page->addWidget(enable);
    QFormLayout* form = Form(Group(XString(pell::ids::NtripCaster), page));
    form->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
    form->addRow(XString(pell::ids::NtripAddress), caster);
    form->addRow(XString(pell::ids::NtripPort), port);
    form->addRow(XString(pell::ids::NtripMountpoint), mountpoint);
    form->addRow(XString(pell::ids::NtripUser), user);
    form->addRow(XString(pell::ids::NtripPassword), password);
    page->addStretch();
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(output);
    buttons->addWidget(advanced);
    page->addLayout(buttons);

    BindSwitch(enable, Path(server, "mode"));
    BindText(caster, Path(server, "addr"));
    BindUnsigned(port, Path(server, "port"));
    BindText(mountpoint, Path(server, "mountpt"));
    BindText(user, Path(server, "user"));
    BindText(password, Path(server, "passwd"));
    connect(output, &QPushButton::clicked, this, [this] {
        RunUserAction([this] { RunParameterDialog<CNtrip_Server_OutputDlg>(*this, {}, m_server); });
    });
    connect(advanced, &QPushButton::clicked, this, [this] {
        RunUserAction(
            [this] { RunParameterDialog<CNtrip_Server_AdvancedDlg>(*this, {}, m_server); });
    });
}

CNtrip_Server_AdvancedDlg::CNtrip_Server_AdvancedDlg(std::shared_ptr<rxio::IReceiver> receiver,
                                                     QWidget* parent, int server)
    : CParameterDialog(std::move(receiver), XString(pell::ids::NtripAdvanced), parent) {
    auto* protocol = new QComboBox;
    auto* proxy = new QLineEdit;
    auto* proxyPort = CParameterPage::PortBox(0);
    proxy->setMinimumWidth(proxy->fontMetrics().horizontalAdvance(QLatin1Char('x')) * 28);

    auto* layout = new QVBoxLayout(&Body());
    QFormLayout* caster =
        CParameterPage::Form(CParameterPage::Group(XString(pell::ids::NtripCaster), layout));
    caster->addRow(XString(pell::ids::NtripProtocol), protocol);
    QFormLayout* proxyForm =
        CParameterPage::Form(CParameterPage::Group(XString(pell::ids::NtripProxyServer), layout));
    proxyForm->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
    proxyForm->addRow(XString(pell::ids::NtripAddress), proxy);
    proxyForm->addRow(XString(pell::ids::NtripPort), proxyPort);

    Body().BindChoice(protocol, CNtrip_ServerPP::Path(server, "protocol"),
                      TableOf(NtripProtocol::ENtripProtocol{}));
    Body().BindText(proxy, CNtrip_ServerPP::Path(server, "proxy/addr"));
    Body().BindUnsigned(proxyPort, CNtrip_ServerPP::Path(server, "proxy/port"));
}

CNtrip_Server_OutputDlg::CNtrip_Server_OutputDlg(std::shared_ptr<rxio::IReceiver> receiver,
                                                 QWidget* parent, int server)
    : CParameterDialog(std::move(receiver), XString(pell::ids::NtripServerOutputDialog), parent) {
    auto* mode = new QComboBox;
    auto* period = CParameterPage::RealBox(0.0, 86400.0, 3);
    auto* mask = CParameterPage::SpinBox(-90, 90);
    auto* form = CParameterPage::Form(&Body());
    form->addRow(XString(pell::ids::PortsOutputMode), mode);
    form->addRow(XString(pell::ids::PortsElevMask), mask);
    form->addRow(XString(pell::ids::PortsPeriod), period);

    Body().BindChoice(mode, CNtrip_ServerPP::Path(server, "out/mode"), TableOf(OMode::EOMode{}));
    Body().BindReal(period, CNtrip_ServerPP::Path(server, "out/period"));
    Body().BindSigned(mask, CNtrip_ServerPP::Path(server, "out/elm"));
}

CNtrip_CastersPP::CNtrip_CastersPP(std::shared_ptr<rxio::IReceiver> receiver,
                                   std::vector<int> mountpointSlots, QWidget* parent)
    : CParameterPage(std::move(receiver), XString(pell::ids::NtripCasterPage), parent) {
    auto* enable = new QCheckBox(XString(pell::ids::NtripCasterEnable));
    auto* name = new QLineEdit;
    auto* country = new QLineEdit;
    auto* authentication = new QComboBox;
    // Country codes are three capital letters (ISO 3166).
    country->setInputMask(QStringLiteral(">AAA;"));
    country->setMaximumWidth(country->fontMetrics().horizontalAdvance(QStringLiteral("WWWWW")));

    auto* page = new QVBoxLayout(this);
    page->addWidget(enable);
    QFormLayout* caster = Form(Group(XString(pell::ids::NtripCaster), page));
    caster->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
    caster->addRow(XString(pell::ids::NtripName), name);
    caster->addRow(XString(pell::ids::NtripCountry), country);
    caster->addRow(XString(pell::ids::NtripAuthentication), authentication);
    QFormLayout* ports = Form(Group(XString(pell::ids::NtripListeners), page));
    page->addStretch();
    auto* users = new QPushButton(XString(pell::ids::NtripUsers));
    users->setObjectName(QStringLiteral("usersButton"));
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(users);
    page->addLayout(buttons);
    connect(users, &QPushButton::clicked, this, [this] {
        RunUserAction([this] { RunParameterDialog<CNtrip_Caster_UsersDlg>(*this); });
    });

    BindSwitch(enable, QStringLiteral("/app/ntrip/caster/mode"));
    BindText(name, QStringLiteral("/app/ntrip/caster/name"));
    BindText(country, QStringLiteral("/app/ntrip/caster/country"));
    BindChoice(authentication, QStringLiteral("/app/ntrip/caster/auth"),
               TableOf(NtripCasterAuth::ENtripCasterAuth{}));
    for (int listener = 0; listener < int(mountpointSlots.size()); ++listener) {
        auto* port = PortBox();
        auto* row = new QHBoxLayout;
        row->addWidget(port);
        if (const int slotCount = mountpointSlots[std::size_t(listener)]; slotCount > 0) {
            auto* mountpoints = new QPushButton(XString(pell::ids::NtripMountpoints));
            mountpoints->setObjectName(QStringLiteral("mountpointsButton%1").arg(listener));
            row->addWidget(mountpoints);
            connect(mountpoints, &QPushButton::clicked, this, [this, listener, slotCount] {
                RunUserAction([this, listener, slotCount] {
                    RunParameterDialog<CNtrip_Caster_MountpointsDlg>(*this, {}, listener,
                                                                     slotCount);
                });
            });
        }
        row->addStretch();
        ports->addRow(XString(pell::ids::NtripListenerPort).arg(listener + 1), row);
        BindUnsigned(port, QStringLiteral("/app/ntrip/caster/%1/port").arg(listener));
    }
}

CNtripPS::CNtripPS(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent)
    : CParameterSheet(
          receiver, XString(pell::ids::NtripSheet),
          {QStringLiteral("ntrip/*"), QStringLiteral("dev/*"), QStringLiteral("/app/ntrip/*")},
          parent) {
    AskBeforeReset(XString(pell::ids::SoftResetQuestion));
    if (Knows(QStringLiteral("ntrip/caster")))
        AddPage(new CNtrip_ClientPP(receiver));
    // Current firmware runs its servers as applications; older firmware has the one server.
    if (Knows(CNtrip_ServerPP::Path(1, "mode"))) {
        for (int server = 1; Knows(CNtrip_ServerPP::Path(server, "mode")); ++server)
            AddPage(new CNtrip_ServerPP(receiver, server));
    } else if (Knows(QStringLiteral("ntrip/server"))) {
        AddPage(new CNtrip_ServerLegacyPP(receiver));
    }
    if (Knows(QStringLiteral("/app/ntrip/caster"))) {
        std::vector<int> mountpointSlots;
        while (Knows(QStringLiteral("/app/ntrip/caster/%1/port").arg(mountpointSlots.size()))) {
            const auto listener = mountpointSlots.size();
            int slotCount = 0;
            while (
                Knows(QStringLiteral("/app/ntrip/caster/%1/%2/name").arg(listener).arg(slotCount)))
                ++slotCount;
            mountpointSlots.push_back(slotCount);
        }
        AddPage(new CNtrip_CastersPP(receiver, std::move(mountpointSlots)));
    }
}

int run_NtripPS(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent) {
    const CPellModuleState state;
    CPellWindow<CNtripPS> sheet(std::move(receiver), parent);
    return sheet.exec();
}
