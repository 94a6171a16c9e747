#include "host/Limits.h"

std::vector<fen::limits::Limit> fen::limits::table()
{
    QString const bytes = QStringLiteral("bytes");
    QString const pixels = QStringLiteral("pixels");
    return {
        {QStringLiteral("CSV file"), csvBytes, bytes},
        {QStringLiteral("columns of a CSV file"), csvColumns, {}},
        {QStringLiteral("field of a CSV file"), csvFieldBytes, bytes},
        {QStringLiteral("values of a file"), values, {}},
        {QStringLiteral("variables of a chart"), variables, {}},
        {QStringLiteral("name"), nameCharacters, QStringLiteral("characters")},
        {QStringLiteral("scene file"), sceneBytes, bytes},
        {QStringLiteral("depth of a scene's tree"), treeDepth, {}},
        {QStringLiteral("nodes of a scene"), nodes, {}},
        {QStringLiteral("keys of a node"), keysPerNode, {}},
        {QStringLiteral("side of a drawn picture (the driver may allow less)"), pictureSide, pixels},
    };
}
