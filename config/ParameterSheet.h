#pragma once

#include "lib/PellPropertySheet.h"
#include "lib/pell_export.h"
#include "receiver/SettingsRestorer.h"
#include "receiver/VexReceiverMate.h"

#include <QHash>
#include <QSet>
#include <QStringList>
#include <exception>
#include <memory>

class CParameterPage;

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
    // A receiver that did not answer while the pages were chosen: the sheet reports it when it
    // opens, and closes.
    bool Unanswered() const { return bool(m_openFailure); }
    // Called by a page before it writes: records the masks unless they are recorded already.
    void BeforeWriting();
    // The receiver went away: nothing can or should be put back.
    void ForgetRecord();

    // Changes that take effect only after a receiver reset ("print,<leaf>&reset" answers "y")
    // are written only once the user says Yes to `question`; the receiver is then reset when the
    // sheet closes, unless what needed it was put back.
    void AskBeforeReset(const QString& question);
    // Called by a page (or a dialog's table) before it writes: asks the question when its changes
    // or those of the sheet's other modified pages need a reset the user has not agreed to yet.
    // False for No: nothing is to be written.
    bool ConfirmReset(CParameterPage& writer);

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
    QString m_resetQuestion;
    QHash<QString, bool> m_needsReset;
    // Parameters needing a reset the user agreed to write since the last complete Apply.
    QSet<QString> m_agreedToReset;
    // A complete Apply kept such a parameter: the receiver is reset on closing.
    bool m_resetOwed = false;
};
