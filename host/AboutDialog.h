#pragma once

#include <QDialog>

namespace dorrit {

// Names, version line and build date of the library the host runs.
class AboutDialog final : public QDialog {
    Q_OBJECT
public:
    explicit AboutDialog(QWidget* parent = nullptr);
};

} // namespace dorrit
