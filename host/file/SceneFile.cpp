#include "host/file/SceneFile.h"

#include "host/Limits.h"
#include "host/file/JsonReader.h"
#include "host/file/SceneProblems.h"
#include "host/file/SceneReader.h"
#include "host/file/SceneTables.h"
#include "host/file/SceneTypes.h"
#include "host/file/SceneWriter.h"
#include "host/file/Unread.h"
#include "host/output/FileOutput.h"
#include "host/scene/Scene.h"
#include "host/table/TableRows.h"

#include <QFileInfo>
#include <QUndoStack>

#include <algorithm>
#include <new>

namespace {

using fen::JsonMember;
using fen::JsonValue;
using fen::SceneProblems;
using Kind = JsonValue::Kind;

/// Levels of a tree are an object each, and a list where children are listed.
constexpr std::size_t jsonDepth = 2 * std::size_t(fen::limits::treeDepth) + 8;

QList<FenSceneProblem> single(QString const& file, QString const& message)
{
    FenSceneProblem problem;
    problem.file = file;
    problem.message = message;
    return {problem};
}

/// What `error` of "path: message" says behind the path.
QList<FenSceneProblem> fileProblem(QString const& path, QString const& error)
{
    qsizetype const separator = error.lastIndexOf(QStringLiteral(": cannot "));
    return single(path, separator < 0 ? error : error.mid(separator + 2));
}

std::string_view viewOf(QByteArray const& bytes) { return {bytes.constData(), std::size_t(bytes.size())}; }

// --- beside the tree

bool readVersion(SceneProblems& problems, JsonValue const& file)
{
    JsonValue const* const format = file.find("format");
    JsonValue const* const version = file.find("version");
    std::optional<double> const number = version ? fen::numberOf(*version) : std::nullopt;
    if (!format || format->text() != QLatin1String(fen::SceneWriter::format))
        problems.error(format ? *format : file,
                       QStringLiteral("this is no scene file: expected \"format\": \"%1\"")
                           .arg(QLatin1String(fen::SceneWriter::format)));
    else if (!number || *number < 1 || *number != double(int(std::min(*number, 1e9))))
        problems.error(version ? *version : file,
                       QStringLiteral("expected \"version\": a whole number from 1"));
    else if (*number > FenSceneFile::version)
        problems.error(*version,
                       QStringLiteral("the file is of version %1; this program reads up to %2")
                           .arg(*number)
                           .arg(FenSceneFile::version));
    return !problems.failed();
}

QSize readSize(SceneProblems& problems, JsonValue const& value)
{
    std::vector<double> sides;
    bool const list = value.kind == Kind::List && value.size == 2 && value.members.empty();
    bool const good =
        list && !fen::readNumbers(value, sides) && std::ranges::all_of(sides, [](double side) {
            return side >= 1 && side <= double(fen::limits::pictureSide) && side == double(int(side));
        });
    if (good) return {int(sides[0]), int(sides[1])};
    problems.error(
        value,
        QStringLiteral("expected [width, height], whole numbers from 1 to %1").arg(fen::limits::pictureSide));
    return {};
}

Kes::Math::NumberFormat readNumberFormat(SceneProblems& problems, JsonValue const& value)
{
    Kes::Math::NumberFormat const usual;
    JsonValue const* const format = value.find("format");
    JsonValue const* const point = value.find("decimalPoint");
    JsonValue const* const precision = value.find("precision");
    QString const letter = format ? format->text() : QString(QLatin1Char(usual.format()));
    QString const mark = point ? point->text() : QString(QLatin1Char(usual.decimalPoint()));
    double const digits = precision ? fen::numberOf(*precision).value_or(-1) : usual.precision();
    bool const good = letter.size() == 1 && QStringLiteral("gfeGFE").contains(letter) && mark.size() == 1
        && mark.front() > u' ' && mark.front() < QChar(0x7f) && digits >= 0 && digits <= 99
        && digits == double(int(digits));
    if (good) return {letter.front().toLatin1(), mark.front().toLatin1(), int(digits)};
    problems.error(value,
                   QStringLiteral("expected {\"format\": one of g, f, e, G, F, E, \"decimalPoint\": one "
                                  "character, \"precision\": 0 to 99}"));
    return usual;
}

void readFile(SceneProblems& problems, JsonValue const& file, fen::SceneTables& tables, FenVisScene& scene)
{
    if (file.kind != Kind::Object) return problems.error(file, QStringLiteral("expected an object"));
    if (!readVersion(problems, file)) return;
    fen::SceneReader reader(problems, tables);
    QStringList unread;
    QStringList handled{QStringLiteral("format"), QStringLiteral("version"), QStringLiteral("data")};
    if (JsonValue const* const data = file.find("data")) { // first, as nodes refer to it
        SceneProblems::Step const step(problems, handled.last());
        tables.read(*data);
    }
    for (auto const& [key, tree] : fen::scenetypes::treesOf(scene)) {
        handled.append(QString::fromLatin1(key));
        SceneProblems::Step const step(problems, handled.last());
        if (JsonValue const* const value = file.find(key)) reader.readNode(*tree, *value);
    }
    for (JsonMember const& member : file.members) {
        SceneProblems::Step const step(problems, member.key);
        if (member.key == u"size")
            scene.resize(readSize(problems, member.value));
        else if (member.key == u"numberFormat")
            scene.numberFormat = readNumberFormat(problems, member.value);
        else if (!handled.contains(member.key))
            fen::keepUnread(problems, QString(), member, unread);
    }
    if (!unread.isEmpty()) scene.root().string().setValue(fen::unreadFileKey, unread);
    scene.tables = tables.files();
}

// --- from the new scene into the one that is shown

/// Takes over settings and owned children of a node of the same class, level by level of by-value members.
void adopt(FenProperties& target, FenProperties& source)
{
    target = source;
    for (unsigned i = target.size(); i-- > 0;)
        if (!target.at(i)->nested()) target.erase(target.at(i));
    std::vector<FenProperties*> items;
    for (unsigned i = 0; i < source.size(); ++i) {
        FenProperties* const child = source.at(i);
        FenProperties* const own = child->nested() ? target.at(child->name()) : nullptr;
        if (own)
            adopt(*own, *child);
        else if (!child->nested())
            items.push_back(child);
    }
    for (FenProperties* const item : items)
        if (source.remove(item) && !target.insert(item, false)) delete item;
}

} // namespace

QList<FenSceneProblem> FenSceneFile::load(QString const& path, FenVisScene& scene,
                                          QStringList const& allowedFolders)
{
    QByteArray bytes;
    QString error;
    if (!fen::readFile(path, fen::limits::sceneBytes, bytes, error)) return fileProblem(path, error);
    return read(bytes, path, QFileInfo(path).canonicalPath(), scene, allowedFolders);
}

QList<FenSceneProblem> FenSceneFile::parse(QByteArray const& text, QString const& name, FenVisScene& scene,
                                           QStringList const& allowedFolders)
{
    return read(text, name, QString(), scene, allowedFolders);
}

QList<FenSceneProblem> FenSceneFile::read(QByteArray const& text, QString const& name, QString const& folder,
                                          FenVisScene& scene, QStringList const& allowedFolders)
{
    try {
        SceneProblems problems(name, viewOf(text));
        JsonValue file;
        fen::JsonLimits const limits{jsonDepth, std::size_t(fen::limits::values)};
        if (auto const problem = fen::readJson(viewOf(text), limits, file)) {
            problems.error(viewOf(text).substr(problem->offset), problem->message);
            return problems.list();
        }
        FenVisScene loaded(scene.group());
        fen::SceneTables tables(problems, folder, allowedFolders);
        readFile(problems, file, tables, loaded);
        if (problems.failed()) return problems.list();
        replaceContent(scene, loaded);
        tables.nameRows(scene.tableRows());
        return problems.list();
    } catch (std::bad_alloc const&) {
        return single(name, QStringLiteral("not enough memory"));
    }
}

void FenSceneFile::replaceContent(FenVisScene& scene, FenVisScene& loaded)
{
    scene.undoStack().clear();
    auto const targets = fen::scenetypes::treesOf(scene);
    auto const sources = fen::scenetypes::treesOf(loaded);
    for (std::size_t i = 0; i < targets.size(); ++i) adopt(*targets[i].second, *sources[i].second);
    scene.numberFormat = loaded.numberFormat;
    scene.tables.swap(loaded.tables);
    if (!loaded.size().isEmpty()) scene.resize(loaded.size(), scene.devicePixelRatio());
    scene.touch();
}

QByteArray FenSceneFile::text(FenVisScene const& scene, QString const& folder, QList<Problem>& problems)
{
    problems = fen::SceneWriter::refusal(scene);
    return problems.isEmpty() ? fen::SceneWriter(scene, folder, problems).text() : QByteArray();
}

QList<FenSceneProblem> FenSceneFile::save(FenVisScene const& scene, QString const& path)
{
    QList<Problem> problems;
    QString error;
    try {
        QByteArray const bytes = text(scene, QFileInfo(path).absolutePath(), problems);
        if (bytes.size() > fen::limits::sceneBytes)
            return single(path,
                          QStringLiteral("the scene needs more than %1 bytes").arg(fen::limits::sceneBytes));
        for (Problem& problem : problems) problem.file = path;
        if (bytes.isEmpty()) return problems;
        if (!fen::writeFile(path, bytes, error)) return fileProblem(path, error);
    } catch (std::bad_alloc const&) {
        return single(path, QStringLiteral("not enough memory"));
    }
    return problems;
}

bool FenSceneFile::hasSceneName(QString const& path)
{
    return path.endsWith(QLatin1String(".json"), Qt::CaseInsensitive);
}
