#pragma once

#include "host/file/JsonValue.h"
#include "host/file/SceneFile.h"

#include <QSet>

namespace fen {

/// Gathers what is wrong with a scene file while it is read.
class SceneProblems {
public:
    /// @param text  what values that problems name are parts of; lives as long as this
    SceneProblems(QString const& file, std::string_view text)
        : _file(file)
        , _text(text)
    {
    }

    void error(std::string_view place, QString const& message) { add(place, message, true); }
    void error(JsonValue const& at, QString const& message) { add(at.source, message, true); }
    /// @param kind  further warnings of the same kind are left out
    void warnOnce(std::string_view place, QString const& kind, QString const& message)
    {
        if (_warned.contains(kind)) return;
        _warned.insert(kind);
        add(place, message, false);
    }

    bool warned(QString const& kind) const { return _warned.contains(kind); }
    bool failed() const { return _errors > 0; }
    qsizetype errors() const { return _errors; }
    QList<FenSceneProblem> const& list() const { return _list; }

    /// A name within the path of what is being read.
    class Step {
    public:
        Step(SceneProblems& problems, QString const& name)
            : _problems(problems)
        {
            _problems._path.append(name);
        }
        ~Step() { _problems._path.removeLast(); }
        Step(Step const&) = delete;
        Step& operator=(Step const&) = delete;

    private:
        SceneProblems& _problems;
    };

private:
    void add(std::string_view place, QString const& message, bool isError);

    QString _file;
    std::string_view _text;
    QStringList _path;
    QSet<QString> _warned;
    QList<FenSceneProblem> _list;
    qsizetype _errors = 0;
    qsizetype _warnings = 0;
};

} // namespace fen
