#pragma once

#include "../table/DataTable.h"

#include <QString>
#include <QStringList>

/// A table whose columns variables of a scene share.
struct FenSceneTable {
    QString name; ///< stands for it in a scene file; empty: the file's
    QString file; ///< path of the CSV file; empty: there is none
    FenReadOptions options; ///< that it was read with
    FenDataTable table;
    QStringList unread; ///< settings of a scene file that this version does not know
};
