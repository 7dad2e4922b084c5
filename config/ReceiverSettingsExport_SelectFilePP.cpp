#include "config/ReceiverSettingsExport_SelectFilePP.h"

#include "config/ReceiverSettingsExport_SelectParametersPP.h"
#include "config/SettingsFile.h"
#include "lib/Common.h"
#include "lib/PellLib.h"
#include "resources/StringIds.h"

CReceiverSettingsExport_SelectFilePP::CReceiverSettingsExport_SelectFilePP(
    std::shared_ptr<rxio::IReceiver> receiver,
    CReceiverSettingsExport_SelectParametersPP& parameters, QWidget* parent)
    : CReceiverSettingsFilePage(std::move(receiver), pell::ids::SettingsExportFile,
                                pell::ids::SettingsExportFileHint, Save, parent),
      m_parameters(parameters) {}

void CReceiverSettingsExport_SelectFilePP::OnSetActive() {
    CReceiverSettingsFilePage::OnSetActive();
    GetSheet()->SetWizardButtons(pell::PSWIZB_BACK | pell::PSWIZB_FINISH);
    SetSummary(g_PellLibApp.XLoadString(pell::ids::SettingsWillBeSaved)
                   .arg(VOXA2JSON::SelectedValueCount(*m_parameters.Root())));
}

// A file that cannot be written is said so and the page stays, so the user can choose another
// place instead of losing the values read.
bool CReceiverSettingsExport_SelectFilePP::OnWizardFinish() {
    QString error;
    if (!VOXA2JSON::WriteSettingsFile(FilePath(), VOXA2JSON::BuildJson(*m_parameters.Root()),
                                      &error)) {
        g_PellLibApp.MessageBox(this, error, pell::MB_ICONERROR);
        return false;
    }
    g_PellLibApp.MessageBox(this, g_PellLibApp.XLoadString(pell::ids::SettingsFileSaved),
                            pell::MB_ICONINFORMATION);
    RememberFilePath();
    return true;
}

CReceiverSettingsExportWizard::CReceiverSettingsExportWizard(
    std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent)
    : CPellPropertySheet(receiver, g_PellLibApp.XLoadString(pell::ids::SettingsExportWizard),
                         parent),
      m_parameters(new CReceiverSettingsExport_SelectParametersPP(receiver)),
      m_file(new CReceiverSettingsExport_SelectFilePP(receiver, *m_parameters)) {
    SetWizardMode();
    AddPage(m_parameters);
    AddPage(m_file);
}

int run_ReceiverSettingsExportWizard(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent) {
    const CPellModuleState state;
    CPellWindow<CReceiverSettingsExportWizard> wizard(std::move(receiver), parent);
    return wizard.exec();
}
