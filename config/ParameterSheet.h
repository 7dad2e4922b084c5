#pragma once

#include "lib/PellPropertySheet.h"
#include "lib/pell_export.h"
#include "receiver/SettingsRestorer.h"
#include "receiver/VexReceiverMate.h"

#include <QStringList>
#include <exception>
#include <memory>

// A configuration sheet of parameter pages. Before the first value goes out it records the
// receiver's settings under its path masks; Apply and OK keep what they wrote; Cancel puts back
// whatever was written since the sheet opened or since the last Apply that went through whole,
// so a refused value never leaves its page's earlier values half applied. A receiver that is lost
// or announces a reset gets nothing put back.
class PELL_EXPORT CParameterSheet : public CPellPropertySheet {
    Q_OBJECT
public:
    CParameterSheet(std::shared_ptr<rxio::IReceiver> receiver, const QString& caption,
                    QStringList masks, QWidget* parent = nullptr);

    // Whether the receiver knows `path` ("list,<path>" answers without an error). A receiver that
    // does not answer at all fails the sheet's opening instead.
    bool Knows(const QString& path);
    // Called by a page before it writes: records the masks unless they are recorded already.
    void BeforeWriting();
    // The receiver went away: nothing can or should be put back.
    void ForgetRecord();

protected:
    void OnInitDialog() override;
    void OnDestroy() override;
    void OnChangesApplied() override;
    void OnConnectionLost() override;
    void OnReceiverGone() override;

private:
    QStringList m_masks;
    CVexReceiverMate m_mate;
    std::unique_ptr<pell::CSettingsRestorer<CVexReceiverMate>> m_restorer;
    std::exception_ptr m_openFailure;
};
