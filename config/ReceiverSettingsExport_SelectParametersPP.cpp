#include "config/ReceiverSettingsExport_SelectParametersPP.h"

#include "lib/Common.h"
#include "lib/Exceptions.h"
#include "lib/PellLib.h"
#include "resources/StringIds.h"

#include <QLabel>
#include <QProgressBar>
#include <QTimer>

CReceiverSettingsExport_SelectParametersPP::CReceiverSettingsExport_SelectParametersPP(
    std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent)
    : CReceiverSettingsParametersPage(std::move(receiver), pell::ids::SettingsExportParameters,
                                      pell::ids::SettingsExportParametersHint,
                                      VOXA2JSON::EDirection::Export, parent) {}

void CReceiverSettingsExport_SelectParametersPP::OnInitDialog() {
    CReceiverSettingsParametersPage::OnInitDialog();
    // From the event loop, not from inside the sheet's own handling: Cancel stays clickable.
    if (Root())
        QTimer::singleShot(0, this, &CReceiverSettingsExport_SelectParametersPP::ReadValues);
}

void CReceiverSettingsExport_SelectParametersPP::OnSetActive() {
    CReceiverSettingsParametersPage::OnSetActive();
    GetSheet()->SetWizardButtons(m_read ? pell::PSWIZB_NEXT : 0);
}

// Every variable is read, checked or not, so that checking one later needs no second reading.
void CReceiverSettingsExport_SelectParametersPP::ReadValues() {
    std::vector<VOXA2JSON::Variable*> variables = VOXA2JSON::AllVariables(*Root());
    std::erase_if(variables, [](const VOXA2JSON::Variable* variable) {
        return variable->Has(VOXA2JSON::WriteOnly);
    });
    const int total = int(variables.size());
    Progress().setRange(0, std::max(total, 1));
    try {
        for (int i = 0; i < total && !CancelRequested(); ++i) {
            Status().setText(
                g_PellLibApp.XLoadString(pell::ids::SettingsReading).arg(i + 1).arg(total));
            VOXA2JSON::ReadVariable(*variables[i], Accessor());
            Tree().UpdateVariable(*variables[i]);
            Progress().setValue(i + 1);
        }
    } catch (const ulm_std::CWinException& error) {
        // Cancelled, or the connection went and its notice closes the wizard.
        if (error.GetErrorCode() != pell::ERROR_CANCELLED &&
            error.GetErrorCode() != pell::ERROR_DEV_NOT_EXIST)
            error.ReportError(this);
        return;
    }
    if (CancelRequested())
        return;
    m_read = true;
    Progress().setValue(Progress().maximum());
    Status().setText(g_PellLibApp.XLoadString(pell::ids::SettingsRead).arg(total));
    if (GetSheet()->GetActivePage() == this)
        GetSheet()->SetWizardButtons(pell::PSWIZB_NEXT);
    emit readingDone();
}
