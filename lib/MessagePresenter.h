#pragma once

#include "lib/pell_export.h"

#include <QString>
#include <memory>

class QWidget;

namespace pell {

// Every message box of the library goes through the current presenter, so that tests (and hosts
// that show messages their own way) can replace the modal box.
class PELL_EXPORT IMessagePresenter {
public:
    virtual ~IMessagePresenter();
    // `style` combines one MB_ button set and one MB_ICON value; returns an ID result.
    virtual int Show(QWidget* owner, const QString& caption, const QString& text,
                     unsigned style) = 0;
};

// The modal QMessageBox.
class PELL_EXPORT CQtMessagePresenter final : public IMessagePresenter {
public:
    int Show(QWidget* owner, const QString& caption, const QString& text, unsigned style) override;
};

// The presenter in use; never null.
PELL_EXPORT IMessagePresenter& MessagePresenter();
// Installs `presenter` (null restores the modal box) and returns the one it replaces.
PELL_EXPORT std::shared_ptr<IMessagePresenter>
SetMessagePresenter(std::shared_ptr<IMessagePresenter> presenter);

} // namespace pell
