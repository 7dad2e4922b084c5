#pragma once

#include "lib/pell_export.h"

#include <QDialog>
#include <optional>

// A window of the library that a run_ entry executes: initialised when it opens, ended with the
// result codes of lib/Common.h (IDOK, IDCANCEL, ...) that exec() returns, and opened where it last
// closed (lib/WindowPlacement.h).
class PELL_EXPORT CDialogBase : public QDialog {
    Q_OBJECT
public:
    explicit CDialogBase(QWidget* parent = nullptr);
    ~CDialogBase() override;

    // Ends the window: exec() returns `result`. The first end wins; only a handler that runs while
    // the window closes may still change the result. Ending a window that is not open does
    // nothing.
    void EndDialog(int result) { done(result); }
    // The result the window is closing or closed with; 0 while it is open.
    int ClosingResult() const { return m_closingResult; }
    void done(int result) override;
    // Escape and the window's close button end it with IDCANCEL.
    void reject() override;

protected:
    // Called when the window opens, before exec() starts its event loop.
    virtual void OnInitDialog();
    // How the window calls OnInitDialog; a window that guards its handlers wraps this call.
    virtual void HandleInitDialog();
    // Called when the window closes, while it is still on screen.
    virtual void OnDestroy();

    void showEvent(QShowEvent* event) override;

private:
    enum class EState { Closed, Open, Closing };

    EState m_state = EState::Closed;
    bool m_initialising = false;
    std::optional<int> m_endAfterInit;
    int m_closingResult = 0;
};
