#pragma once

#include "config/ParameterDialog.h"
#include "config/ParameterPage.h"
#include "config/ParameterSheet.h"
#include "lib/pell_export.h"
#include "receiver/VexTypes.h"

class QCheckBox;
class QComboBox;
class QDoubleSpinBox;
class QSpinBox;

// The advanced RTK options as run_PositioningAdvancedRTKDlg returns them; the defaults are the
// receiver's own.
struct AdvancedRTKStruct {
    rxio::vex::OffOnAuto::EOffOnAuto vrsMode = rxio::vex::OffOnAuto::Auto; // "pos/pd/vrs"
    double ifBaselineM = 5000.0;                                           // "pos/rtk/ifr"
    bool weightingBasedOnResiduals = true;                                 // "pos/rtk/weightres"
    int maximumResidualMm = 100;                                           // "pos/rtk/maxsatres"
};

// Positioning modes and the ionosphere models in use.
class PELL_EXPORT CTrackingPositioning_GeneralPP : public CParameterPage {
    Q_OBJECT
public:
    explicit CTrackingPositioning_GeneralPP(std::shared_ptr<rxio::IReceiver> receiver,
                                            QWidget* parent = nullptr);
};

// Elevation masks for tracking and for positions, and the PDOP mask.
class PELL_EXPORT CTrackingPositioning_ObsPP : public CParameterPage {
    Q_OBJECT
public:
    explicit CTrackingPositioning_ObsPP(std::shared_ptr<rxio::IReceiver> receiver,
                                        QWidget* parent = nullptr);
};

// The masks of RTK positions.
class PELL_EXPORT CTrackingPositioning_ObsRTK3PP : public CParameterPage {
    Q_OBJECT
public:
    explicit CTrackingPositioning_ObsRTK3PP(std::shared_ptr<rxio::IReceiver> receiver,
                                            QWidget* parent = nullptr);
};

// The base's antenna, scintillation detection and the RTK engine's version.
class PELL_EXPORT CTrackingPositioning_BasePP : public CParameterPage {
    Q_OBJECT
public:
    explicit CTrackingPositioning_BasePP(std::shared_ptr<rxio::IReceiver> receiver,
                                         QWidget* parent = nullptr);
};

// The RTK engine; "Advanced" opens CTrackingPositioning_AdvancedRTKDlg.
class PELL_EXPORT CTrackingPositioning_RTKPP : public CParameterPage {
    Q_OBJECT
public:
    explicit CTrackingPositioning_RTKPP(std::shared_ptr<rxio::IReceiver> receiver,
                                        QWidget* parent = nullptr);

protected:
    void OnValuesRead() override;

private:
    void FollowMode();

    QComboBox* m_mode;
    QDoubleSpinBox* m_extrapolation;
    bool m_extrapolationWritable = false;
};

class PELL_EXPORT CTrackingPositioning_AdvancedRTKDlg : public CParameterDialog {
    Q_OBJECT
public:
    explicit CTrackingPositioning_AdvancedRTKDlg(std::shared_ptr<rxio::IReceiver> receiver,
                                                 QWidget* parent = nullptr);

    // The values the dialog shows; a field whose parameter the receiver lacks is left as it is.
    void Fill(AdvancedRTKStruct& values);

private:
    QComboBox* m_vrs;
    QDoubleSpinBox* m_ifBaseline;
    QCheckBox* m_weighting;
    QSpinBox* m_maxResidual;
};

// Heading from this receiver and a second one.
class PELL_EXPORT CTrackingPositioning_OrcaPP : public CParameterPage {
    Q_OBJECT
public:
    explicit CTrackingPositioning_OrcaPP(std::shared_ptr<rxio::IReceiver> receiver,
                                         QWidget* parent = nullptr);
};

// Heading from two antennas on this receiver; "Advanced" opens
// CTrackingPositioning_AdvancedKestrelDlg.
class PELL_EXPORT CTrackingPositioning_KestrelPP : public CParameterPage {
    Q_OBJECT
public:
    explicit CTrackingPositioning_KestrelPP(std::shared_ptr<rxio::IReceiver> receiver,
                                            QWidget* parent = nullptr);
};

class PELL_EXPORT CTrackingPositioning_AdvancedKestrelDlg : public CParameterDialog {
    Q_OBJECT
public:
    explicit CTrackingPositioning_AdvancedKestrelDlg(std::shared_ptr<rxio::IReceiver> receiver,
                                                     QWidget* parent = nullptr);
};

// The antenna input and its state.
class PELL_EXPORT CTrackingPositioning_AntPP : public CParameterPage {
    Q_OBJECT
public:
    explicit CTrackingPositioning_AntPP(std::shared_ptr<rxio::IReceiver> receiver,
                                        QWidget* parent = nullptr);
};

// Update rates, multipath reduction and tracking options; the anti-jamming mode's "Settings…"
// opens CTrackingPositioning_AntiJammingDlg.
class PELL_EXPORT CTrackingPositioning_AdvPP : public CParameterPage {
    Q_OBJECT
public:
    explicit CTrackingPositioning_AdvPP(std::shared_ptr<rxio::IReceiver> receiver,
                                        QWidget* parent = nullptr);
};

// The bands the anti-jamming filter works on.
class PELL_EXPORT CTrackingPositioning_AntiJammingDlg : public CParameterDialog {
    Q_OBJECT
public:
    explicit CTrackingPositioning_AntiJammingDlg(std::shared_ptr<rxio::IReceiver> receiver,
                                                 QWidget* parent = nullptr);
};

// How the receiver tracks satellites and computes positions: a page for each part the receiver
// has (docs/configuration.md).
class PELL_EXPORT CTrackingPositioningPS : public CParameterSheet {
    Q_OBJECT
public:
    explicit CTrackingPositioningPS(std::shared_ptr<rxio::IReceiver> receiver,
                                    QWidget* parent = nullptr);
};

// Shows the tracking and positioning sheet modally; IDOK or IDCANCEL.
PELL_EXPORT int run_TrackingPositioningPS(std::shared_ptr<rxio::IReceiver> receiver,
                                          QWidget* parent);

// Shows the advanced RTK dialog alone. OK writes what the user changed to the receiver and fills
// `values` with what the dialog shows; Cancel writes nothing and leaves `values` as it was.
// IDOK or IDCANCEL.
PELL_EXPORT int run_PositioningAdvancedRTKDlg(std::shared_ptr<rxio::IReceiver> receiver,
                                              QWidget* parent, AdvancedRTKStruct& values);
