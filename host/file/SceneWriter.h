#pragma once

#include "host/file/JsonWriter.h"
#include "host/file/SceneDataWriter.h"
#include "host/file/SceneFile.h"

#include <map>
#include <memory>
#include <typeindex>
#include <utility>

class FenProperties;

namespace fen {

/// Writes what of a scene differs from a new one.
///
/// What a node is when it is new is found by making one of its type, so that no class of node is known
/// here.
class SceneWriter {
public:
    static constexpr char const* format = "fenvis scene";

    /// What no scene file can hold, as reading it again would be refused: too deep, too much, without a
    /// name. Only trees of which nothing is wrong are written.
    static QList<FenSceneProblem> refusal(FenVisScene const& scene);

    SceneWriter(FenVisScene const& scene, QString const& folder, QList<FenSceneProblem>& problems);
    ~SceneWriter();

    QByteArray text();

private:
    void writeNode(FenProperties const& node, FenProperties& fresh);
    void writeSettings(FenProperties const& node, FenProperties const& fresh);
    void writeSetting(FenProperties const& node, QString const& key);
    void writeUnits(FenProperties const& node, FenProperties const& fresh);
    void writeMembers(FenProperties const& node, FenProperties& fresh);
    void writeMember(QString const& key, FenProperties const& node, FenProperties& fresh);
    bool sameMembers(FenProperties const& node, FenProperties& fresh);
    void writeItems(FenProperties const& node, FenProperties& fresh, QString const& key);
    void writeItem(FenProperties const& parent, FenProperties& freshParent, unsigned index);
    bool sameItems(FenProperties const& node, FenProperties& fresh);
    FenProperties& freshItem(FenProperties& freshParent, FenProperties const& item);
    void warn(FenProperties const& node, QString const& message);

    FenVisScene const& _scene;
    QList<FenSceneProblem>& _problems;
    std::unique_ptr<FenVisScene> _freshScene;
    std::map<std::pair<std::type_index, QString>, std::unique_ptr<FenProperties>> _fresh; // by parent's class
    SceneDataWriter _data;
    JsonWriter _writer;
};

} // namespace fen
