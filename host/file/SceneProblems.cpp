#include "host/file/SceneProblems.h"

#include "host/output/MessageText.h"

namespace {
constexpr qsizetype most =
    100; // errors, and warnings, of a file; whoever mends these finds out about the others
}

void fen::SceneProblems::add(std::string_view place, QString const& message, bool isError)
{
    qsizetype const before = isError ? _errors++ : _warnings++;
    if (before > most) return;
    FenSceneProblem problem;
    problem.file = _file;
    problem.error = isError;
    problem.message = before == most ? QStringLiteral("there is more of this kind") : message;
    problem.path = _path.join(u'/');
    TextPlace const at = placeOf(_text, std::size_t(place.data() - _text.data()));
    problem.line = at.line;
    problem.column = at.column;
    _list.append(problem);
}

QString FenSceneProblem::text() const
{
    QString const kind = error ? QString() : QStringLiteral("warning: ");
    QString const place =
        line > 0 ? QStringLiteral("%1: column %2: ").arg(line).arg(column) : QStringLiteral(" ");
    return fen::messageText(file) + u':' + place + kind + message;
}
