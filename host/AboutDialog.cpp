#include "AboutDialog.h"

#include "AppIcon.h"
#include "lib/PellLibDoc.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace dorrit {

AboutDialog::AboutDialog(QWidget* parent) : QDialog(parent) {
    setWindowTitle(tr("About %1").arg(CPellLibDoc::GetShortApplicationName(true)));

    auto* mark = new QLabel;
    mark->setPixmap(AppMark(96));
    mark->setAlignment(Qt::AlignTop);

    auto* name = new QLabel(CPellLibDoc::GetShortApplicationName(true));
    QFont nameFont = name->font();
    nameFont.setPointSizeF(nameFont.pointSizeF() * 1.8);
    nameFont.setBold(true);
    name->setFont(nameFont);

    auto* maker = new QLabel(CPellLibDoc::GetLongApplicationName(true));
    auto* version = new QLabel(CPellLibDoc::GetApplicationVersion(true));
    auto* built = new QLabel(tr("Built on %1").arg(CPellLibDoc::GetBuildDate()));
    auto* purpose =
        new QLabel(tr("Configures and monitors a GNSS receiver from a field computer."));
    purpose->setWordWrap(true);
    for (QLabel* label : {maker, version, built, purpose})
        label->setTextInteractionFlags(Qt::TextSelectableByMouse);

    auto* texts = new QVBoxLayout;
    texts->addWidget(name);
    texts->addWidget(maker);
    texts->addSpacing(8);
    texts->addWidget(version);
    texts->addWidget(built);
    texts->addSpacing(8);
    texts->addWidget(purpose);
    texts->addStretch();

    auto* body = new QHBoxLayout;
    body->setSpacing(20);
    body->addWidget(mark);
    body->addLayout(texts, 1);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(20, 20, 20, 12);
    layout->addLayout(body);
    layout->addWidget(buttons);
    setMinimumWidth(420);
}

} // namespace dorrit
