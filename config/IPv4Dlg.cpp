#include "config/IPv4Dlg.h"

#include "lib/PellLib.h"
#include "resources/StringIds.h"

#include <QFormLayout>
#include <QLineEdit>
#include <QRegularExpression>
#include <QRegularExpressionValidator>
#include <QVBoxLayout>
#include <array>

namespace {

unsigned NameId(EIPv4Field field) {
    switch (field) {
    case EIPv4Field::Address:
        return pell::ids::NetworkIpAddress;
    case EIPv4Field::Mask:
        return pell::ids::NetworkIpMask;
    case EIPv4Field::Gateway:
        return pell::ids::NetworkGateway;
    case EIPv4Field::Dns:
        break;
    }
    return pell::ids::NetworkDns;
}

} // namespace

QString IPv4Refusal(EIPv4Field field, const QString& text) {
    // Anchored as a whole: "$" would let a trailing line break through.
    static const QRegularExpression dotted(QRegularExpression::anchoredPattern(
        QStringLiteral(R"((0|[1-9][0-9]{0,2})\.(0|[1-9][0-9]{0,2})\.(0|[1-9][0-9]{0,2})\.)"
                       R"((0|[1-9][0-9]{0,2}))")));
    const QRegularExpressionMatch match = dotted.match(text);
    bool fits = match.hasMatch();
    quint32 value = 0;
    for (int part = 1; fits && part <= 4; ++part) {
        const int number = match.captured(part).toInt();
        fits = number <= 255;
        value = value << 8 | quint32(number);
    }
    // A mask is ones from the top: its complement plus one is a power of two (or zero).
    if (fits && field == EIPv4Field::Mask)
        fits = ((~value + 1) & ~value) == 0;
    return fits ? QString() : XString(pell::ids::NetworkInvalidValue).arg(XString(NameId(field)));
}

void BindIPv4(CParameterPage& page, QLineEdit* edit, const QString& path, EIPv4Field field) {
    edit->setValidator(
        new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[0-9.]{0,15}")), edit));
    edit->setMinimumWidth(edit->fontMetrics().horizontalAdvance(QStringLiteral("000.000.000.000")) +
                          edit->fontMetrics().height() * 2);
    page.BindText(edit, path, [field](const QString& text) { return IPv4Refusal(field, text); });
}

CIPv4Dlg::CIPv4Dlg(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent,
                   const QString& caption, const Paths& paths)
    : CParameterDialog(std::move(receiver), caption, parent) {
    auto* page = new QVBoxLayout(&Body());
    QFormLayout* form = CParameterPage::Form(nullptr);
    page->addLayout(form);
    const std::array<std::pair<EIPv4Field, const QString*>, 4> fields = {{
        {EIPv4Field::Address, &paths.address},
        {EIPv4Field::Mask, &paths.mask},
        {EIPv4Field::Gateway, &paths.gateway},
        {EIPv4Field::Dns, &paths.dns},
    }};
    for (const auto& [field, path] : fields) {
        if (path->isEmpty())
            continue;
        auto* edit = new QLineEdit;
        form->addRow(XString(NameId(field)) + QLatin1Char(':'), edit);
        BindIPv4(Body(), edit, *path, field);
        if (field == EIPv4Field::Address)
            m_address = edit;
        else if (field == EIPv4Field::Mask)
            m_mask = edit;
    }
}

QString CIPv4Dlg::Address() const {
    return m_address ? m_address->text() : QString();
}

QString CIPv4Dlg::Mask() const {
    return m_mask ? m_mask->text() : QString();
}
