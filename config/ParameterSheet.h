#pragma once

#include "lib/PellPropertySheet.h"
#include "lib/pell_export.h"
#include "receiver/SettingsRestorer.h"
#include "receiver/VexReceiverMate.h"

#include <QStringList>
#include <optional>

// A configuration sheet of parameter pages that records the receiver's settings under its path
// masks when it opens. Apply and OK keep what they wrote; Cancel puts back whatever was written
// since the sheet opened or since the last Apply that went through whole, so a refused value
// never leaves its page's earlier values half applied.
class PELL_EXPORT CParameterSheet : public CPellPropertySheet {
    Q_OBJECT
public:
    CParameterSheet(std::shared_ptr<rxio::IReceiver> receiver, const QString& caption,
                    QStringList masks, QWidget* parent = nullptr);

    // Whether the receiver knows `path` ("list,<path>" answers without an error).
    bool Knows(const QString& path) const;

protected:
    void OnInitDialog() override;
    void OnDestroy() override;
    void OnChangesApplied() override;

private:
    void Record();
    void PutBack();

    QStringList m_masks;
    CVexReceiverMate m_mate;
    std::optional<pell::CSettingsRestorer<CVexReceiverMate>> m_restorer;
};
