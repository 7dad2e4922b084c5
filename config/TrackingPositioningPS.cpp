#include "config/TrackingPositioningPS.h"

#include "lib/Common.h"
#include "lib/PellLib.h"
#include "resources/StringIds.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
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
namespace ids = pell::ids;

QString Path(const char* path) {
    return QString::fromLatin1(path);
}

// A form in a titled group of `page`.
QFormLayout* GroupForm(unsigned titleId, QVBoxLayout* page) {
    return CParameterPage::Form(CParameterPage::Group(XString(titleId), page));
}

QCheckBox* CheckBox(unsigned textId) {
    return new QCheckBox(XString(textId));
}

// A choice that a group's title names, at its own width above the group's rows.
QHBoxLayout* Alone(QWidget* control) {
    auto* row = new QHBoxLayout;
    row->addWidget(control);
    row->addStretch();
    return row;
}

// A button that opens a page's dialog, right-aligned under the page's groups.
void AddDialogButton(QVBoxLayout* page, QPushButton* button) {
    auto* row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(button);
    page->addLayout(row);
}

} // namespace

CTrackingPositioning_GeneralPP::CTrackingPositioning_GeneralPP(
    std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent)
    : CParameterPage(std::move(receiver), XString(ids::TrackingGeneralPage), parent) {
    auto* current = new QComboBox;
    auto* standalone = new QComboBox;
    auto* codeDifferential = new QComboBox;
    auto* ionosphere = new QComboBox;
    auto* rtkIonosphere = new QLabel;
    auto* ppp = new QLabel;

    auto* page = new QVBoxLayout(this);
    QFormLayout* modes = GroupForm(ids::TrackingSolutionModes, page);
    modes->addRow(XString(ids::TrackingCurrentMode), current);
    modes->addRow(XString(ids::TrackingStandalone), standalone);
    modes->addRow(XString(ids::TrackingCodeDifferential), codeDifferential);
    modes->addRow(XString(ids::TrackingPppMode), ppp);
    QFormLayout* iono = GroupForm(ids::TrackingIonosphere, page);
    iono->addRow(XString(ids::TrackingDifferentialIonosphere), ionosphere);
    iono->addRow(XString(ids::TrackingRtkIonosphere), rtkIonosphere);
    page->addStretch();

    BindChoice(current, Path("pos/mode/cur"), TableOf(PosComputationMode::EPosComputationMode{}));
    BindChoice(standalone, Path("pos/mode/sp"), TableOf(PositionOutputMode::EPositionOutputMode{}));
    BindChoice(codeDifferential, Path("pos/mode/cd"),
               TableOf(PositionOutputMode::EPositionOutputMode{}));
    BindChoice(ionosphere, Path("pos/dion/mode"), TableOf(DIONMode::EDIONMode{}));
    BindShown(rtkIonosphere, Path("pos/rtk/dion"), &TableOf(DIONMode::EDIONMode{}));
    BindShown(ppp, Path("pos/ppp/mode"), &TableOf(PPPMode::EPPPMode{}));
}

CTrackingPositioning_ObsPP::CTrackingPositioning_ObsPP(std::shared_ptr<rxio::IReceiver> receiver,
                                                       QWidget* parent)
    : CParameterPage(std::move(receiver), XString(ids::TrackingObsPage), parent) {
    auto* trackingMask = SpinBox(-10, 90);
    auto* positionMask = SpinBox(-90, 90);
    auto* pdop = RealBox(0, 1000, 1);

    auto* page = new QVBoxLayout(this);
    GroupForm(ids::TrackingSatellitesTracking, page)
        ->addRow(XString(ids::TrackingElevationMask), trackingMask);
    QFormLayout* position = GroupForm(ids::TrackingPositionComputation, page);
    position->addRow(XString(ids::TrackingElevationMask), positionMask);
    position->addRow(XString(ids::TrackingPdopMask), pdop);
    page->addStretch();

    BindSigned(trackingMask, Path("lock/elm"));
    BindSigned(positionMask, Path("pos/elm"));
    BindReal(pdop, Path("pos/pdop"));
}

CTrackingPositioning_ObsRTK3PP::CTrackingPositioning_ObsRTK3PP(
    std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent)
    : CParameterPage(std::move(receiver), XString(ids::TrackingRtkMasksPage), parent) {
    auto* mask = RealBox(0, 90, 1);
    auto* pdop = RealBox(0, 1000, 1);

    auto* page = new QVBoxLayout(this);
    QFormLayout* form = Form(nullptr);
    page->addLayout(form);
    form->addRow(XString(ids::TrackingRtkElevationMask), mask);
    form->addRow(XString(ids::TrackingRtkPdopMask), pdop);
    page->addStretch();

    BindReal(mask, Path("pos/rtk/elm"));
    BindReal(pdop, Path("pos/rtk/pdop"));
}

CTrackingPositioning_BasePP::CTrackingPositioning_BasePP(std::shared_ptr<rxio::IReceiver> receiver,
                                                         QWidget* parent)
    : CParameterPage(std::move(receiver), XString(ids::TrackingBasePage), parent) {
    auto* antenna = new QLineEdit;
    antenna->setMaxLength(31); // the receiver's longest antenna name
    antenna->setMinimumWidth(
        antenna->fontMetrics().horizontalAdvance(QString(24, QLatin1Char('M'))));
    auto* scintillations = CheckBox(ids::TrackingDetectScintillations);
    auto* version = new QLabel;

    auto* page = new QVBoxLayout(this);
    QFormLayout* form = Form(nullptr);
    page->addLayout(form);
    form->addRow(XString(ids::TrackingAntennaType), antenna);
    form->addRow(scintillations);
    form->addRow(XString(ids::TrackingRtkEngineVersion), version);
    page->addStretch();

    BindText(antenna, Path("ref/ant/id"));
    BindSwitch(scintillations, Path("raw/ionodet"));
    BindShown(version, Path("pos/pd/ver"));
}

CTrackingPositioning_RTKPP::CTrackingPositioning_RTKPP(std::shared_ptr<rxio::IReceiver> receiver,
                                                       QWidget* parent)
    : CParameterPage(std::move(receiver), XString(ids::TrackingRtkPage), parent),
      m_mode(new QComboBox), m_extrapolation(RealBox(0, 120, 1)) {
    auto* period = RealBox(0, 60, 1);
    auto* dynamics = new QComboBox;
    auto* acceleration = RealBox(0, 100, 2);
    auto* fixing = new QComboBox;
    auto* ionosphere = RealBox(0, 10000, 1);
    auto* advanced = new QPushButton(XString(ids::TrackingAdvanced));
    advanced->setObjectName(QStringLiteral("advancedButton"));

    auto* page = new QVBoxLayout(this);
    QFormLayout* mode = GroupForm(ids::TrackingRtkMode, page);
    mode->addRow(Alone(m_mode));
    mode->addRow(XString(ids::TrackingExtrapolationTime), m_extrapolation);
    mode->addRow(XString(ids::TrackingCorrectionsPeriod), period);
    QFormLayout* motion = GroupForm(ids::TrackingDynamics, page);
    motion->addRow(Alone(dynamics));
    motion->addRow(XString(ids::TrackingAcceleration), acceleration);
    QFormLayout* solution = GroupForm(ids::TrackingAmbiguityFixing, page);
    solution->addRow(Alone(fixing));
    solution->addRow(XString(ids::TrackingIonosphericResidual), ionosphere);
    page->addStretch();
    AddDialogButton(page, advanced);

    BindChoice(m_mode, Path("pos/pd/mode"), TableOf(RTKMode::ERTKMode{}));
    BindReal(m_extrapolation, Path("pos/pd/textr"));
    BindReal(period, Path("pos/pd/period"));
    BindChoice(dynamics, Path("pos/rtk/dynamic"), TableOf(RTKDynamic::ERTKDynamic{}));
    BindReal(acceleration, Path("pos/pd/dyn"));
    BindChoice(fixing, Path("pos/pd/aflevel"),
               TableOf(AmbiguityFixingLevel::EAmbiguityFixingLevel{}));
    BindReal(ionosphere, Path("pos/pd/ionr"));

    // The extrapolation time matters only when extrapolating; it is still written as set.
    connect(m_mode, &QComboBox::currentIndexChanged, this, [this] { FollowMode(); });
    connect(advanced, &QPushButton::clicked, this, [this] {
        RunUserAction([this] { RunParameterDialog<CTrackingPositioning_AdvancedRTKDlg>(*this); });
    });
}

void CTrackingPositioning_RTKPP::OnValuesRead() {
    m_extrapolationWritable = m_extrapolation->isEnabled();
    FollowMode();
}

void CTrackingPositioning_RTKPP::FollowMode() {
    m_extrapolation->setEnabled(m_extrapolationWritable &&
                                m_mode->currentData().toString() !=
                                    TableOf(RTKMode::ERTKMode{}).Text(RTKMode::Delay));
}

CTrackingPositioning_AdvancedRTKDlg::CTrackingPositioning_AdvancedRTKDlg(
    std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent)
    : CParameterDialog(std::move(receiver), XString(ids::TrackingAdvancedRtkDialog), parent),
      m_vrs(new QComboBox), m_ifBaseline(Body().RealBox(0, 100000, 1)),
      m_weighting(CheckBox(ids::TrackingWeightResiduals)), m_maxResidual(Body().SpinBox(1, 10000)) {
    auto* page = new QVBoxLayout(&Body());
    QFormLayout* residuals = CParameterPage::Form(nullptr);
    page->addLayout(residuals);
    residuals->addRow(XString(ids::TrackingVrsMode), m_vrs);
    residuals->addRow(XString(ids::TrackingIfBaseline), m_ifBaseline);
    residuals->addRow(m_weighting);
    residuals->addRow(XString(ids::TrackingMaxResidual), m_maxResidual);

    Body().BindChoice(m_vrs, Path("pos/pd/vrs"), TableOf(OffOnAuto::EOffOnAuto{}));
    Body().BindReal(m_ifBaseline, Path("pos/rtk/ifr"));
    Body().BindSwitch(m_weighting, Path("pos/rtk/weightres"));
    Body().BindSigned(m_maxResidual, Path("pos/rtk/maxsatres"));
}

void CTrackingPositioning_AdvancedRTKDlg::Fill(AdvancedRTKStruct& values) {
    // A control is enabled when it shows the receiver's value exactly.
    const int vrs = TableOf(OffOnAuto::EOffOnAuto{}).Parse(m_vrs->currentData().toString(), -1);
    if (vrs >= 0 && m_vrs->isEnabled())
        values.vrsMode = OffOnAuto::EOffOnAuto(vrs);
    if (m_ifBaseline->isEnabled())
        values.ifBaselineM = m_ifBaseline->value();
    if (m_weighting->isEnabled())
        values.weightingBasedOnResiduals = m_weighting->isChecked();
    if (m_maxResidual->isEnabled())
        values.maximumResidualMm = m_maxResidual->value();
}

CTrackingPositioning_OrcaPP::CTrackingPositioning_OrcaPP(std::shared_ptr<rxio::IReceiver> receiver,
                                                         QWidget* parent)
    : CParameterPage(std::move(receiver), XString(ids::TrackingOrcaPage), parent) {
    auto* mode = new QComboBox;
    auto* filter = new QComboBox;
    auto* rms = RealBox(0, 180, 2);
    auto* distanceMode = new QComboBox;
    auto* distance = new QLabel;

    auto* page = new QVBoxLayout(this);
    QFormLayout* heading = GroupForm(ids::TrackingOrcaPage, page);
    heading->addRow(XString(ids::TrackingHeadingMode), mode);
    heading->addRow(XString(ids::TrackingAzimuthFilter), filter);
    heading->addRow(XString(ids::TrackingAzimuthRms), rms);
    QFormLayout* baseline = GroupForm(ids::TrackingBaseline, page);
    baseline->addRow(XString(ids::TrackingDistanceMode), distanceMode);
    baseline->addRow(XString(ids::TrackingDistanceValue), distance);
    page->addStretch();

    BindChoice(mode, Path("hd/mode"), TableOf(HeadingMode::EHeadingMode{}));
    BindChoice(filter, Path("pos/filter/azm/mode"), TableOf(OffOnAuto::EOffOnAuto{}));
    BindReal(rms, Path("pos/filter/azm/wrms"));
    BindChoice(distanceMode, Path("pos/rtk/distmode"), TableOf(DistMode::EDistMode{}));
    BindShown(distance, Path("pos/rtk/distval"));
}

CTrackingPositioning_KestrelPP::CTrackingPositioning_KestrelPP(
    std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent)
    : CParameterPage(std::move(receiver), XString(ids::TrackingKestrelPage), parent) {
    auto* heading = CheckBox(ids::TrackingKestrelHeading);
    auto* length = RealBox(0, 100, 3);
    auto* secondFrequency = CheckBox(ids::TrackingSecondFrequency);
    auto* distanceMode = new QComboBox;
    auto* distance = new QLabel;
    auto* advanced = new QPushButton(XString(ids::TrackingAdvanced));
    advanced->setObjectName(QStringLiteral("advancedButton"));

    auto* page = new QVBoxLayout(this);
    QFormLayout* form = GroupForm(ids::TrackingOrcaPage, page);
    form->addRow(heading);
    form->addRow(XString(ids::TrackingBaselineLength), length);
    form->addRow(secondFrequency);
    QFormLayout* baseline = GroupForm(ids::TrackingBaseline, page);
    baseline->addRow(XString(ids::TrackingDistanceMode), distanceMode);
    baseline->addRow(XString(ids::TrackingDistanceValue), distance);
    page->addStretch();
    AddDialogButton(page, advanced);

    BindSwitch(heading, Path("pos/hd/mode"));
    BindReal(length, Path("pos/hd/len"));
    BindSwitch(secondFrequency, Path("pos/hd/l2"));
    BindChoice(distanceMode, Path("pos/rtk/kestrel/distmode"), TableOf(DistMode::EDistMode{}));
    BindShown(distance, Path("pos/rtk/kestrel/distval"));

    connect(advanced, &QPushButton::clicked, this, [this] {
        RunUserAction(
            [this] { RunParameterDialog<CTrackingPositioning_AdvancedKestrelDlg>(*this); });
    });
}

CTrackingPositioning_AdvancedKestrelDlg::CTrackingPositioning_AdvancedKestrelDlg(
    std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent)
    : CParameterDialog(std::move(receiver), XString(ids::TrackingAdvancedKestrelDialog), parent) {
    CParameterPage& body = Body();
    auto* initial = new QComboBox;
    auto* headingShift = body.RealBox(-180, 180, 2);
    auto* inclinationShift = body.RealBox(-90, 90, 2);
    auto* lineBiases = CheckBox(ids::TrackingSaveLineBiases);
    auto* cable = CheckBox(ids::TrackingAdjustCable);
    auto* smoothing = CheckBox(ids::TrackingAdaptiveSmoothing);
    auto* headingOnly = CheckBox(ids::TrackingHeadingOnly);

    auto* page = new QVBoxLayout(&body);
    GroupForm(ids::TrackingInitialAngles, page)->addRow(Alone(initial));
    QFormLayout* shifts = GroupForm(ids::TrackingShifts, page);
    shifts->addRow(XString(ids::TrackingHeadingShift), headingShift);
    shifts->addRow(XString(ids::TrackingInclinationShift), inclinationShift);
    for (QCheckBox* box : {lineBiases, cable, smoothing, headingOnly})
        page->addWidget(box);
    page->addStretch();

    body.BindChoice(initial, Path("pos/hd/init/type"),
                    TableOf(KestrelInitializationType::EKestrelInitializationType{}));
    body.BindReal(headingShift, Path("pos/hd/init/azmshift"));
    body.BindReal(inclinationShift, Path("pos/hd/init/elvshift"));
    body.BindSwitch(lineBiases, Path("pos/hd/dlock"));
    body.BindSwitch(cable, Path("pos/hd/dcable"));
    body.BindSwitch(smoothing, Path("pos/hd/asmooth"));
    body.BindSwitch(headingOnly, Path("pos/hd/headonly"));
}

CTrackingPositioning_AntPP::CTrackingPositioning_AntPP(std::shared_ptr<rxio::IReceiver> receiver,
                                                       QWidget* parent)
    : CParameterPage(std::move(receiver), XString(ids::TrackingAntennaPage), parent) {
    auto* input = new QComboBox;
    auto* current = new QLabel;
    auto* external = new QLabel;
    auto* heading = new QLabel;
    auto* twin = CheckBox(ids::TrackingTwinAntenna);

    auto* page = new QVBoxLayout(this);
    QFormLayout* form = GroupForm(ids::TrackingAntennaInput, page);
    form->addRow(XString(ids::TrackingInput), input);
    form->addRow(XString(ids::TrackingCurrentInput), current);
    form->addRow(XString(ids::TrackingExtAntennaStatus), external);
    form->addRow(XString(ids::TrackingHdAntennaStatus), heading);
    page->addWidget(twin);
    page->addStretch();

    BindChoice(input, Path("ant/inp"), TableOf(Antenna::EAntenna{}));
    BindShown(current, Path("ant/curinp"), &TableOf(Antenna::EAntenna{}));
    BindShown(external, Path("ant/rcv/dc"), &TableOf(ExtAntennaStatus::EExtAntennaStatus{}));
    BindShown(heading, Path("ant/hd/dc"), &TableOf(ExtAntennaStatus::EExtAntennaStatus{}));
    BindSwitch(twin, Path("lock/hd"));
}

CTrackingPositioning_AdvPP::CTrackingPositioning_AdvPP(std::shared_ptr<rxio::IReceiver> receiver,
                                                       QWidget* parent)
    : CParameterPage(std::move(receiver), XString(ids::TrackingAdvPage), parent) {
    auto* rawRate = SpinBox(10, 1000);
    auto* positionRate = SpinBox(10, 1000);
    auto* code = CheckBox(ids::TrackingCodeMultipath);
    auto* carrier = CheckBox(ids::TrackingCarrierMultipath);
    auto* cinderella = CheckBox(ids::TrackingCinderella);
    auto* qll = CheckBox(ids::TrackingQuartzLockLoop);
    auto* antiJamming = new QComboBox;
    auto* settings = new QPushButton(XString(ids::TrackingAntiJammingSettings));
    settings->setObjectName(QStringLiteral("antiJammingButton"));

    auto* page = new QVBoxLayout(this);
    QFormLayout* rates = GroupForm(ids::TrackingUpdateRates, page);
    rates->addRow(XString(ids::TrackingRawRate), rawRate);
    rates->addRow(XString(ids::TrackingPositionRate), positionRate);
    auto* multipath = new QVBoxLayout(Group(XString(ids::TrackingMultipath), page));
    multipath->addWidget(code);
    multipath->addWidget(carrier);
    QFormLayout* options = GroupForm(ids::TrackingOptions, page);
    options->addRow(cinderella);
    options->addRow(qll);
    auto* jamming = new QHBoxLayout;
    jamming->addWidget(antiJamming);
    jamming->addWidget(settings);
    options->addRow(XString(ids::TrackingAntiJamming), jamming);
    page->addStretch();

    BindSigned(rawRate, Path("raw/msint"));
    BindSigned(positionRate, Path("pos/msint"));
    const QString reduced = TableOf(CorrMode::ECorrMode{}).Text(CorrMode::MultipathReduction);
    const QString normal = TableOf(CorrMode::ECorrMode{}).Text(CorrMode::Normal);
    BindSwitch(code, Path("raw/corr/ca/code"), reduced, normal);
    BindSwitch(carrier, Path("raw/corr/ca/carrier"), reduced, normal);
    BindSwitch(cinderella, Path("opts/cind"));
    BindSwitch(qll, Path("raw/clp/qll"));
    BindChoice(antiJamming, Path("ajm/mode"), TableOf(AntiJamming::EAntiJamming{}));

    connect(settings, &QPushButton::clicked, this, [this] {
        RunUserAction([this] { RunParameterDialog<CTrackingPositioning_AntiJammingDlg>(*this); });
    });
}

CTrackingPositioning_AntiJammingDlg::CTrackingPositioning_AntiJammingDlg(
    std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent)
    : CParameterDialog(std::move(receiver), XString(ids::TrackingAntiJammingDialog), parent) {
    CParameterPage& body = Body();
    auto* page = new QHBoxLayout(&body);
    const struct {
        unsigned systemId;
        std::initializer_list<std::pair<unsigned, const char*>> bands;
    } systems[] = {
        {ids::TrackingGps,
         {{ids::TrackingL1, "ajm/chan/gps/l1"},
          {ids::TrackingL2, "ajm/chan/gps/l2"},
          {ids::TrackingL5, "ajm/chan/gps/l5"}}},
        {ids::TrackingGlonass,
         {{ids::TrackingL1, "ajm/chan/gln/l1"}, {ids::TrackingL2, "ajm/chan/gln/l2"}}},
    };
    for (const auto& system : systems) {
        auto* group = new QGroupBox(XString(system.systemId));
        auto* bands = new QVBoxLayout(group);
        for (const auto& [bandId, path] : system.bands) {
            QCheckBox* band = CheckBox(bandId);
            bands->addWidget(band);
            body.BindSwitch(band, Path(path));
        }
        bands->addStretch();
        page->addWidget(group);
    }
}

// Pages in the order a surveyor sets a receiver up; each where the receiver has its parameters.
CTrackingPositioningPS::CTrackingPositioningPS(std::shared_ptr<rxio::IReceiver> receiver,
                                               QWidget* parent)
    : CParameterSheet(receiver, XString(ids::TrackingSheet),
                      {Path("pos/mode/*"),    Path("pos/dion/mode"),
                       Path("pos/elm"),       Path("pos/pdop"),
                       Path("pos/msint"),     Path("pos/rtk/*"),
                       Path("pos/pd/*"),      Path("pos/filter/azm/*"),
                       Path("pos/hd/*"),      Path("lock/elm"),
                       Path("lock/hd"),       Path("ref/ant/id"),
                       Path("raw/ionodet"),   Path("raw/msint"),
                       Path("raw/corr/ca/*"), Path("raw/clp/qll"),
                       Path("hd/mode"),       Path("ant/inp"),
                       Path("opts/cind"),     Path("ajm/*")},
                      parent) {
    AskBeforeReset(XString(ids::SoftResetQuestion));
    if (Knows(Path("pos/mode")))
        AddPage(new CTrackingPositioning_GeneralPP(receiver));
    if (Knows(Path("pos/elm")))
        AddPage(new CTrackingPositioning_ObsPP(receiver));
    if (Knows(Path("pos/rtk/elm")))
        AddPage(new CTrackingPositioning_ObsRTK3PP(receiver));
    if (Knows(Path("ref/ant/id")))
        AddPage(new CTrackingPositioning_BasePP(receiver));
    if (Knows(Path("pos/pd")))
        AddPage(new CTrackingPositioning_RTKPP(receiver));
    if (Knows(Path("hd/mode")))
        AddPage(new CTrackingPositioning_OrcaPP(receiver));
    if (Knows(Path("pos/hd/mode")))
        AddPage(new CTrackingPositioning_KestrelPP(receiver));
    if (Knows(Path("ant/inp")))
        AddPage(new CTrackingPositioning_AntPP(receiver));
    if (Knows(Path("raw/msint")))
        AddPage(new CTrackingPositioning_AdvPP(receiver));
}

int run_TrackingPositioningPS(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent) {
    const CPellModuleState state;
    CPellWindow<CTrackingPositioningPS> sheet(std::move(receiver), parent);
    return sheet.exec();
}

int run_PositioningAdvancedRTKDlg(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent,
                                  AdvancedRTKStruct& values) {
    const CPellModuleState state;
    CPellWindow<CTrackingPositioning_AdvancedRTKDlg> dialog(std::move(receiver), parent);
    const int result = dialog.exec();
    if (result == pell::IDOK)
        dialog.Fill(values);
    return result;
}
