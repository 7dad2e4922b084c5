#include "Model.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <stdexcept>

namespace rxsim {

namespace {

[[noreturn]] void Invalid(const QString& why) {
    throw std::runtime_error(("invalid simulator model: " + why).toStdString());
}

QString ValueText(const QJsonValue& value) {
    if (value.isDouble()) {
        const double d = value.toDouble();
        return d == static_cast<double>(static_cast<long long>(d))
                   ? QString::number(static_cast<long long>(d))
                   : QString::number(d, 'g', 12);
    }
    if (value.isBool())
        return value.toBool() ? QStringLiteral("on") : QStringLiteral("off");
    return value.toString();
}

ParamSpec ReadParam(const QJsonObject& o, const QString& path) {
    static const std::map<QString, ParamSpec::EKind> kinds = {
        {"enum", ParamSpec::Enum},         {"int", ParamSpec::Int},   {"uint", ParamSpec::UInt},
        {"real", ParamSpec::Real},         {"text", ParamSpec::Text}, {"raw", ParamSpec::Raw},
        {"list", ParamSpec::List},         {"hex", ParamSpec::Hex},   {"msg", ParamSpec::Message},
        {"msgset", ParamSpec::MessageSet},
    };
    ParamSpec p;
    p.path = path;
    const auto kind = kinds.find(o.value("kind").toString());
    if (kind == kinds.end())
        Invalid(path + ": unknown kind " + o.value("kind").toString());
    p.kind = kind->second;
    p.enumName = o.value("enum").toString();
    p.min = o.value("min").toDouble();
    p.max = o.value("max").toDouble();
    p.maxLength = o.value("maxLength").toInt();
    p.defaultValue = ValueText(o.value("default"));
    p.readonly = o.value("readonly").toBool();
    p.needsReset = o.value("reset").toBool();
    p.feature = o.value("feature").toString();
    p.maxItems = o.value("max").toInt();
    for (const QJsonValue& field : o.value("item").toArray())
        p.item.push_back(ReadParam(field.toObject(), field.toObject().value("name").toString()));
    return p;
}

} // namespace

QString CModel::Canonical(QString path) {
    while (path.startsWith(QLatin1Char('/')))
        path.remove(0, 1);
    if (path.startsWith(QLatin1String("par/")))
        path.remove(0, 4);
    while (path.endsWith(QLatin1Char('/')))
        path.chop(1);
    return path;
}

QString CModel::DefaultFile() {
    const QString beside =
        QCoreApplication::applicationDirPath() + QStringLiteral("/sim/model.json");
    return QFileInfo::exists(beside) ? beside : QStringLiteral(RXSIM_SOURCE_DIR "/model.json");
}

CModel CModel::Load(const QString& fileName) {
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        Invalid(fileName + ": " + file.errorString());
    QJsonParseError error;
    const QJsonDocument doc = QJsonDocument::fromJson(file.readAll(), &error);
    if (doc.isNull())
        Invalid(fileName + ": " + error.errorString());
    const QJsonObject root = doc.object();

    CModel model;
    const QJsonObject enums = root.value("enums").toObject();
    for (auto it = enums.begin(); it != enums.end(); ++it) {
        const QJsonObject o = it.value().toObject();
        EnumSpec e;
        for (const QJsonValue& t : o.value("texts").toArray())
            e.texts << ValueText(t);
        for (const QJsonValue& n : o.value("names").toArray())
            e.names << n.toString();
        e.fallback = o.value("fallback").toInt();
        e.numeric = o.value("numeric").toBool();
        if (e.texts.isEmpty())
            Invalid("enum " + it.key() + " has no texts");
        model.m_enums[it.key()] = e;
    }
    for (const QJsonValue& v : root.value("messages").toArray())
        model.m_messageNames << v.toString();
    for (const QJsonValue& v : root.value("ports").toArray()) {
        const QJsonObject o = v.toObject();
        const PortSpec& port = model.m_ports.emplace_back(PortSpec{
            o.value("id").toInt(), Canonical(o.value("path").toString()),
            o.value("kind").toString(), o.value("feature").toString(), o.value("refuses").toBool(),
            o.value("module").toString(), o.value("moduleFeature").toString()});
        ParamSpec messages;
        messages.path = port.path + QStringLiteral("/msgs");
        messages.kind = ParamSpec::PortMessages;
        messages.defaultValue = QStringLiteral("{}");
        messages.readonly = true;
        messages.feature = port.feature;
        model.m_params.push_back(std::move(messages));
    }
    for (const QJsonValue& v : root.value("params").toArray()) {
        const QJsonObject o = v.toObject();
        ParamSpec p = ReadParam(o, Canonical(o.value("path").toString()));
        if (p.kind == ParamSpec::Enum && !model.m_enums.contains(p.enumName))
            Invalid(p.path + ": unknown enum " + p.enumName);
        model.m_params.push_back(std::move(p));
    }
    for (const QJsonValue& v : root.value("profiles").toArray()) {
        const QJsonObject o = v.toObject();
        Profile profile{o.value("name").toString(),
                        o.value("model").toString(),
                        o.value("firmware").toString(),
                        o.value("board").toString(),
                        o.value("serial").toString(),
                        {},
                        {}};
        for (const QJsonValue& f : o.value("features").toArray())
            profile.features << f.toString();
        const QJsonObject values = o.value("values").toObject();
        for (auto it = values.begin(); it != values.end(); ++it)
            profile.values[Canonical(it.key())] = ValueText(it.value());
        model.m_profiles.push_back(std::move(profile));
    }
    if (model.m_profiles.empty())
        Invalid("no profiles");
    return model;
}

const Profile* CModel::FindProfile(const QString& name) const {
    for (const Profile& p : m_profiles)
        if (p.name.compare(name, Qt::CaseInsensitive) == 0)
            return &p;
    return nullptr;
}

} // namespace rxsim
