#pragma once

#include "../services/logging/Export.h"
#include "../services/math/Matrix.h"
#include "../services/math/NumberFormat.h"
#include "../services/opengl/OglViewport.h"
#include "../services/properties/StringBuilder.h"
#include "Visualization.h"

#include <QPoint>
#include <QSize>

#include <boost/shared_ptr.hpp>

class FenOglCache;
class FenOglGeometry;
class FenOglText;
class FenResource;
class IFenVisPropertyEdit;

/// State of one update, resize or draw pass.
///
/// A stack object of whoever runs the pass; points at helpers that outlive it.
class FENVIS_EXPORT FenVisualization::DrawContext {
public:
    /// @param edit  may be empty: then edits only log a warning
    DrawContext(FenOglGeometry& geometry, FenOglCache& cache, FenResource const& resource,
                FenOglViewport const& viewport, FenOglText& text, boost::shared_ptr<IFenVisPropertyEdit> edit,
                Kes::Math::NumberFormat const& numberFormat);
    DrawContext(DrawContext const& other);
    virtual ~DrawContext();

    /// The way to write labels: placeholders from "%1", numbers in the pass's format.
    FenStringBuilder::Formatter formatter(QString const& pattern) const;

    quint32 flags = 0; ///< of `FenVisualization::Flag`
    Kes::Math::Matrix modelView; ///< in force for the node
    Kes::Math::Matrix projection; ///< in force for the node
    FenOglViewport viewport; ///< [px, window] rectangle to draw into
    FenOglGeometry& geometry;
    FenOglCache& cache;
    FenResource const& resource;
    FenOglText& text;
    Kes::Math::NumberFormat numberFormat;
    boost::shared_ptr<IFenVisPropertyEdit> propertyEdit; ///< never empty
};

/// State of one select pass. Editing is not possible in it.
class FENVIS_EXPORT FenVisualization::SelectContext : public FenVisualization::DrawContext {
public:
    SelectContext(FenOglGeometry& geometry, FenOglCache& cache, FenResource const& resource,
                  FenOglViewport const& viewport, FenOglText& text,
                  Kes::Math::NumberFormat const& numberFormat);
    SelectContext(SelectContext const& other);
    ~SelectContext() override;

    /// Whether the pick point lies in `viewport`: left and bottom edge do, right and top edge do not.
    bool pointInside() const;

    QPoint point; ///< [px] pick position, relative to the origin of `viewport`, y up
    QSize size; ///< [px] pick region around it
};
