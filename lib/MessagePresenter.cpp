#include "lib/MessagePresenter.h"

#include "lib/Common.h"
#include "lib/Replaceable.h"

#include <QMessageBox>

namespace pell {

namespace {

CReplaceable<IMessagePresenter, CQtMessagePresenter>& Presenter() {
    static CReplaceable<IMessagePresenter, CQtMessagePresenter> presenter;
    return presenter;
}

QMessageBox::Icon IconOf(unsigned style) {
    switch (style & MB_ICONMASK) {
    case MB_ICONERROR:
        return QMessageBox::Critical;
    case MB_ICONQUESTION:
        return QMessageBox::Question;
    case MB_ICONWARNING:
        return QMessageBox::Warning;
    case MB_ICONINFORMATION:
        return QMessageBox::Information;
    default:
        return QMessageBox::NoIcon;
    }
}

struct ButtonSet {
    QMessageBox::StandardButtons buttons;
    QMessageBox::StandardButton escape;
};

ButtonSet ButtonsOf(unsigned style) {
    switch (style & MB_TYPEMASK) {
    case MB_OKCANCEL:
        return {QMessageBox::Ok | QMessageBox::Cancel, QMessageBox::Cancel};
    case MB_YESNOCANCEL:
        return {QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::Cancel};
    case MB_YESNO:
        return {QMessageBox::Yes | QMessageBox::No, QMessageBox::No};
    case MB_RETRYCANCEL:
        return {QMessageBox::Retry | QMessageBox::Cancel, QMessageBox::Cancel};
    default:
        return {QMessageBox::Ok, QMessageBox::Ok};
    }
}

int ResultOf(int button) {
    switch (button) {
    case QMessageBox::Ok:
        return IDOK;
    case QMessageBox::Yes:
        return IDYES;
    case QMessageBox::No:
        return IDNO;
    case QMessageBox::Retry:
        return IDRETRY;
    default:
        return IDCANCEL;
    }
}

} // namespace

IMessagePresenter::~IMessagePresenter() = default;

int CQtMessagePresenter::Show(QWidget* owner, const QString& caption, const QString& text,
                              unsigned style) {
    const ButtonSet set = ButtonsOf(style);
    QMessageBox box(IconOf(style), caption, text, set.buttons, owner);
    box.setEscapeButton(set.escape);
    if ((style & MB_DEFBUTTON2) && (style & MB_TYPEMASK) == MB_YESNO)
        box.setDefaultButton(QMessageBox::No);
    return ResultOf(box.exec());
}

IMessagePresenter& MessagePresenter() {
    return Presenter().Get();
}

std::shared_ptr<IMessagePresenter>
SetMessagePresenter(std::shared_ptr<IMessagePresenter> presenter) {
    return Presenter().Set(std::move(presenter));
}

} // namespace pell
