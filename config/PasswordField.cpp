#include "config/PasswordField.h"

#include "lib/PellLib.h"
#include "resources/StringIds.h"

#include <QAction>
#include <QIcon>
#include <QLineEdit>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

namespace {

// An eye in the field's text colour; struck through while the password shows.
QIcon Eye(const QLineEdit& edit, bool struck) {
    constexpr int kSize = 64;
    QPixmap pixmap(kSize, kSize);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor colour = edit.palette().color(QPalette::Text);
    painter.setPen(QPen(colour, 5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    QPainterPath lids;
    lids.moveTo(6, 32);
    lids.quadTo(32, 4, 58, 32);
    lids.quadTo(32, 60, 6, 32);
    painter.drawPath(lids);
    painter.setBrush(colour);
    painter.drawEllipse(QPointF(32, 32), 9, 9);
    if (struck)
        painter.drawLine(12, 54, 52, 10);
    return QIcon(pixmap);
}

} // namespace

void MaskPassword(QLineEdit* edit) {
    edit->setEchoMode(QLineEdit::Password);
    auto* reveal = edit->addAction(Eye(*edit, false), QLineEdit::TrailingPosition);
    reveal->setObjectName(QStringLiteral("revealPassword"));
    reveal->setCheckable(true);
    reveal->setToolTip(g_PellLibApp.XLoadString(pell::ids::PasswordShow));
    QObject::connect(reveal, &QAction::toggled, edit, [edit, reveal](bool shown) {
        edit->setEchoMode(shown ? QLineEdit::Normal : QLineEdit::Password);
        reveal->setIcon(Eye(*edit, shown));
        reveal->setToolTip(
            g_PellLibApp.XLoadString(shown ? pell::ids::PasswordHide : pell::ids::PasswordShow));
    });
}
