#pragma once

#include <QStringList>

#include <array>
#include <map>
#include <string>
#include <vector>

/// Snapshot of the OpenGL state that a pass must leave as it found it: enables,
/// matrices, stack depths, bindings, masks, line and point sizes, viewport.
class GlState {
public:
    /// Takes the snapshot; errors of unknown enable flags are swallowed, so ask
    /// for errors before.
    static GlState now();
    /// One line per difference.
    QStringList differences(GlState const& other) const;

private:
    std::map<std::string, std::vector<double>> _values;
};
