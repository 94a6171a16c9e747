#include "framework/VisList.h"

#include "axes/VisColorMap.h"
#include "charts/chart2d/VisChart2D.h"
#include "charts/chart3d/VisChart3D.h"
#include "charts/correlation/VisChartCorrelation.h"
#include "charts/legend/VisLegend.h"
#include "charts/parallel/VisChartPCP.h"
#include "charts/pie/VisChartPie.h"
#include "charts/spider/VisChartSpider.h"
#include "scene/Vis2DTest.h"
#include "scene/VisImage.h"
#include "scene/VisPlane.h"
#include "scene/VisShadowPlane.h"
#include "scene/VisTeapot.h"
#include "scene/VisText.h"
#include "scene/VisTriad.h"
#include "scene/VisViewpoint.h"
#include "services/logging/DebugLogger.h"

#include <QString>

// The one place below the hosts that knows the concrete nodes.

namespace {

constexpr char const* failureText = "Failed to create visualization object %0 of type %1";

/// How to make the nodes of one type.
struct Row {
    QString type;
    FenVisualization* (*make)(FenModifiedGroup& group);
};

template <class Node>
Row row()
{
    return Row{Node::typeString,
               [](FenModifiedGroup& group) -> FenVisualization* { return new Node(group); }};
}

std::vector<Row> const& rows()
{
    static std::vector<Row> const table = {
        // clang-format off
        row<FenVisTriad>(),
        row<FenVisColorMap>(),
        row<FenVisLegend>(),
        row<FenVisPlane>(),
        row<FenVisChart2D>(),
        row<FenVisChart3D>(),
        row<FenVisChartSpider>(),
        row<FenVisChartPCP>(),
        row<FenVisChartCorrelation>(),
        row<FenVisChartPie>(),
        row<FenVisShadowPlane>(),
        row<FenVisViewpoint>(),
        row<FenVisImage>(),
        row<FenVisTeapot>(),
        row<FenVisText>(),
        row<FenVis2DTest>(),
        // clang-format on
    };
    return table;
}

} // namespace

FenProperties* FenVisList::makeChild(QString const& name, QString const& type)
{
    for (Row const& entry : rows()) {
        if (entry.type != type) continue;
        FenVisualization* const node = entry.make(group());
        node->rename(name);
        return node;
    }
    QString const text = QString::fromLatin1(failureText).arg(name, type);
    fen::debug_logger::debuglogger().derr << text.toStdString() << std::endl;
    return nullptr;
}

QStringList FenVisList::creatableTypes()
{
    QStringList types;
    for (Row const& entry : rows()) types.append(entry.type);
    return types;
}
