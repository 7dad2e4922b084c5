#include "status/SatelliteToolTip.h"

#include "lib/PellLib.h"
#include "resources/StringIds.h"

#include <QGridLayout>
#include <QGuiApplication>
#include <QLabel>
#include <QPainter>
#include <QScreen>

CSatelliteToolTip::CSatelliteToolTip(QWidget* parent)
    : QFrame(parent, Qt::ToolTip | Qt::BypassGraphicsProxyWidget), m_icon(new QLabel),
      m_title(new QLabel), m_details(new QLabel), m_warning(new QLabel) {
    setFrameStyle(QFrame::Box | QFrame::Plain);
    setAutoFillBackground(true);
    setPalette(QPalette(QColor(255, 255, 225)));
    for (QLabel* label : {m_title, m_details, m_warning})
        label->setTextFormat(Qt::PlainText);
    QFont bold = m_title->font();
    bold.setBold(true);
    m_title->setFont(bold);
    QPalette red = m_warning->palette();
    red.setColor(QPalette::WindowText, QColor(255, 0, 0));
    m_warning->setPalette(red);
    m_warning->setWordWrap(true);
    m_warning->setText(g_PellLibApp.XLoadString(pell::ids::StatusScintillation));
    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(6, 5, 8, 6);
    layout->setHorizontalSpacing(6);
    layout->setVerticalSpacing(2);
    layout->addWidget(m_icon, 0, 0, Qt::AlignTop);
    layout->addWidget(m_title, 0, 1);
    layout->addWidget(m_details, 1, 1);
    layout->addWidget(m_warning, 2, 0, 1, 2);
}

void CSatelliteToolTip::SetSatellite(const CSatelliteInfoEx& satellite,
                                     CSatelliteImageLib& images) {
    m_usi = satellite.USI;
    const QSize size = CSatelliteImageLib::GetImageSize();
    QPixmap icon(size);
    icon.fill(Qt::transparent);
    {
        QPainter painter(&icon);
        images.Draw(painter, QPoint(0, 0), satellite.GetConstellation(false), satellite.SS,
                    satellite.Scintillation != 0);
    }
    m_icon->setPixmap(icon);
    // The long name: a tip has the room the list's columns lack.
    m_title->setText(QStringLiteral("%1 %2").arg(
        CSatelliteInfoEx::GetSystemX(satellite.GetConstellation(false), false),
        satellite.GetSVN()));
    QStringList lines{
        g_PellLibApp.XLoadString(pell::ids::StatusElevation).arg(satellite.GetElevation()),
        g_PellLibApp.XLoadString(pell::ids::StatusAzimuth).arg(satellite.GetAzimuth())};
    const QString meaning = satellite.GetSSFull();
    lines << g_PellLibApp.XLoadString(pell::ids::StatusCode)
                 .arg(meaning.isEmpty()
                          ? satellite.GetSS()
                          : QStringLiteral("%1 (%2)").arg(satellite.GetSS(), meaning));
    if (satellite.GetConstellation(false) == rxio::ISatListListener::SatelliteInfo::GLONASS)
        lines
            << g_PellLibApp.XLoadString(pell::ids::StatusFrequencyChannel).arg(satellite.GetFCN());
    m_details->setText(lines.join(QLatin1Char('\n')));
    m_warning->setVisible(satellite.Scintillation != 0);
    adjustSize();
}

void CSatelliteToolTip::ShowAt(const QPoint& globalPos) {
    adjustSize();
    QPoint at = globalPos + QPoint(14, 18);
    if (const QScreen* screen = QGuiApplication::screenAt(globalPos)) {
        const QRect area = screen->availableGeometry();
        if (at.x() + width() > area.right())
            at.setX(globalPos.x() - width() - 6);
        if (at.y() + height() > area.bottom())
            at.setY(globalPos.y() - height() - 6);
        at.setX(std::max(at.x(), area.left()));
        at.setY(std::max(at.y(), area.top()));
    }
    move(at);
    show();
}

QString CSatelliteToolTip::Text() const {
    QStringList parts{m_title->text(), m_details->text()};
    if (!m_warning->isHidden())
        parts << m_warning->text();
    return parts.join(QLatin1Char('\n'));
}
