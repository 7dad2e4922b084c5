#include "config/ReceiverSettingsImport_SelectFilePP.h"

#include "config/ReceiverSettingsImport_ProgressPP.h"
#include "config/ReceiverSettingsImport_SelectParametersPP.h"
#include "config/SettingsFile.h"
#include "lib/Common.h"
#include "lib/PellLib.h"
#include "resources/StringIds.h"

CReceiverSettingsImport_SelectFilePP::CReceiverSettingsImport_SelectFilePP(
    std::shared_ptr<rxio::IReceiver> receiver,
    CReceiverSettingsImport_SelectParametersPP& parameters, QWidget* parent)
    : CReceiverSettingsFilePage(std::move(receiver), pell::ids::SettingsImportFile,
                                pell::ids::SettingsImportFileHint, Open, parent),
      m_parameters(parameters) {}

int CReceiverSettingsImport_SelectFilePP::OnWizardNext() {
    QString error;
    auto document = VOXA2JSON::ReadSettingsFile(FilePath(), &error);
    if (!document) {
        g_PellLibApp.MessageBox(this, error, pell::MB_ICONERROR);
        return WizardStayOnPage;
    }
    m_parameters.SetDocument(std::make_shared<VOXA2JSON::SettingsDocument>(std::move(*document)));
    RememberFilePath();
    return WizardAdjacentPage;
}

CReceiverSettingsImportWizard::CReceiverSettingsImportWizard(
    std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent)
    : CPellPropertySheet(receiver, g_PellLibApp.XLoadString(pell::ids::SettingsImportWizard),
                         parent),
      m_parameters(new CReceiverSettingsImport_SelectParametersPP(receiver)),
      m_file(new CReceiverSettingsImport_SelectFilePP(receiver, *m_parameters)),
      m_progress(new CReceiverSettingsImport_ProgressPP(receiver, *m_parameters)) {
    SetWizardMode();
    AddPage(m_file);
    AddPage(m_parameters);
    AddPage(m_progress);
}

int run_ReceiverSettingsImportWizard(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent) {
    const CPellModuleState state;
    CPellWindow<CReceiverSettingsImportWizard> wizard(std::move(receiver), parent);
    return wizard.exec();
}
