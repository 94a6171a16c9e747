#pragma once

#include "host/file/JsonValue.h"

#include <QStringList>

class FenProperties;

namespace fen {

class SceneProblems;
class SceneTables;

/// Reads nodes of a scene file into a tree whose by-value members are there already.
///
/// Knows no class of node: settings are those that a node has declared in its store, and the rest is
/// in SceneTypes.h.
class SceneReader {
public:
    SceneReader(SceneProblems& problems, SceneTables& tables)
        : _problems(problems)
        , _tables(tables)
    {
    }

    /// Reads the settings and children of a node; what the file does not name stays.
    void readNode(FenProperties& node, JsonValue const& value) { readNode(node, value, 1); }

private:
    /// @param depth  of the node, from 1
    void readNode(FenProperties& node, JsonValue const& value, int depth);
    bool checkDepth(JsonValue const& value, int depth);
    /// @return false when the member means nothing to the node
    bool readMember(FenProperties& node, JsonMember const& member, int depth);
    bool readReserved(FenProperties& node, JsonMember const& member, int depth);
    void readSetting(FenProperties& node, QString const& key, JsonValue const& value);
    void readSettings(FenProperties& node, JsonValue const& settings);
    void readUnits(FenProperties& node, JsonValue const& units);
    void readUndeclared(FenProperties& node, JsonMember const& member, QStringList& unread);

    void readItems(FenProperties& parent, JsonValue const& list, int depth);
    void readItem(FenProperties& parent, JsonValue const& value, int depth);
    FenProperties* makeItem(FenProperties& parent, JsonValue const& value, QString const& name);
    bool checkName(FenProperties const& parent, JsonValue const& value, QString& name);
    void keepStandIn(FenProperties& node, JsonValue const& value);

    SceneProblems& _problems;
    SceneTables& _tables;
    int _nodes = 0;
};

} // namespace fen
