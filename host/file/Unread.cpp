#include "host/file/Unread.h"

#include "host/file/JsonValue.h"
#include "host/file/JsonWriter.h"
#include "host/file/SceneProblems.h"
#include "host/output/MessageText.h"

bool fen::isUnreadKey(QString const& key)
{
    return key == unreadKey || key == unreadDataKey || key == unreadFileKey;
}

void fen::keepUnread(SceneProblems& problems, QString const& owner, JsonMember const& member,
                     QStringList& unread)
{
    problems.warnOnce(member.place, owner + QChar(0) + member.key,
                      QStringLiteral("%1 is unknown here and kept as it is").arg(quotedName(member.key)));
    unread.append(member.key);
    unread.append(QString::fromUtf8(compactJson(member.value.source)));
}

void fen::writeUnread(JsonWriter& writer, QStringList const& unread)
{
    for (qsizetype i = 0; i + 1 < unread.size(); i += 2) writer.write(unread[i], unread[i + 1].toUtf8());
}
