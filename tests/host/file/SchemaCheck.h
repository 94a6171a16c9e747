#pragma once

#include <QByteArray>
#include <QString>

/// Holds a JSON text against a JSON Schema. Knows what docs/scene-file.schema.json uses: type, const,
/// enum, required, properties, additionalProperties, minProperties, maxProperties, items, minItems,
/// maxItems, minLength, maxLength, minimum, maximum, anyOf, allOf and $ref within the schema; any other
/// key of a schema is an error.
/// @return empty, or the path of the first value that does not fit and why
QString schemaProblem(QByteArray const& schema, QByteArray const& json);
