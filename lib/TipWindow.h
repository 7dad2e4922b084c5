#pragma once

#include "lib/pell_export.h"

#include <QPointer>
#include <QString>

class QLabel;
class QWidget;

// A short note ("Detecting Bluetooth LE") shown over `parent` while a slow step runs on the
// window's thread, painted at once and removed when the object goes.
class PELL_EXPORT CScopedTip {
public:
    CScopedTip(QWidget* parent, const QString& text);
    ~CScopedTip();
    CScopedTip(const CScopedTip&) = delete;
    CScopedTip& operator=(const CScopedTip&) = delete;

private:
    QPointer<QLabel> m_label;
};
