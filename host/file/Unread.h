#pragma once

#include <QString>
#include <QStringList>

namespace fen {

class JsonWriter;
class SceneProblems;
struct JsonMember;

/// @name Keys of the string store for members of a scene file that this version does not know
/// They are lists of the members' names and their JSON in turn, written back as they came.
/// @{
inline QString const unreadKey = QStringLiteral("unread"); ///< of the node itself
inline QString const unreadDataKey = QStringLiteral("unread.data"); ///< of a variable's "data"
inline QString const unreadFileKey = QStringLiteral("unread.file"); ///< of the root: beside the tree
/// @}
bool isUnreadKey(QString const& key);

/// Keeps a member, with a warning for the first of its name.
/// @param owner  what has the member, as a person says it: "table"
void keepUnread(SceneProblems& problems, QString const& owner, JsonMember const& member, QStringList& unread);
void writeUnread(JsonWriter& writer, QStringList const& unread);

} // namespace fen
