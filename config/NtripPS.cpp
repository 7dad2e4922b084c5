#include "config/NtripPS.h"

#include "config/Ntrip_Client_SelectMountpointDlg.h"
#include "config/PasswordField.h"
#include "lib/Common.h"
#include "lib/PellLib.h"
#include "resources/StringIds.h"

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

QString String(unsigned id) {
    return g_PellLibApp.XLoadString(id);
}

// "host : port", or that there is none.
QString AddressLine(const QString& host, const QString& port) {
    if (host.trimmed().isEmpty())
        return String(pell::ids::NtripNotSet);
    return String(pell::ids::NtripAddressLine).arg(host, port);
}

} // namespace

CNtrip_ClientPP::CNtrip_ClientPP(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent)
    : CParameterPage(std::move(receiver), String(pell::ids::NtripClientPage), parent),
      m_function(new QComboBox), m_caster(new QLineEdit), m_casterPort(PortBox()),
      m_mountpoint(new QLineEdit), m_inputMode(new QComboBox), m_proxy(new QLabel),
      m_proxyPort(new QLabel), m_state(new QLabel), m_casterLine(new QLabel),
      m_proxyLine(new QLabel) {
    auto* dataPort = new QComboBox;
    auto* user = new QLineEdit;
    auto* password = new QLineEdit;
    auto* error = new QLabel;
    auto* select = new QPushButton(String(pell::ids::NtripSelect));
    auto* advanced = new QPushButton(String(pell::ids::NtripAdvanced));
    MaskPassword(password);
    m_state->setWordWrap(true);
    error->setWordWrap(true);
    m_proxy->hide();
    m_proxyPort->hide();

    auto* page = new QVBoxLayout(this);
    QFormLayout* general = Form(nullptr);
    page->addLayout(general);
    general->addRow(String(pell::ids::NtripFunction), m_function);
    general->addRow(String(pell::ids::NtripDataPort), dataPort);

    QFormLayout* caster = Form(Group(String(pell::ids::NtripCaster), page));
    caster->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
    caster->addRow(String(pell::ids::NtripAddress), m_caster);
    caster->addRow(String(pell::ids::NtripPort), m_casterPort);
    auto* mountpointRow = new QHBoxLayout;
    mountpointRow->addWidget(m_mountpoint, 1);
    mountpointRow->addWidget(select);
    auto* mountpointLabel = new QLabel(String(pell::ids::NtripMountpoint));
    mountpointLabel->setBuddy(m_mountpoint);
    caster->addRow(mountpointLabel, mountpointRow);
    caster->addRow(String(pell::ids::NtripUser), user);
    caster->addRow(String(pell::ids::NtripPassword), password);
    caster->addRow(String(pell::ids::NtripInputMode), m_inputMode);

    QFormLayout* state = Form(Group(String(pell::ids::NtripStateGroup), page));
    state->addRow(m_state);
    state->addRow(String(pell::ids::NtripCaster) + QLatin1Char(':'), m_casterLine);
    state->addRow(String(pell::ids::NtripProxyServer) + QLatin1Char(':'), m_proxyLine);
    state->addRow(String(pell::ids::NtripLastError), error);
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
    BindShown(m_proxy, QStringLiteral("ntrip/caster/proxy/addr"));
    BindShown(m_proxyPort, QStringLiteral("ntrip/caster/proxy/port"));
    BindShown(m_state, QStringLiteral("ntrip/state"), &TableOf(NtripState::ENtripState{}));
    BindShown(error, QStringLiteral("ntrip/error"));

    connect(select, &QPushButton::clicked, this,
            [this] { RunUserAction([this] { SelectMountpoint(); }); });
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
    : CParameterDialog(std::move(receiver), String(pell::ids::NtripAdvancedDialog), parent),
      m_proxy(new QLineEdit), m_proxyPort(CParameterPage::PortBox(0)) {
    auto* protocol = new QComboBox;
    auto* nmea = CParameterPage::SpinBox(0, 3600);
    auto* init = new QComboBox;
    nmea->setSpecialValueText(String(pell::ids::NtripNmeaOff));
    m_proxy->setMinimumWidth(m_proxy->fontMetrics().horizontalAdvance(QLatin1Char('x')) * 28);

    auto* page = new QVBoxLayout(&Body());
    QFormLayout* caster =
        CParameterPage::Form(CParameterPage::Group(String(pell::ids::NtripCaster), page));
    caster->addRow(String(pell::ids::NtripProtocol), protocol);
    caster->addRow(String(pell::ids::NtripNmeaPeriod), nmea);
    caster->addRow(String(pell::ids::NtripInit), init);
    QFormLayout* proxy =
        CParameterPage::Form(CParameterPage::Group(String(pell::ids::NtripProxyServer), page));
    proxy->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
    proxy->addRow(String(pell::ids::NtripAddress), m_proxy);
    proxy->addRow(String(pell::ids::NtripPort), m_proxyPort);

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

CNtripPS::CNtripPS(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent)
    : CParameterSheet(
          receiver, String(pell::ids::NtripSheet),
          {QStringLiteral("ntrip/*"), QStringLiteral("dev/*"), QStringLiteral("/app/ntrip/*")},
          parent) {
    if (Knows(QStringLiteral("ntrip/caster")))
        AddPage(new CNtrip_ClientPP(receiver));
}

int run_NtripPS(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent) {
    const CPellModuleState state;
    CPellWindow<CNtripPS> sheet(std::move(receiver), parent);
    return sheet.exec();
}
