#include "lib/TipWindow.h"

#include <QApplication>
#include <QGuiApplication>
#include <QLabel>
#include <QScreen>
#include <QWidget>

CScopedTip::CScopedTip(QWidget* parent, const QString& text)
    : m_label(new QLabel(text, parent, Qt::ToolTip | Qt::FramelessWindowHint)) {
    m_label->setObjectName(QStringLiteral("tip"));
    m_label->setAlignment(Qt::AlignCenter);
    m_label->setMargin(12);
    m_label->setFrameShape(QFrame::Box);
    m_label->setAutoFillBackground(true);
    m_label->setBackgroundRole(QPalette::ToolTipBase);
    m_label->setForegroundRole(QPalette::ToolTipText);
    m_label->adjustSize();
    const QRect area = parent && parent->isVisible()
                           ? QRect(parent->mapToGlobal(QPoint(0, 0)), parent->size())
                           : QGuiApplication::primaryScreen()->availableGeometry();
    m_label->move(area.center() - m_label->rect().center());
    m_label->show();
    m_label->repaint();
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

CScopedTip::~CScopedTip() {
    delete m_label.data();
}
