#pragma once

#include "host/table/ReadOptions.h"

#include <QStringList>

namespace fen {

class JsonWriter;
class SceneProblems;
struct JsonValue;

/// How a table of a scene file is read, as members of the table.
/// @{
QStringList readOptionKeys();
void readReadOptions(SceneProblems& problems, JsonValue const& table, FenReadOptions& options);
void writeReadOptions(JsonWriter& writer, FenReadOptions const& options);
/// @}

} // namespace fen
