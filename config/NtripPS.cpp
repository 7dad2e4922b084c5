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
