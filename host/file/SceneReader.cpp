#include "host/file/SceneReader.h"

#include "host/Limits.h"
#include "host/file/SceneProblems.h"
#include "host/file/SceneTables.h"
#include "host/file/SceneTypes.h"
#include "host/file/SceneValues.h"
#include "host/file/Unread.h"
#include "host/output/MessageText.h"

#include "services/chartdata/ChartVariable.h"
#include "services/chartdata/ChartVariableList.h"
#include "services/properties/Properties.h"

namespace {

using Kind = fen::JsonValue::Kind;
namespace types = fen::scenetypes;

/// Members that say how an item is made.
bool isHeader(QString const& key) { return key == u"name" || key == u"type" || key == u"place"; }

/// Deletes the children that a node owns.
void eraseItems(FenProperties& node)
{
    for (unsigned i = node.size(); i-- > 0;)
        if (!node.at(i)->nested()) node.erase(node.at(i));
}

QString typeOf(FenProperties const& node) { return node.type().isEmpty() ? node.name() : node.type(); }

} // namespace

void fen::SceneReader::readNode(FenProperties& node, JsonValue const& value, int depth)
{
    if (!checkDepth(value, depth)) return;
    if (value.kind == Kind::List) return readItems(node, value, depth);
    if (value.kind != Kind::Object)
        return _problems.error(value, QStringLiteral("expected an object or a list"));
    if (value.members.size() > std::size_t(limits::keysPerNode))
        return _problems.error(value, QStringLiteral("more than %1 keys").arg(limits::keysPerNode));
    QStringList unread;
    for (JsonMember const& member : value.members) {
        SceneProblems::Step const step(_problems, member.key);
        if (member.key.size() > limits::nameCharacters)
            _problems.error(
                member.place,
                QStringLiteral("the key is longer than %1 characters").arg(limits::nameCharacters));
        else if (!readMember(node, member, depth))
            readUndeclared(node, member, unread);
    }
    if (!unread.isEmpty()) node.string().setValue(unreadKey, unread);
}

bool fen::SceneReader::checkDepth(JsonValue const& value, int depth)
{
    if (depth <= limits::treeDepth) return true;
    _problems.error(value, QStringLiteral("the tree is more than %1 deep").arg(limits::treeDepth));
    return false;
}

bool fen::SceneReader::readMember(FenProperties& node, JsonMember const& member, int depth)
{
    if (isHeader(member.key) || readReserved(node, member, depth)) return true;
    if (node.string().defined(member.key) && !isUnreadKey(member.key)) {
        readSetting(node, member.key, member.value);
        return true;
    }
    FenProperties* const child = node.at(member.key);
    if (!child || !child->nested()) return false;
    readNode(*child, member.value, depth + 1);
    return true;
}

bool fen::SceneReader::readReserved(FenProperties& node, JsonMember const& member, int depth)
{
    if (member.key == u"children")
        readItems(node, member.value, depth);
    else if (member.key == u"settings")
        readSettings(node, member.value);
    else if (member.key == u"units")
        readUnits(node, member.value);
    else if (auto* const variable = dynamic_cast<FenChartVariable*>(&node); variable && member.key == u"data")
        _tables.readColumns(member.value, *variable);
    else
        return false;
    return true;
}

void fen::SceneReader::readSetting(FenProperties& node, QString const& key, JsonValue const& value)
{
    SceneValueType const& type = SceneValueType::of(node.string().typeName(key));
    QString stored;
    if (type.read(value, stored))
        node.setValue(key, stored);
    else
        _problems.error(value, QStringLiteral("expected ") + QString::fromLatin1(type.expected));
}

/// Settings whose keys mean something else beside them.
void fen::SceneReader::readSettings(FenProperties& node, JsonValue const& settings)
{
    if (settings.kind != Kind::Object) return _problems.error(settings, QStringLiteral("expected an object"));
    for (JsonMember const& member : settings.members) {
        SceneProblems::Step const step(_problems, member.key);
        if (node.string().defined(member.key))
            readSetting(node, member.key, member.value);
        else if (SceneValueType const* const type = SceneValueType::guess(member.value)) {
            type->declare(node.string(), member.key);
            QString stored;
            type->read(member.value, stored);
            node.setValue(member.key, stored);
        } else {
            _problems.error(member.value, QStringLiteral("expected a plain value"));
        }
    }
}

void fen::SceneReader::readUnits(FenProperties& node, JsonValue const& units)
{
    if (units.kind != Kind::Object) return _problems.error(units, QStringLiteral("expected an object"));
    for (JsonMember const& member : units.members) {
        if (member.value.kind == Kind::Text)
            node.string().setUnit(member.key, member.value.text());
        else
            _problems.error(member.value, QStringLiteral("expected a text"));
    }
}

/// A key that the node's class does not know becomes a setting where the store has a type for it.
void fen::SceneReader::readUndeclared(FenProperties& node, JsonMember const& member, QStringList& unread)
{
    SceneValueType const* const type = SceneValueType::guess(member.value);
    if (!type || isUnreadKey(member.key)) return keepUnread(_problems, typeOf(node), member, unread);
    _problems.warnOnce(
        member.place, typeOf(node) + QChar(0) + member.key,
        QStringLiteral("%1 has no setting %2; it is kept")
            .arg(typeOf(node).isEmpty() ? QStringLiteral("the node") : typeOf(node), quotedName(member.key)));
    type->declare(node.string(), member.key);
    QString stored;
    type->read(member.value, stored);
    node.setValue(member.key, stored);
}

void fen::SceneReader::readItems(FenProperties& parent, JsonValue const& list, int depth)
{
    bool const nodes = list.kind == Kind::List && !list.mixed && list.size == list.members.size();
    if (!nodes) return _problems.error(list, QStringLiteral("expected a list of objects"));
    if (dynamic_cast<FenChartVariableList const*>(&parent) && list.size > std::size_t(limits::variables))
        return _problems.error(list, QStringLiteral("more than %1 variables").arg(limits::variables));
    eraseItems(parent);
    if (list.size > 0 && !checkDepth(list, depth + 1)) return;
    for (JsonMember const& item : list.members) {
        if (++_nodes > limits::nodes)
            return _problems.error(item.value, QStringLiteral("more than %1 nodes").arg(limits::nodes));
        readItem(parent, item.value, depth + 1);
    }
}

void fen::SceneReader::readItem(FenProperties& parent, JsonValue const& value, int depth)
{
    QString name;
    if (!checkName(parent, value, name)) return;
    SceneProblems::Step const step(_problems, name);
    FenProperties* const item = makeItem(parent, value, name);
    if (!item) return;
    if (types::isStandIn(*item))
        keepStandIn(*item, value);
    else
        readNode(*item, value, depth);
}

bool fen::SceneReader::checkName(FenProperties const& parent, JsonValue const& value, QString& name)
{
    JsonValue const* const given = value.find("name");
    name = given ? given->text() : QString();
    QString wrong;
    if (value.kind != Kind::Object)
        wrong = QStringLiteral("expected an object");
    else if (!given || given->kind != Kind::Text || name.isEmpty())
        wrong = QStringLiteral("expected an object with a \"name\"");
    else if (name.size() > limits::nameCharacters)
        wrong = QStringLiteral("the name is longer than %1 characters").arg(limits::nameCharacters);
    else if (parent.at(name))
        wrong = QStringLiteral("the name %1 is taken").arg(quotedName(name));
    if (!wrong.isEmpty()) _problems.error(given ? *given : value, wrong);
    return wrong.isEmpty();
}

FenProperties* fen::SceneReader::makeItem(FenProperties& parent, JsonValue const& value, QString const& name)
{
    JsonValue const* const type = value.find("type");
    JsonValue const* const place = value.find("place");
    bool const named = type && type->kind == Kind::Text;
    if (!named && (type || types::itemsOf(parent) == types::Items::ByType)) {
        _problems.error(type ? *type : value, QStringLiteral("expected a \"type\", which is a text"));
        return nullptr;
    }
    bool const second = place && place->text() == u"second";
    if (place && !second && place->text() != u"first") {
        _problems.error(*place, QStringLiteral("expected one of: \"first\", \"second\""));
        return nullptr;
    }
    QString const typeText = type ? type->text() : QString();
    FenProperties* const item = types::makeItem(parent, name, typeText, place ? int(second) : -1);
    if (!item || (type && item->type() != typeText)) {
        _problems.error(type ? *type : value,
                        QStringLiteral("there can be no such node here (type %1)").arg(quotedName(typeText)));
        return nullptr;
    }
    return item;
}

void fen::SceneReader::keepStandIn(FenProperties& node, JsonValue const& value)
{
    QString const type = node.type();
    if (!_problems.warned(type))
        _problems.warnOnce(value.find("type")->source, type,
                           QStringLiteral("the type %1 is unknown here; nodes of it are kept but not drawn")
                               .arg(quotedName(type)));
    QStringList members;
    for (JsonMember const& member : value.members)
        if (!isHeader(member.key))
            members << member.key << QString::fromUtf8(compactJson(member.value.source));
    node.string().setValue(unreadKey, members);
}
