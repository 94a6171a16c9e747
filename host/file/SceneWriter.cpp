#include "host/file/SceneWriter.h"

#include "host/Limits.h"
#include "host/file/SceneTypes.h"
#include "host/file/SceneValues.h"
#include "host/file/Unread.h"
#include "host/scene/Scene.h"

#include "services/chartdata/ChartVariable.h"

namespace {

namespace types = fen::scenetypes;

/// Keys that mean something else to the reader.
bool isReserved(FenProperties const& node, QString const& key)
{
    static QStringList const words{QStringLiteral("name"),     QStringLiteral("type"),
                                   QStringLiteral("place"),    QStringLiteral("children"),
                                   QStringLiteral("settings"), QStringLiteral("units"),
                                   QStringLiteral("data"),     QString()};
    return words.contains(key) || node.at(key);
}

/// What passes have found is no setting: the ends of a range that follows the data.
bool isFound(FenProperties const& node, QString const& key)
{
    static QString const automatic = QStringLiteral("autoRange");
    bool const end = key == u"min" || key == u"max";
    return end && node.string().defined(automatic) && node.getString(automatic, QString()) == u"true";
}

bool differs(FenProperties const& node, FenProperties const& fresh, QString const& key)
{
    if (fen::isUnreadKey(key) || isFound(node, key)) return false;
    return !fresh.string().defined(key) || node.getString(key, QString()) != fresh.getString(key, QString());
}

QStringList unreadOf(FenProperties const& node, QString const& key)
{
    QStringList unread;
    node.string().getValue(key, unread, QStringList());
    return unread;
}

std::vector<unsigned> itemsOf(FenProperties const& node)
{
    std::vector<unsigned> items;
    for (unsigned i = 0; i < node.size(); ++i)
        if (!node.at(i)->nested()) items.push_back(i);
    return items;
}

/// True when neither settings nor units of a node differ from those of a new one.
bool sameSettings(FenProperties const& node, FenProperties const& fresh)
{
    if (node.string().defined(fen::unreadKey) || dynamic_cast<FenChartVariable const*>(&node)) return false;
    for (QString const& key : node.string().keys())
        if (differs(node, fresh, key)
            || node.string().getUnit(key, QString()) != fresh.string().getUnit(key, QString()))
            return false;
    return true;
}

QString pathOf(FenProperties const& node)
{
    QStringList names;
    for (FenProperties const* each = &node; each; each = each->parent())
        names.prepend(each->name().isEmpty() ? QStringLiteral("scene") : each->name());
    return names.join(u'/');
}

/// Empty, or why a node cannot be written.
QString refusalOf(FenProperties const& node, int depth, qsizetype nodes)
{
    using namespace fen::limits;
    bool const named = !node.name().isEmpty() && node.name().size() <= nameCharacters;
    if (depth > treeDepth) return QStringLiteral("the tree is more than %1 deep").arg(treeDepth);
    if (depth > 1 && !named)
        return QStringLiteral("the name is empty or longer than %1 characters").arg(nameCharacters);
    constexpr int others = 32; // what may stand beside the settings: name, type, parts, children
    if (node.string().keys().size() > keysPerNode - others)
        return QStringLiteral("more than %1 settings").arg(keysPerNode - others);
    if (nodes > fen::limits::nodes) return QStringLiteral("more than %1 nodes").arg(fen::limits::nodes);
    return {};
}

} // namespace

QList<FenSceneProblem> fen::SceneWriter::refusal(FenVisScene const& scene)
{
    std::vector<std::pair<FenProperties const*, int>> open; // no recursion: it may be deep
    for (auto const& [key, tree] : types::treesOf(scene)) open.emplace_back(tree, 1);
    qsizetype items = 0;
    while (!open.empty()) {
        auto const [node, depth] = open.back();
        open.pop_back();
        if (depth > 1 && !node->nested()) ++items;
        if (QString const why = refusalOf(*node, depth, items); !why.isEmpty()) {
            FenSceneProblem problem;
            problem.path = depth > limits::treeDepth ? QString() : pathOf(*node);
            problem.message = why;
            return {problem};
        }
        for (unsigned i = 0; i < node->size(); ++i) open.emplace_back(node->at(i), depth + 1);
    }
    return {};
}

fen::SceneWriter::SceneWriter(FenVisScene const& scene, QString const& folder,
                              QList<FenSceneProblem>& problems)
    : _scene(scene)
    , _problems(problems)
    , _freshScene(std::make_unique<FenVisScene>())
    , _data(scene, folder, problems)
{
}

fen::SceneWriter::~SceneWriter() = default;

QByteArray fen::SceneWriter::text()
{
    _writer.beginObject();
    _writer.write(QStringLiteral("format"), jsonText(QString::fromLatin1(format)));
    _writer.write(QStringLiteral("version"), QByteArray::number(FenSceneFile::version));
    if (QSize const size = _scene.size(); !size.isEmpty())
        _writer.writeList(QStringLiteral("size"),
                          {QByteArray::number(size.width()), QByteArray::number(size.height())}, 2);
    if (Kes::Math::NumberFormat const& numbers = _scene.numberFormat;
        !(numbers == Kes::Math::NumberFormat())) {
        _writer.beginObject(QStringLiteral("numberFormat"));
        _writer.write(QStringLiteral("format"), jsonText(QString(QLatin1Char(numbers.format()))));
        _writer.write(QStringLiteral("decimalPoint"), jsonText(QString(QLatin1Char(numbers.decimalPoint()))));
        _writer.write(QStringLiteral("precision"), QByteArray::number(numbers.precision()));
        _writer.end();
    }
    _data.writeTables(_writer);
    writeUnread(_writer, unreadOf(_scene.root(), unreadFileKey));
    auto const fresh = types::treesOf(*_freshScene);
    auto next = fresh.begin();
    for (auto const& [key, tree] : types::treesOf(_scene))
        writeMember(QString::fromLatin1(key), *tree, *(next++)->second);
    _writer.end();
    return _writer.text();
}

void fen::SceneWriter::writeNode(FenProperties const& node, FenProperties& fresh)
{
    writeSettings(node, fresh);
    writeUnits(node, fresh);
    writeMembers(node, fresh);
    writeUnread(_writer, unreadOf(node, unreadKey));
    if (auto const* const variable = dynamic_cast<FenChartVariable const*>(&node)) {
        _writer.beginObject(QStringLiteral("data"));
        _data.writeColumns(_writer, *variable);
        writeUnread(_writer, unreadOf(node, unreadDataKey));
        _writer.end();
    }
    writeItems(node, fresh, QStringLiteral("children"));
}

void fen::SceneWriter::writeSettings(FenProperties const& node, FenProperties const& fresh)
{
    QStringList const keys = node.string().keys();
    bool anyReserved = false;
    for (QString const& key : keys) {
        if (!differs(node, fresh, key)) continue;
        if (isReserved(node, key))
            anyReserved = true;
        else
            writeSetting(node, key);
    }
    if (!anyReserved) return;
    _writer.beginObject(QStringLiteral("settings"));
    for (QString const& key : keys)
        if (differs(node, fresh, key) && isReserved(node, key)) writeSetting(node, key);
    _writer.end();
}

void fen::SceneWriter::writeSetting(FenProperties const& node, QString const& key)
{
    SceneValueType const& type = SceneValueType::of(node.string().typeName(key));
    if (type.write(_writer, key, node.getString(key, QString()))) return;
    warn(node,
         QStringLiteral("the setting %1 is not %2 and is left out")
             .arg(key, QString::fromLatin1(type.expected)));
}

void fen::SceneWriter::writeUnits(FenProperties const& node, FenProperties const& fresh)
{
    _writer.beginObject(QStringLiteral("units"));
    for (QString const& key : node.string().keys()) {
        QString const unit = node.string().getUnit(key, QString());
        if (unit != fresh.string().getUnit(key, QString())) _writer.write(key, jsonText(unit));
    }
    _writer.end();
}

/// Children that are by-value members of the node.
void fen::SceneWriter::writeMembers(FenProperties const& node, FenProperties& fresh)
{
    for (unsigned i = 0; i < node.size(); ++i) {
        FenProperties const& child = *node.at(i);
        FenProperties* const freshChild = fresh.at(child.name());
        if (child.nested() && freshChild) writeMember(child.name(), child, *freshChild);
    }
}

/// A node with nothing to say but what it owns is written as that list.
void fen::SceneWriter::writeMember(QString const& key, FenProperties const& node, FenProperties& fresh)
{
    if (sameSettings(node, fresh) && sameMembers(node, fresh)) return writeItems(node, fresh, key);
    _writer.beginObject(key);
    writeNode(node, fresh);
    _writer.end();
}

bool fen::SceneWriter::sameMembers(FenProperties const& node, FenProperties& fresh)
{
    for (unsigned i = 0; i < node.size(); ++i) {
        FenProperties const& child = *node.at(i);
        FenProperties* const freshChild = fresh.at(child.name());
        if (!child.nested() || !freshChild) continue;
        bool const same = sameSettings(child, *freshChild) && sameMembers(child, *freshChild)
            && sameItems(child, *freshChild);
        if (!same) return false;
    }
    return true;
}

void fen::SceneWriter::writeItems(FenProperties const& node, FenProperties& fresh, QString const& key)
{
    if (sameItems(node, fresh)) return;
    _writer.beginList(key);
    _writer.show();
    for (unsigned const i : itemsOf(node)) writeItem(node, fresh, i);
    _writer.end();
}

void fen::SceneWriter::writeItem(FenProperties const& parent, FenProperties& freshParent, unsigned index)
{
    FenProperties const& item = *parent.at(index);
    int const place = types::placeOf(parent, index);
    _writer.beginObject();
    _writer.write(QStringLiteral("name"), jsonText(item.name()));
    if (types::itemsOf(parent) == types::Items::ByType)
        _writer.write(QStringLiteral("type"), jsonText(item.type()));
    if (place >= 0) _writer.write(QStringLiteral("place"), place == 0 ? "\"first\"" : "\"second\"");
    writeNode(item, freshItem(freshParent, item));
    _writer.end();
}

/// Whether a node owns what a new one owns; then nothing needs to be said about it.
bool fen::SceneWriter::sameItems(FenProperties const& node, FenProperties& fresh)
{
    std::vector<unsigned> const items = itemsOf(node);
    std::vector<unsigned> const freshItems = itemsOf(fresh);
    if (items.empty() || freshItems.empty()) return items.empty() && freshItems.empty();
    auto const textOf = [&](FenProperties const& parent, std::vector<unsigned> const& indices) {
        JsonWriter own;
        std::swap(own, _writer);
        _writer.beginList();
        for (unsigned const i : indices) writeItem(parent, fresh, i);
        _writer.end();
        std::swap(own, _writer);
        return own.text();
    };
    return textOf(node, items) == textOf(fresh, freshItems);
}

/// A new node of the type of an item, made as its parent makes it.
FenProperties& fen::SceneWriter::freshItem(FenProperties& freshParent, FenProperties const& item)
{
    auto& made = _fresh[{std::type_index(typeid(freshParent)), item.type()}];
    if (made) return *made;
    QString name = QStringLiteral("new");
    while (freshParent.at(name)) name += u'.';
    FenProperties* const node = types::makeItem(freshParent, name, item.type());
    if (node && freshParent.remove(node)) made.reset(node);
    if (!made) made = std::make_unique<FenProperties>(freshParent.group()); // of a class unknown here
    return *made;
}

void fen::SceneWriter::warn(FenProperties const& node, QString const& message)
{
    FenSceneProblem problem;
    problem.path = pathOf(node);
    problem.message = message;
    problem.error = false;
    _problems.append(problem);
}
