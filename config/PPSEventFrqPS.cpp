#include "config/PPSEventFrqPS.h"

#include "lib/PellLib.h"
#include "resources/StringIds.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QSpinBox>
#include <QVBoxLayout>

namespace {

using namespace rxio::vex;

constexpr char kChannels[] = {'a', 'b'};

QString PageTitle(unsigned nameId, char channel) {
    return XString(pell::ids::TimingPageTitle).arg(XString(nameId), QChar::fromLatin1(channel));
}

} // namespace

QString CPPSEventFrqPS::ChannelPath(const char* pathTemplate, char channel) {
    return QString::fromLatin1(pathTemplate)
        .replace(QLatin1String("%c"), QString(QChar::fromLatin1(channel)));
}

CPPS_PP::CPPS_PP(std::shared_ptr<rxio::IReceiver> receiver, char channel, QWidget* parent)
    : CParameterPage(std::move(receiver), PageTitle(pell::ids::PpsPage, channel), parent),
      m_marked(new QCheckBox(XString(pell::ids::TimingMarkedPulses))),
      m_markedPeriod(SpinBox(0, 86400000)) {
    const auto path = [channel](const char* pathTemplate) {
        return CPPSEventFrqPS::ChannelPath(pathTemplate, channel);
    };
    auto* enable = new QCheckBox(XString(pell::ids::TimingEnable));
    auto* period = SpinBox(1, 86400000);
    auto* offsetMs = SpinBox(-500, 500);
    auto* offsetNs = SpinBox(-1000000, 1000000);
    auto* edge = new QComboBox;
    auto* time = new QComboBox;
    auto* tied = new QCheckBox(XString(pell::ids::TimingTied));

    auto* page = new QVBoxLayout(this);
    page->addWidget(enable);
    QFormLayout* pulse = Form(Group(XString(pell::ids::TimingPulse), page));
    pulse->addRow(XString(pell::ids::TimingPeriodMs), period);
    pulse->addRow(XString(pell::ids::TimingOffsetMs), offsetMs);
    pulse->addRow(XString(pell::ids::TimingOffsetNs), offsetNs);
    pulse->addRow(m_marked);
    pulse->addRow(XString(pell::ids::TimingPeriodMs), m_markedPeriod);
    QFormLayout* reference = Form(Group(XString(pell::ids::TimingReference), page));
    reference->addRow(XString(pell::ids::TimingEdge), edge);
    reference->addRow(XString(pell::ids::TimingRefTime), time);
    reference->addRow(tied);
    page->addStretch();

    BindSwitch(enable, path("dev/pps/%c/out"));
    BindSigned(period, path("dev/pps/%c/per/ms"));
    BindSigned(offsetMs, path("dev/pps/%c/offs/ms"));
    BindSigned(offsetNs, path("dev/pps/%c/offs/ns"));
    BindSigned(m_markedPeriod, path("dev/pps/%c/mper"));
    BindChoice(edge, path("dev/pps/%c/edge"), TableOf(Edge::EEdge{}));
    BindChoice(time, path("dev/pps/%c/time"), TableOf(SignalRefTime::ESignalRefTime{}));
    BindSwitch(tied, path("dev/pps/%c/tied"));

    // Marked pulses are on while their period is not 0: the box is the period's switch.
    connect(m_marked, &QCheckBox::toggled, this, [this](bool on) {
        m_markedPeriod->setEnabled(on);
        if (!on)
            m_markedPeriod->setValue(0);
        else if (m_markedPeriod->value() == 0)
            m_markedPeriod->setValue(1000);
    });
}

void CPPS_PP::OnValuesRead() {
    const QSignalBlocker blocker(m_marked);
    m_marked->setChecked(m_markedPeriod->value() > 0);
    m_marked->setVisible(m_markedPeriod->isVisibleTo(this));
    m_marked->setEnabled(m_markedPeriod->isEnabled());
    m_markedPeriod->setEnabled(m_markedPeriod->isEnabled() && m_marked->isChecked());
}

CEventPP::CEventPP(std::shared_ptr<rxio::IReceiver> receiver, char channel, QWidget* parent)
    : CParameterPage(std::move(receiver), PageTitle(pell::ids::EventPage, channel), parent) {
    const auto path = [channel](const char* pathTemplate) {
        return CPPSEventFrqPS::ChannelPath(pathTemplate, channel);
    };
    auto* enable = new QCheckBox(XString(pell::ids::TimingEnable));
    auto* edge = new QComboBox;
    auto* time = new QComboBox;
    auto* tied = new QCheckBox(XString(pell::ids::TimingTied));
    auto* lock = new QComboBox;
    auto* locked = new QLabel;

    auto* page = new QVBoxLayout(this);
    page->addWidget(enable);
    QFormLayout* reference = Form(Group(XString(pell::ids::TimingReference), page));
    reference->addRow(XString(pell::ids::TimingEdge), edge);
    reference->addRow(XString(pell::ids::TimingRefTime), time);
    reference->addRow(tied);
    reference->addRow(XString(pell::ids::TimingClockSync), lock);
    reference->addRow(XString(pell::ids::TimingStatus), locked);
    page->addStretch();

    BindSwitch(enable, path("dev/event/%c/in"));
    BindChoice(edge, path("dev/event/%c/edge"), TableOf(Edge::EEdge{}));
    BindChoice(time, path("dev/event/%c/time"), TableOf(SignalRefTime::ESignalRefTime{}));
    BindSwitch(tied, path("dev/event/%c/tied"));
    BindChoice(lock, path("dev/event/%c/lock"), TableOf(SignalSync::ESignalSync{}));
    BindShown(locked, path("dev/event/%c/locked"), &TableOf(YesNo::EYesNo{}));
}

CFrqPP::CFrqPP(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent)
    : CParameterPage(std::move(receiver), XString(pell::ids::FrequencyPage), parent) {
    auto* input = new QComboBox;
    auto* frequency = SpinBox(1, 100);
    auto* status = new QLabel;
    auto* amplitude = new QLabel;
    auto* reduction = new QComboBox;

    auto* page = new QVBoxLayout(this);
    QFormLayout* source = Form(Group(XString(pell::ids::FrequencyParameters), page));
    source->addRow(XString(pell::ids::FrequencySource), input);
    source->addRow(XString(pell::ids::FrequencyMHz), frequency);
    source->addRow(XString(pell::ids::FrequencyStatus), status);
    source->addRow(XString(pell::ids::FrequencyAmplitude), amplitude);
    QFormLayout* oscillator = Form(Group(XString(pell::ids::FrequencySourceGroup), page));
    oscillator->addRow(XString(pell::ids::FrequencyOffsetReduction), reduction);
    page->addStretch();

    BindChoice(input, QStringLiteral("frq/input"), TableOf(FrqInput::EFrqInput{}));
    BindSigned(frequency, QStringLiteral("frq/ext"));
    BindShown(status, QStringLiteral("frq/stat"), &TableOf(FrqStatus::EFrqStatus{}));
    BindShown(amplitude, QStringLiteral("frq/amp"), &TableOf(FrqAmplitude::EFrqAmplitude{}));
    BindChoice(reduction, QStringLiteral("osc/mode"),
               TableOf(OscillatorOffsetReduction::EOscillatorOffsetReduction{}));
}

CPPSEventFrqPS::CPPSEventFrqPS(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent)
    : CParameterSheet(receiver, XString(pell::ids::TimingSheet),
                      {QStringLiteral("dev/pps/*"), QStringLiteral("dev/event/*"),
                       QStringLiteral("frq/*"), QStringLiteral("osc/*")},
                      parent) {
    for (const char channel : kChannels)
        if (Knows(ChannelPath("dev/pps/%c", channel)))
            AddPage(new CPPS_PP(receiver, channel));
    for (const char channel : kChannels)
        if (Knows(ChannelPath("dev/event/%c", channel)))
            AddPage(new CEventPP(receiver, channel));
    if (Knows(QStringLiteral("frq")))
        AddPage(new CFrqPP(receiver));
}

int run_PPSEventFrqPS(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent) {
    const CPellModuleState state;
    CPellWindow<CPPSEventFrqPS> sheet(std::move(receiver), parent);
    return sheet.exec();
}
