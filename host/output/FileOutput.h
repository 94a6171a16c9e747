#pragma once

#include "../../services/logging/Export.h"

#include <QByteArray>
#include <QString>

namespace fen {

/// Writes a file whole or not at all: into a temporary file beside the target,
/// synchronised, renamed over it, and the folder synchronised. On success the
/// file survives a loss of power; on failure the old one is as it was.
///
/// A link is followed; the file keeps its permissions. Devices, pipes and
/// sockets are written to, never replaced; so is whatever a file that this
/// process has open stands for ("/dev/stdout"). A save that is killed leaves at
/// worst a file ".fenvis-......" that the next save in that folder removes.
/// Qt's own QSaveFile is not used: it hides a failed fsync, never synchronises
/// the folder and replaces pipes.
/// @param error  set to "path: message" on failure
FENVIS_EXPORT bool writeFile(QString const& path, QByteArray const& bytes, QString& error);

/// Reads a regular file, followed through links, into `bytes`. Nothing else is
/// opened: no folder, pipe or device.
/// @param limit  [bytes] a longer file is refused
/// @param error  set to "path: message" on failure
FENVIS_EXPORT bool readFile(QString const& path, qint64 limit, QByteArray& bytes, QString& error);

} // namespace fen
