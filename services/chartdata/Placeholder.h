#pragma once

class FenChartVariable;
class FenChartVariableCache;

namespace fen {

/// A variable that is in no tree, stands for ones that are gone, and must not be changed. Never destroyed.
FenChartVariable const& noVariable();
/// A cache of nothing.
FenChartVariableCache const& noVariableCache();

} // namespace fen
