#include "config/Ntrip_Caster_UsersDlg.h"

#include "config/PasswordField.h"
#include "lib/Common.h"
#include "lib/PellLib.h"
#include "receiver/VexTypes.h"
#include "resources/StringIds.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

using namespace rxio::vex;

constexpr char kMomentFormat[] = "yyyy/MM/dd HH:mm:ss";

const std::vector<CKeyedList::Field> kFields = {
    {QStringLiteral("name"), CKeyedList::Text},       {QStringLiteral("passwd"), CKeyedList::Text},
    {QStringLiteral("grpnum"), CKeyedList::Unsigned}, {QStringLiteral("startat"), CKeyedList::Text},
    {QStringLiteral("expireat"), CKeyedList::Text},
};

// The group's display name: all mount points, or one of the groups.
QString AccessName(const QString& group) {
    const EnumTable& table = TableOf(NtripCasterUserGroup::ENtripCasterUserGroup{});
    const int index = group.toInt();
    return index < table.Count() ? ulm_std::CTranslatorInstance::Ref().XlateEx(table.Name(index))
                                 : group;
}

// A password shows as dots that do not tell its length.
QString Dots(const QString& password) {
    return password.isEmpty() ? QString() : QString(8, QChar(0x2022));
}

// A moment's box with a box that says whether there is one at all.
QDateTimeEdit* MomentBox() {
    auto* box = new QDateTimeEdit;
    box->setDisplayFormat(QLatin1String(kMomentFormat));
    box->setCalendarPopup(true);
    return box;
}

} // namespace

CNtrip_Caster_UserDlg::CNtrip_Caster_UserDlg(const CKeyedList::Values& user, QStringList others,
                                             QWidget* parent)
    : CPellDialog(nullptr, parent), m_user(user), m_others(std::move(others)),
      m_name(new QLineEdit), m_password(new QLineEdit), m_access(new QComboBox),
      m_fromSet(new QCheckBox(XString(pell::ids::NtripValidFrom))), m_from(MomentBox()),
      m_untilSet(new QCheckBox(XString(pell::ids::NtripValidUntil))), m_until(MomentBox()) {
    setWindowTitle(XString(pell::ids::NtripUserDialog));
    m_name->setObjectName(QStringLiteral("nameEdit"));
    MaskPassword(m_password);
    m_name->setMaxLength(32);
    m_password->setMaxLength(32);
    const EnumTable& groups = TableOf(NtripCasterUserGroup::ENtripCasterUserGroup{});
    for (int group = 0; group < groups.Count(); ++group)
        m_access->addItem(ulm_std::CTranslatorInstance::Ref().XlateEx(groups.Name(group)));

    auto* form = new QFormLayout;
    form->addRow(XString(pell::ids::NtripName), m_name);
    form->addRow(XString(pell::ids::NtripPassword), m_password);
    form->addRow(XString(pell::ids::NtripAccessTo), m_access);
    form->addRow(m_fromSet, m_from);
    form->addRow(m_untilSet, m_until);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    buttons->button(QDialogButtonBox::Ok)->setObjectName(QStringLiteral("okButton"));
    connect(buttons, &QDialogButtonBox::accepted, this, &CNtrip_Caster_UserDlg::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &CNtrip_Caster_UserDlg::reject);
    connect(m_fromSet, &QCheckBox::toggled, m_from, &QWidget::setEnabled);
    connect(m_untilSet, &QCheckBox::toggled, m_until, &QWidget::setEnabled);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(buttons);
}

void CNtrip_Caster_UserDlg::OnInitDialog() {
    CPellDialog::OnInitDialog();
    m_name->setText(m_user[QStringLiteral("name")]);
    m_password->setText(m_user[QStringLiteral("passwd")]);
    m_access->setCurrentIndex(
        std::clamp(m_user[QStringLiteral("grpnum")].toInt(), 0, m_access->count() - 1));
    const QDateTime now = QDateTime::currentDateTime();
    const auto show = [this, &now](const QString& stored, QCheckBox* set, QDateTimeEdit* box) {
        QString invalid;
        const std::optional<QDateTime> moment =
            CNtrip_Caster_UsersDlg::ParseMoment(stored, &invalid);
        if (!invalid.isEmpty())
            g_PellLibApp.MessageBox(this, invalid, pell::MB_OK | pell::MB_ICONWARNING);
        set->setChecked(moment.has_value());
        box->setDateTime(moment.value_or(now));
        box->setEnabled(moment.has_value());
    };
    show(m_user[QStringLiteral("startat")], m_fromSet, m_from);
    show(m_user[QStringLiteral("expireat")], m_untilSet, m_until);
}

CKeyedList::Values CNtrip_Caster_UserDlg::User() const {
    CKeyedList::Values user = m_user;
    user[QStringLiteral("name")] = m_name->text().trimmed();
    user[QStringLiteral("passwd")] = m_password->text();
    user[QStringLiteral("grpnum")] = QString::number(m_access->currentIndex());
    user[QStringLiteral("startat")] =
        m_fromSet->isChecked() ? m_from->dateTime().toString(QLatin1String(kMomentFormat))
                               : QString();
    user[QStringLiteral("expireat")] =
        m_untilSet->isChecked() ? m_until->dateTime().toString(QLatin1String(kMomentFormat))
                                : QString();
    return user;
}

void CNtrip_Caster_UserDlg::accept() {
    const QString name = m_name->text().trimmed();
    const unsigned refusal = name.isEmpty()            ? pell::ids::NtripUserNameEmpty
                             : m_others.contains(name) ? pell::ids::NtripUserNameTaken
                                                       : 0;
    if (refusal != 0) {
        g_PellLibApp.MessageBox(this, XString(refusal), pell::MB_OK | pell::MB_ICONERROR);
        m_name->setFocus();
        return;
    }
    EndDialog(pell::IDOK);
}

CNtrip_Caster_UsersDlg::CNtrip_Caster_UsersDlg(std::shared_ptr<rxio::IReceiver> receiver,
                                               QWidget* parent)
    : CParameterDialog(std::move(receiver), XString(pell::ids::NtripUsersDialog), parent),
      m_users(QStringLiteral("/app/ntrip/caster/usr"), kFields,
              QStringLiteral("Ntrip_Caster_GetUsers")),
      m_list(CParameterPage::List(
          {XString(pell::ids::NtripColumnId), XString(pell::ids::NtripColumnName),
           XString(pell::ids::NtripColumnPassword), XString(pell::ids::NtripColumnAccessTo),
           XString(pell::ids::NtripColumnValidFrom), XString(pell::ids::NtripColumnValidUntil)})) {
    CParameterPage::ListButtons(m_list, new QVBoxLayout(&Body()), this,
                                {[this] { AddUser(); }, [this] { EditUser(); },
                                 [this] {
                                     DeleteUser();
                                 }});
    resize(640, 360);

    Body().BindList(m_list, m_users);
    connect(&Body(), &CParameterPage::valuesRead, this, &CNtrip_Caster_UsersDlg::Fill);
}

std::optional<QDateTime> CNtrip_Caster_UsersDlg::ParseMoment(const QString& text,
                                                             QString* invalid) {
    static const QRegularExpression form(
        QStringLiteral(R"(^(\d{4})/(\d{2})/(\d{2}) (\d{2}):(\d{2}):(\d{2})$)"));
    const QRegularExpressionMatch match = form.match(text.trimmed());
    if (text.trimmed().isEmpty() || !match.hasMatch()) {
        if (!text.trimmed().isEmpty() && invalid)
            *invalid = XString(pell::ids::NtripInvalidMoment).arg(text.trimmed());
        return std::nullopt;
    }
    unsigned part[6];
    for (int i = 0; i < 6; ++i)
        part[i] = match.captured(i + 1).toUInt();
    const QDateTime moment{QDate(int(part[0]), int(part[1]), int(part[2])),
                           QTime(int(part[3]), int(part[4]), int(part[5]))};
    if (moment.isValid())
        return moment;
    if (invalid)
        *invalid = QString::asprintf(qUtf8Printable(XString(pell::ids::NtripInvalidDateTime)),
                                     part[0], part[1], part[2], part[3], part[4], part[5]);
    return std::nullopt;
}

void CNtrip_Caster_UsersDlg::Fill() {
    m_list->clear();
    for (const CKeyedList::Item& user : m_users.Items()) {
        const auto& v = user.values;
        auto* row = new QTreeWidgetItem(
            m_list, {user.index >= 0 ? QString::number(user.index) : QStringLiteral("–"),
                     v.at(QStringLiteral("name")), Dots(v.at(QStringLiteral("passwd"))),
                     AccessName(v.at(QStringLiteral("grpnum"))), v.at(QStringLiteral("startat")),
                     v.at(QStringLiteral("expireat"))});
        row->setTextAlignment(0, Qt::AlignRight);
    }
    CParameterPage::FitColumns(m_list);
}

bool CNtrip_Caster_UsersDlg::Edit(int row) {
    QStringList others;
    const auto& users = m_users.Items();
    for (int i = 0; i < int(users.size()); ++i)
        if (i != row)
            others << users[std::size_t(i)].values.at(QStringLiteral("name"));
    CKeyedList::Values user;
    if (row >= 0)
        user = users[std::size_t(row)].values;
    else
        user = {{QStringLiteral("name"), {}},
                {QStringLiteral("passwd"), {}},
                {QStringLiteral("grpnum"), QStringLiteral("0")},
                {QStringLiteral("startat"), {}},
                {QStringLiteral("expireat"), {}}};
    CPellWindow<CNtrip_Caster_UserDlg> dialog(user, others, this);
    if (dialog.exec() != pell::IDOK)
        return false;
    if (row >= 0)
        m_users.Change(std::size_t(row), dialog.User());
    else
        m_users.Add(dialog.User());
    Fill();
    return true;
}

void CNtrip_Caster_UsersDlg::AddUser() {
    Edit(-1);
}

void CNtrip_Caster_UsersDlg::EditUser() {
    if (QTreeWidgetItem* current = m_list->currentItem())
        Edit(m_list->indexOfTopLevelItem(current));
}

void CNtrip_Caster_UsersDlg::DeleteUser() {
    QTreeWidgetItem* current = m_list->currentItem();
    if (!current || g_PellLibApp.MessageBox(this, XString(pell::ids::ConfirmDeletion),
                                            pell::MB_YESNO | pell::MB_ICONQUESTION) != pell::IDYES)
        return;
    m_users.Remove(std::size_t(m_list->indexOfTopLevelItem(current)));
    Fill();
}
