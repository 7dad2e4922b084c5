#pragma once

#include "config/ParameterPage.h"
#include "lib/Common.h"
#include "lib/PellDialog.h"
#include "lib/pell_export.h"
#include "receiver/SettingsRestorer.h"
#include "receiver/VexReceiverMate.h"

#include <functional>
#include <memory>
#include <utility>

// A dialog of receiver parameters over OK and Cancel. Its controls are bound in a parameter
// page that fills the dialog (Body()), so it reads, writes and shows a refusal the way a page
// does. OK writes what the user changed and closes, or stays open with the refused control
// marked. Before its first write it records its own parameters, so an OK the receiver refuses
// half way has what it wrote put back when the dialog is cancelled. Opened from a page of a
// parameter sheet, the sheet records its masks as well, so the sheet's Cancel puts back what the
// dialog's OK kept.
class PELL_EXPORT CParameterDialog : public CPellDialog {
    Q_OBJECT
public:
    CParameterDialog(std::shared_ptr<rxio::IReceiver> receiver, const QString& caption,
                     QWidget* parent = nullptr);

    CParameterPage& Body() { return *m_body; }
    // OK sent at least one value (perhaps refused).
    bool Wrote() const { return m_wrote; }

    void accept() override;

protected:
    void OnInitDialog() override;
    void OnDestroy() override;
    void OnConnectionLost() override;
    void OnReceiverGone() override;

private:
    // Lets go of the record: nothing is put back.
    void ForgetRecord();

    CParameterPage* m_body;
    // Alone: the dialog's parameters as they were before its first write, until OK goes through.
    std::unique_ptr<pell::CSettingsRestorer<CVexReceiverMate>> m_restorer;
    bool m_wrote = false;
};

// Opens a parameter dialog from a page and marks the page modified when the dialog's OK wrote, so
// the sheet's Apply keeps the values and its Cancel puts them back; `written` then lets the page
// show what the dialog wrote. `args` follow the receiver and the page in the dialog's
// constructor. Returns IDOK or IDCANCEL.
template <class Dialog, class... Args>
int RunParameterDialog(
    CParameterPage& page, const std::function<void(Dialog&)>& written = [](Dialog&) {},
    Args&&... args) {
    CPellWindow<Dialog> dialog(page.GetReceiver(), &page, std::forward<Args>(args)...);
    const int result = dialog.exec();
    if (result == pell::IDOK && dialog.Wrote()) {
        page.SetModified(true);
        if (written)
            written(dialog);
    }
    return result;
}
