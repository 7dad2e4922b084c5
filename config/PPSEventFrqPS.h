#pragma once

#include "config/ParameterPage.h"
#include "config/ParameterSheet.h"
#include "lib/pell_export.h"

class QCheckBox;
class QSpinBox;

// One pulse-per-second output, channel "a" or "b": the templates hold "%c" for the letter.
class PELL_EXPORT CPPS_PP : public CParameterPage {
    Q_OBJECT
public:
    CPPS_PP(std::shared_ptr<rxio::IReceiver> receiver, char channel, QWidget* parent = nullptr);

protected:
    void OnValuesRead() override;

private:
    QCheckBox* m_marked;
    QSpinBox* m_markedPeriod;
};

// One event marker input, channel "a" or "b".
class PELL_EXPORT CEventPP : public CParameterPage {
    Q_OBJECT
public:
    CEventPP(std::shared_ptr<rxio::IReceiver> receiver, char channel, QWidget* parent = nullptr);
};

// The external frequency input and the oscillator's offset reduction.
class PELL_EXPORT CFrqPP : public CParameterPage {
    Q_OBJECT
public:
    explicit CFrqPP(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent = nullptr);
};

// The receiver's timing signals: a PPS page and an event page for each channel it has, and the
// frequency page when it has an external frequency input.
class PELL_EXPORT CPPSEventFrqPS : public CParameterSheet {
    Q_OBJECT
public:
    explicit CPPSEventFrqPS(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent = nullptr);

    // The path of a channel's command template: "dev/pps/%c/out" with 'b' → "dev/pps/b/out".
    static QString ChannelPath(const char* pathTemplate, char channel);
};

// Shows the timing signals sheet modally; IDOK or IDCANCEL.
PELL_EXPORT int run_PPSEventFrqPS(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent);
