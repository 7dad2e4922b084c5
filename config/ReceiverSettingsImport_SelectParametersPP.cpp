#include "config/ReceiverSettingsImport_SelectParametersPP.h"

#include "lib/PellLib.h"
#include "resources/StringIds.h"

#include <QLabel>
#include <QProgressBar>

CReceiverSettingsImport_SelectParametersPP::CReceiverSettingsImport_SelectParametersPP(
    std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent)
    : CReceiverSettingsParametersPage(std::move(receiver), pell::ids::SettingsImportParameters,
                                      pell::ids::SettingsImportParametersHint,
                                      VOXA2JSON::EDirection::Import, parent) {
    Tree().SetMissingText(g_PellLibApp.XLoadString(pell::ids::SettingsNotInFile));
    Progress().hide();
    Status().hide();
}

void CReceiverSettingsImport_SelectParametersPP::SetDocument(
    std::shared_ptr<const VOXA2JSON::SettingsDocument> document) {
    m_document = std::move(document);
}

void CReceiverSettingsImport_SelectParametersPP::OnSetActive() {
    CReceiverSettingsParametersPage::OnSetActive();
    if (Root() && m_document) {
        VOXA2JSON::TakeValues(*Root(), *m_document);
        Tree().UpdateValues();
    }
}
