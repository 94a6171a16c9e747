#include "tests/host/file/SchemaCheck.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>

namespace {

QString typeOf(QJsonValue const& value)
{
    return value.isBool()  ? QStringLiteral("boolean")
        : value.isDouble() ? QStringLiteral("number")
        : value.isString() ? QStringLiteral("string")
        : value.isArray()  ? QStringLiteral("array")
        : value.isObject() ? QStringLiteral("object")
                           : QStringLiteral("null");
}

class Checker {
public:
    explicit Checker(QJsonObject const& root)
        : _root(root)
    {
    }

    QString check(QJsonObject const& schema, QJsonValue const& value, QString const& path) const
    {
        for (auto rule = schema.begin(); rule != schema.end(); ++rule) {
            QString const problem = checkRule(schema, rule.key(), rule.value(), value, path);
            if (!problem.isEmpty()) return problem;
        }
        return {};
    }

private:
    QString checkRule(QJsonObject const& schema, QString const& name, QJsonValue const& rule,
                      QJsonValue const& value, QString const& path) const
    {
        static QStringList const notes{QStringLiteral("$schema"), QStringLiteral("$defs"),
                                       QStringLiteral("title")};
        auto const failUnless = [&](bool good) {
            return good ? QString() : path + QStringLiteral(": ") + name;
        };
        auto const counted = [&](bool applies, double count) {
            bool const least = name.startsWith(u"min");
            return failUnless(!applies || (least ? count >= rule.toDouble() : count <= rule.toDouble()));
        };
        if (notes.contains(name)) return {};
        if (name == u"$ref") return check(resolve(rule.toString()), value, path);
        if (name == u"type") return failUnless(hasType(rule, value));
        if (name == u"const") return failUnless(rule == value);
        if (name == u"enum") return failUnless(rule.toArray().contains(value));
        if (name == u"required") return failUnless(hasAll(rule.toArray(), value));
        if (name.endsWith(u"Properties") && name.startsWith(u"m"))
            return counted(value.isObject(), double(value.toObject().size()));
        if (name.endsWith(u"Items")) return counted(value.isArray(), double(value.toArray().size()));
        if (name.endsWith(u"Length")) return counted(value.isString(), double(value.toString().size()));
        if (name.endsWith(u"imum")) return counted(value.isDouble(), value.toDouble());
        if (name == u"items") return checkItems(rule.toObject(), value, path);
        bool const members = name == u"properties" || !schema.contains(QStringLiteral("properties"));
        if (name == u"properties" || name == u"additionalProperties")
            return members ? checkMembers(schema, value, path) : QString();
        if (name == u"allOf" || name == u"anyOf")
            return checkEach(rule.toArray(), name == u"anyOf", value, path);
        return QStringLiteral("the schema's rule %1 is not known to this check").arg(name);
    }

    QJsonObject resolve(QString const& reference) const
    {
        return _root[QStringLiteral("$defs")].toObject()[reference.section(u'/', -1)].toObject();
    }

    static bool hasType(QJsonValue const& rule, QJsonValue const& value)
    {
        QJsonArray const types = rule.isArray() ? rule.toArray() : QJsonArray{rule};
        bool const whole = value.isDouble() && value.toDouble() == std::floor(value.toDouble());
        return types.contains(typeOf(value)) || (whole && types.contains(QStringLiteral("integer")));
    }

    static bool hasAll(QJsonArray const& names, QJsonValue const& value)
    {
        for (QJsonValue const& name : names)
            if (value.isObject() && !value.toObject().contains(name.toString())) return false;
        return true;
    }

    QString checkItems(QJsonObject const& schema, QJsonValue const& value, QString const& path) const
    {
        int index = 0;
        for (QJsonValue const& item : value.toArray()) {
            QString const problem = check(schema, item, path + QStringLiteral("/%1").arg(index++));
            if (!problem.isEmpty()) return problem;
        }
        return {};
    }

    QString checkMembers(QJsonObject const& schema, QJsonValue const& value, QString const& path) const
    {
        QJsonObject const known = schema[QStringLiteral("properties")].toObject();
        QJsonObject const others = schema[QStringLiteral("additionalProperties")].toObject();
        QJsonObject const object = value.toObject();
        for (auto member = object.begin(); member != object.end(); ++member) {
            QJsonObject const rules = known.contains(member.key()) ? known[member.key()].toObject() : others;
            QString const problem = check(rules, member.value(), path + u'/' + member.key());
            if (!problem.isEmpty()) return problem;
        }
        return {};
    }

    QString checkEach(QJsonArray const& schemas, bool any, QJsonValue const& value, QString const& path) const
    {
        QString last;
        for (QJsonValue const& schema : schemas) {
            last = check(schema.toObject(), value, path);
            if (any == last.isEmpty()) return last;
        }
        return last;
    }

    QJsonObject _root;
};

} // namespace

QString schemaProblem(QByteArray const& schema, QByteArray const& json)
{
    QJsonObject const root = QJsonDocument::fromJson(schema).object();
    QJsonDocument const document = QJsonDocument::fromJson(json);
    if (root.isEmpty() || document.isNull()) return QStringLiteral("no JSON");
    return Checker(root).check(root, document.object(), QString());
}
