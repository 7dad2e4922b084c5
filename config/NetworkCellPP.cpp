#include "config/NetworkPS.h"
#include "lib/Exceptions.h"
#include "lib/PellLib.h"
#include "lib/SettingsStore.h"
#include "lib/Translator.h"
#include "receiver/VexCommands.h"
#include "receiver/VexReceiverMate.h"
#include "resources/StringIds.h"

#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

using namespace rxio::vex;
namespace ids = pell::ids;

const QString kViewModeValue = QStringLiteral("ViewMode");

// The value of `path` as text; empty when the receiver has no such value.
QString Read(const CVexReceiverMate& mate, const QString& path) {
    try {
        return mate.Run(pell::vexcmd::Print(path), CVexReceiverMate::RemoveQuotes);
    } catch (const ulm_std::CCommException&) {
        return {};
    }
}

// A receiver word by its display name when the enumeration knows it.
QString Named(const EnumTable& table, const QString& word) {
    const int value = table.Parse(word, -1);
    return value < 0 ? word : ulm_std::CTranslatorInstance::Ref().XlateEx(table.Name(value));
}

// What the modem profile variables the receivers use are for.
QString Description(const QString& name) {
    static const std::pair<const char*, unsigned> known[] = {
        {"apn", ids::NetworkVarApn},         {"user", ids::NetworkVarUser},
        {"passwd", ids::NetworkVarPassword}, {"pin", ids::NetworkVarPin},
        {"dial", ids::NetworkVarDial},       {"band", ids::NetworkVarBand},
        {"retry", ids::NetworkVarRetry},     {"timeout", ids::NetworkVarTimeout},
    };
    for (const auto& [word, id] : known)
        if (name == QLatin1String(word))
            return XString(id);
    return {};
}

// Secrets are not read over the user's shoulder from a status list.
bool IsSecret(const QString& name) {
    return name == QLatin1String("passwd") || name == QLatin1String("pin");
}

} // namespace

CNetworkCellPP::CNetworkCellPP(std::shared_ptr<rxio::IReceiver> receiver, QWidget* parent)
    : CParameterPage(std::move(receiver), XString(ids::NetworkCellPage), parent),
      m_view(new QComboBox),
      m_modems(List({XString(ids::NetworkColumnSlot), XString(ids::NetworkColumnHardware),
                     XString(ids::NetworkColumnState), XString(ids::NetworkColumnReport),
                     XString(ids::NetworkColumnProfile), XString(ids::NetworkColumnScript)})),
      m_profile(List({XString(ids::NetworkColumnName), XString(ids::NetworkColumnId),
                      XString(ids::NetworkColumnValue), XString(ids::NetworkColumnDescription)})),
      m_profileArea(nullptr) {
    m_view->addItem(XString(ids::NetworkViewModems), Modems);
    m_view->addItem(XString(ids::NetworkViewProfile), ModemsAndProfile);
    auto* refresh = new QPushButton(XString(ids::NetworkRefresh));
    refresh->setObjectName(QStringLiteral("refreshButton"));

    auto* page = new QVBoxLayout(this);
    auto* top = new QHBoxLayout;
    auto* viewLabel = new QLabel(XString(ids::NetworkView));
    viewLabel->setBuddy(m_view);
    top->addWidget(viewLabel);
    top->addWidget(m_view);
    top->addStretch();
    top->addWidget(refresh);
    page->addLayout(top);
    page->addWidget(m_modems, 1);
    QGroupBox* profile = Group(XString(ids::NetworkProfileGroup), page);
    m_profileArea = profile;
    auto* profileLayout = new QVBoxLayout(profile);
    profileLayout->addWidget(m_profile);
    page->setStretchFactor(profile, 2);

    connect(m_view, &QComboBox::currentIndexChanged, this, [this] {
        SetViewMode(EViewMode(m_view->currentData().toInt()));
        pell::CQSettingsStore().WriteDword(
            QStringLiteral("private\\") + QLatin1String(metaObject()->className()), kViewModeValue,
            std::uint32_t(m_view->currentData().toInt()));
    });
    connect(m_modems, &QTreeWidget::currentItemChanged, this,
            [this] { RunUserAction([this] { ShowProfile(); }); });
    connect(refresh, &QPushButton::clicked, this, [this] { RunUserAction([this] { Refresh(); }); });
}

void CNetworkCellPP::SetViewMode(EViewMode mode) {
    m_view->setCurrentIndex(m_view->findData(mode));
    m_profileArea->setVisible(mode == ModemsAndProfile);
}

void CNetworkCellPP::OnInitDialog() {
    const std::uint32_t mode =
        pell::CQSettingsStore()
            .ReadDword(QStringLiteral("private\\") + QLatin1String(metaObject()->className()),
                       kViewModeValue)
            .value_or(ModemsAndProfile);
    {
        const QSignalBlocker reading(m_view); // what was remembered needs no remembering
        SetViewMode(mode == Modems ? Modems : ModemsAndProfile);
    }
    CParameterPage::OnInitDialog();
}

void CNetworkCellPP::OnValuesRead() {
    const QString selected = m_modems->currentItem() ? m_modems->currentItem()->text(0) : QString();
    const QSignalBlocker filling(m_modems);
    m_modems->clear();
    const CVexReceiverMate mate(GetReceiver());
    QStringList modems;
    try {
        modems =
            CVexReceiverMate::SplitList(mate.Run(pell::vexcmd::List(QStringLiteral("dev/modem"))));
    } catch (const ulm_std::CCommException& error) {
        m_modems->setToolTip(error.GetReply());
    }
    for (const QString& letter : modems) {
        const QString node = QStringLiteral("dev/modem/") + letter + QLatin1Char('/');
        QString hardware = Read(mate, node + QLatin1String("hw"));
        if (hardware.isEmpty())
            hardware = Named(TableOf(EModem{}), Read(mate, node + QLatin1String("type")));
        auto* item = new QTreeWidgetItem(
            m_modems, {letter.toUpper(), hardware,
                       Named(TableOf(EMState{}), Read(mate, node + QLatin1String("cur/state"))),
                       Read(mate, node + QLatin1String("cur/report")),
                       Read(mate, node + QLatin1String("profile")),
                       Read(mate, node + QLatin1String("cur/script"))});
        item->setData(0, Qt::UserRole, node);
        if (item->text(0) == selected || !m_modems->currentItem())
            m_modems->setCurrentItem(item);
    }
    FitColumns(m_modems);
    ShowProfile();
}

void CNetworkCellPP::ShowProfile() {
    m_profile->clear();
    const QTreeWidgetItem* modem = m_modems->currentItem();
    if (!modem)
        return;
    const QString variables = modem->data(0, Qt::UserRole).toString() + QLatin1String("var");
    const CVexReceiverMate mate(GetReceiver());
    QStringList indices;
    try {
        indices = CVexReceiverMate::SplitList(mate.Run(pell::vexcmd::List(variables)));
    } catch (const ulm_std::CCommException& error) {
        m_profile->setToolTip(error.GetReply());
    }
    for (const QString& index : indices) {
        const QString node = variables + QLatin1Char('/') + index + QLatin1Char('/');
        const QString name = Read(mate, node + QLatin1String("name"));
        QString value = Read(mate, node + QLatin1String("value"));
        if (IsSecret(name) && !value.isEmpty())
            value = QString(8, QChar(0x2022));
        new QTreeWidgetItem(m_profile, {name, index, value, Description(name)});
    }
    FitColumns(m_profile);
}
