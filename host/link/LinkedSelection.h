#pragma once

#include "../../picking/hits/VisHitProperty.h"
#include "../../services/logging/Export.h"
#include "../../services/properties/ViewPtr.h"
#include "../table/TableRows.h"

#include <optional>
#include <vector>

class FenVisChart;
class FenVisScene;
class FenVisualization;

/// Charts of a scene that show rows of one table share what is hovered: a record of parallel coordinates
/// glows as a point of the scatter chart beside it, and the other way round.
///
/// Stands between nodes and table: nodes know nothing of each other. Works without a window.
class FENVIS_EXPORT FenLinkedSelection {
public:
    explicit FenLinkedSelection(FenVisScene& scene);

    /// On unless it is switched off, which forgets what is shown.
    void setEnabled(bool enabled);
    bool enabled() const { return _enabled; }

    /// Shows the row of a hit in all other charts; anything that is no row shows nothing.
    /// @param source  the node that was hit; it shows its hit itself
    /// @return true when the picture has to be drawn again
    bool hover(FenVisHitProperty const& hit, FenVisualization const* source);
    /// The row that is hovered.
    std::optional<FenTableRow> const& row() const { return _row; }

private:
    bool show(FenVisChart& chart);

    FenVisScene& _scene;
    bool _enabled = true;
    std::optional<FenTableRow> _row;
    fen::view_ptr<FenVisualization const> _source;
    std::vector<fen::view_ptr<FenVisChart>> _shown;
};
