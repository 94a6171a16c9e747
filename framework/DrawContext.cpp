#include "framework/DrawContext.h"

#include "framework/IVisPropertyEdit.h"
#include "services/logging/DebugLogger.h"

#include <boost/make_shared.hpp>

#include <utility>

namespace {

void warn(char const* text) { fen::debug_logger::debuglogger().derr << text << std::endl; }

/// Stands in where a draw pass was given no editor.
class DrawNullFenVisPropertyEditor final : public IFenVisPropertyEdit {
public:
    void beginEdit() override { }
    void editProperty(FenProperties&, FenProperties&, QString const&, QString const&) override
    {
        warn("WARNING: Property editing instance is invalid for draw method!");
    }
    void endEdit() override { }
};

/// Editor of every select pass: picking changes nothing.
class SelectNullFenVisPropertyEditor final : public IFenVisPropertyEdit {
public:
    void beginEdit() override { }
    void editProperty(FenProperties&, FenProperties&, QString const&, QString const&) override
    {
        warn("WARNING: Property editing not allowed from select!");
    }
    void endEdit() override { }
};

boost::shared_ptr<IFenVisPropertyEdit> usable(boost::shared_ptr<IFenVisPropertyEdit> edit)
{
    if (!edit) edit = boost::make_shared<DrawNullFenVisPropertyEditor>();
    return edit;
}

} // namespace

FenVisualization::DrawContext::DrawContext(FenOglGeometry& geometry_, FenOglCache& cache_,
                                           FenResource const& resource_, FenOglViewport const& viewport_,
                                           FenOglText& text_, boost::shared_ptr<IFenVisPropertyEdit> edit,
                                           Kes::Math::NumberFormat const& numberFormat_)
    : viewport(viewport_)
    , geometry(geometry_)
    , cache(cache_)
    , resource(resource_)
    , text(text_)
    , numberFormat(numberFormat_)
    , propertyEdit(usable(std::move(edit)))
{
}

FenVisualization::DrawContext::DrawContext(DrawContext const&) = default;

FenVisualization::DrawContext::~DrawContext() = default;

FenStringBuilder::Formatter FenVisualization::DrawContext::formatter(QString const& pattern) const
{
    return FenStringBuilder::Formatter(pattern, numberFormat);
}

FenVisualization::SelectContext::SelectContext(FenOglGeometry& geometry_, FenOglCache& cache_,
                                               FenResource const& resource_, FenOglViewport const& viewport_,
                                               FenOglText& text_,
                                               Kes::Math::NumberFormat const& numberFormat_)
    : DrawContext(geometry_, cache_, resource_, viewport_, text_,
                  boost::make_shared<SelectNullFenVisPropertyEditor>(), numberFormat_)
{
}

FenVisualization::SelectContext::SelectContext(SelectContext const&) = default;

FenVisualization::SelectContext::~SelectContext() = default;

bool FenVisualization::SelectContext::pointInside() const
{
    return point.x() >= 0 && point.y() >= 0 && point.x() < viewport.width() && point.y() < viewport.height();
}
