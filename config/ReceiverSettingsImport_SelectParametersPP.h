#pragma once

#include "config/ReceiverSettingsParametersPage.h"

#include <memory>

namespace VOXA2JSON {
class SettingsDocument;
}

// The import wizard's second page: the dictionary's tree, checked by DONOTIMPORTBYDEFAULT, with
// the values of the file chosen on the page before.
class PELL_EXPORT CReceiverSettingsImport_SelectParametersPP
    : public CReceiverSettingsParametersPage {
    Q_OBJECT
public:
    explicit CReceiverSettingsImport_SelectParametersPP(std::shared_ptr<rxio::IReceiver> receiver,
                                                        QWidget* parent = nullptr);

    // The file's values, taken into the tree when the page shows.
    void SetDocument(std::shared_ptr<const VOXA2JSON::SettingsDocument> document);

protected:
    void OnSetActive() override;

private:
    std::shared_ptr<const VOXA2JSON::SettingsDocument> m_document;
};
