#include "lib/DialogBase.h"

#include "lib/Common.h"
#include "lib/WindowPlacement.h"

#include <QScopedValueRollback>
#include <QShowEvent>

CDialogBase::CDialogBase(QWidget* parent) : QDialog(parent) {}

CDialogBase::~CDialogBase() = default;

void CDialogBase::OnInitDialog() {}

void CDialogBase::HandleInitDialog() {
    OnInitDialog();
}

void CDialogBase::OnDestroy() {}

void CDialogBase::showEvent(QShowEvent* event) {
    if (m_state != EState::Closed) {
        QDialog::showEvent(event);
        return;
    }
    m_state = EState::Open;
    m_endAfterInit.reset();
    // Placed before QDialog centres it over its parent.
    pell::RestoreWindowPlacement(*this);
    QDialog::showEvent(event);
    {
        const QScopedValueRollback initialising(m_initialising, true);
        HandleInitDialog();
    }
    if (m_endAfterInit) {
        // exec() has not started its event loop yet: ending now would leave that loop running
        // for a hidden window.
        QMetaObject::invokeMethod(
            this, [this, result = *m_endAfterInit] { done(result); }, Qt::QueuedConnection);
    }
}

void CDialogBase::done(int result) {
    if (m_initialising) {
        if (!m_endAfterInit)
            m_endAfterInit = result;
        return;
    }
    switch (m_state) {
    case EState::Closed:
        return;
    case EState::Closing:
        m_closingResult = result;
        return;
    case EState::Open:
        break;
    }
    m_state = EState::Closing;
    m_closingResult = result;
    pell::SaveWindowPlacement(*this);
    OnDestroy();
    m_state = EState::Closed;
    QDialog::done(m_closingResult);
}

void CDialogBase::reject() {
    done(pell::IDCANCEL);
}
