#include "services/chartdata/Chart.h"

QString const FenChart::typeString("chart");

QString const FenChart::styleNone("none");
QString const FenChart::styleLine("line");
QString const FenChart::styleSpline("spline");
QString const FenChart::styleStep("step");
QString const FenChart::styleBar("bar");

QString const FenChart::lineNone("none");
QString const FenChart::lineSolid("solid");
QString const FenChart::lineGradient("gradient");

QString const FenChart::fillNone("none");
QString const FenChart::fillSolid("solid");
QString const FenChart::fillSparse("sparse");
QString const FenChart::fillGradient("gradient");

QString const FenChart::symbolNone("none");
QString const FenChart::symbolRect("rect");
QString const FenChart::symbolEllipse("ellipse");
QString const FenChart::symbolTriangle("triangle");
QString const FenChart::symbolUTriangle("uTriangle");
QString const FenChart::symbolDTriangle("dTriangle");
QString const FenChart::symbolLTriangle("lTriangle");
QString const FenChart::symbolRTriangle("rTriangle");
QString const FenChart::symbolDiamond("diamond");
QString const FenChart::symbolHexagon("hexagon");
QString const FenChart::symbolStar("star");
QString const FenChart::symbolCross("cross");
QString const FenChart::symbolXCross("xCross");

QString const FenChart::legendVertical("vertical");

FenChart::FenChart(FenModifiedGroup& group)
    : FenProperties(group)
    , title(*this, "title", QString(), QString())
    , titleColor(*this, "titleColor", Qt::black, QString())
    , textColor(*this, "textColor", Qt::black, QString())
{
    setType(typeString);
}

FenChart::FenChart(FenChart const& other)
    : FenProperties(other)
    , title(*this, other.title)
    , titleColor(*this, other.titleColor)
    , textColor(*this, other.textColor)
{
}

FenChart::~FenChart() = default;

void FenChart::tellRename(FenProperties const& item, QString const& oldName)
{
    FenProperties const* const list = item.parent();
    auto* const chart = list ? dynamic_cast<FenChart*>(list->parent()) : nullptr;
    if (chart && !oldName.isEmpty() && oldName != item.name())
        chart->onItemRename(*list, oldName, item.name());
}

void FenChart::onItemRename(FenProperties const&, QString const&, QString const&) { }

void FenChart::insertNested(FenProperties& child, QString const& name)
{
    child.rename(name);
    insert(&child, true);
}
