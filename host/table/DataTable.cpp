#include "host/table/DataTable.h"

#include "host/Limits.h"
#include "host/output/FileOutput.h"
#include "host/output/MessageText.h"
#include "host/table/TableBuilder.h"

#include <new>
#include <utility>

bool FenDataTable::read(QString const& path, FenDataTable& table, QString& error,
                        FenReadOptions const& options)
{
    QByteArray bytes;
    if (!fen::readFile(path, fen::limits::csvBytes, bytes, error)) return false;
    return parse(std::string_view(bytes.constData(), std::size_t(bytes.size())), path, table, error, options);
}

bool FenDataTable::parse(std::string_view text, QString const& name, FenDataTable& table, QString& error,
                         FenReadOptions const& options)
{
    QString message;
    FenDataTable read;
    read._id = std::make_shared<FenTableId>(FenTableId{name});
    try {
        message = fen::readTable(text, options, read._rows, read._columns, read._notes);
    } catch (std::bad_alloc const&) {
        message = QStringLiteral("out of memory");
    }
    QString const place = fen::messageText(name) + QStringLiteral(":");
    for (QString& note : read._notes) note.prepend(place);
    if (message.isEmpty())
        table = read;
    else
        error = place + message;
    return message.isEmpty();
}

int FenDataTable::find(QString const& name) const
{
    for (auto const member : {&Column::name, &Column::header})
        for (std::size_t i = 0; i < _columns.size(); ++i)
            if (_columns[i].*member == name && !name.isEmpty()) return int(i);
    return -1;
}

QStringList FenDataTable::names() const
{
    QStringList names;
    for (Column const& column : _columns) names.append(column.name);
    return names;
}

bool FenDataTable::append(QString const& name, Kind kind, std::vector<double> values)
{
    if (find(name) >= 0 || (!_columns.empty() && values.size() != _rows)) return false;
    _rows = values.size();
    _columns.push_back({name, kind, std::make_shared<std::vector<double> const>(std::move(values)), {}});
    return true;
}
