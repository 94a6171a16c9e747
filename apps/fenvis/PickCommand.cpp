#include "apps/fenvis/Command.h"
#include "apps/fenvis/SceneInput.h"
#include "apps/fenvis/TableChart.h"

#include "host/file/SceneFile.h"
#include "host/scene/Scene.h"
#include "host/table/TableRows.h"

#include "framework/Visualization.h"
#include "picking/hits/IVisEventHandler.h"
#include "picking/hits/VisHitQualifiers.h"
#include "picking/hits/VisHitRecordList.h"
#include "services/chartdata/ChartVariable.h"
#include "services/properties/StringBuilder.h"

#include <QCommandLineParser>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

#include <cmath>

namespace {

constexpr int pickExtent = 6; // [px] of the pick region

/// What selection mode tells is a whole number of 2^32 parts; six digits of it mean something.
double withoutNoise(double depth) { return std::round(depth * 1e6) / 1e6; }

/// Numbers of a data point [data] and the row of the table that it comes from.
void addPoint(FenVisScene const& scene, FenVisHitProperty const& hit, QJsonObject& object)
{
    auto const* const variable =
        hit.defined() ? dynamic_cast<FenChartVariable const*>(hit.property) : nullptr;
    auto const* const point = dynamic_cast<FenVisHitDataPointQualifier const*>(hit.qualifier.get());
    if (!point) return;
    if (std::optional<FenTableRow> const row = scene.tableRows().row(hit))
        object[QStringLiteral("row")] = qint64(row->row);
    if (!variable) return; // a record of many variables
    QJsonObject data;
    data[QStringLiteral("x")] = variable->value(Kes::Math::Vector3::CompX, point->dataPointIdx);
    data[QStringLiteral("y")] = variable->value(Kes::Math::Vector3::CompY, point->dataPointIdx);
    if (variable->column(Kes::Math::Vector3::CompZ))
        data[QStringLiteral("z")] = variable->value(Kes::Math::Vector3::CompZ, point->dataPointIdx);
    object[QStringLiteral("data")] = data;
}

QJsonObject recordObject(FenVisScene const& scene, FenVisualization const* source,
                         FenVisHitRecord const& record)
{
    FenVisHitProperty const hit = source ? source->hitProperty(record.context()) : FenVisHitProperty();
    QJsonObject object;
    object[QStringLiteral("name")] = qint64(record.context());
    object[QStringLiteral("depth")] = withoutNoise(record.depth());
    object[QStringLiteral("item")] = hit.defined() ? QJsonValue(hit.property->name()) : QJsonValue();
    object[QStringLiteral("qualifier")] =
        hit.qualifier ? QJsonValue(hit.qualifier->toString()) : QJsonValue();
    addPoint(scene, hit, object);
    return object;
}

QJsonArray hitsArray(FenVisScene const& scene, FenVisHitRecordList const& list)
{
    QJsonArray hits;
    for (unsigned i = 0; i < list.size(); ++i) {
        QJsonArray records;
        for (FenVisHitRecord const& record : list.records(i))
            records.append(recordObject(scene, list.source(i), record));
        QJsonObject node;
        node[QStringLiteral("node")] = list.source(i) ? QJsonValue(list.source(i)->name()) : QJsonValue();
        node[QStringLiteral("layer")] = list.layer(i);
        node[QStringLiteral("records")] = records;
        hits.append(node);
    }
    return hits;
}

/// What was hit, and what a viewer would show for it.
QJsonObject pickObject(FenVisScene& scene, QPoint point)
{
    FenVisHitRecordList const list = scene.select(point, QSize(pickExtent, pickExtent));
    QJsonObject object;
    object[QStringLiteral("hits")] = hitsArray(scene, list);
    object[QStringLiteral("top")] = QJsonValue();
    object[QStringLiteral("tooltip")] = QString();
    FenVisPick const picked(list);
    if (!picked) return object;
    QString tooltip;
    if (auto const live = picked.handler.lock())
        live->OnMouseOver(picked.record, FenStringBuilder(scene.numberFormat), tooltip);
    // By now the handler has made out the data point.
    QJsonObject top = recordObject(scene, picked.node, picked.record);
    top[QStringLiteral("node")] = picked.node->name();
    object[QStringLiteral("top")] = top;
    object[QStringLiteral("tooltip")] = tooltip;
    return object;
}

/// [device px] from the top left corner
std::optional<QPoint> pointFrom(QString const& text)
{
    static QRegularExpression const pattern(QStringLiteral("^(-?[0-9]{1,9}),(-?[0-9]{1,9})$"));
    QRegularExpressionMatch const match = pattern.match(text);
    if (!match.hasMatch()) return {};
    return QPoint(match.captured(1).toInt(), match.captured(2).toInt());
}

} // namespace

QList<QCommandLineOption> command::pickOptions()
{
    QCommandLineOption const at(QStringLiteral("at"),
                                QStringLiteral("pixel of the picture, from its top left corner"),
                                QStringLiteral("X,Y"));
    return TableChart::options() + QList<QCommandLineOption>{SceneInput::allowOption(), at};
}

namespace {

/// What `chart` or `scene` need to be drawn is there; prints what lies at a point [device px].
int pickIn(FenVisScene& scene, command::Canvas& canvas, command::PictureOptions const& picture, QPoint at)
{
    QSize const size = picture.deviceSize();
    if (!QRect(QPoint(0, 0), size).contains(at))
        return command::badInput(QStringLiteral("fenvis: %1,%2 lies outside of the picture of %3x%4 pixels")
                                     .arg(at.x())
                                     .arg(at.y())
                                     .arg(size.width())
                                     .arg(size.height()));
    canvas.draw(scene, picture);
    double const scale = picture.scale;
    QPoint const point(int(std::floor(at.x() / scale)),
                       int(std::floor((size.height() - 1 - at.y()) / scale)));
    command::print(QString::fromUtf8(QJsonDocument(pickObject(scene, point)).toJson()));
    return command::Success;
}

} // namespace

int command::runPick(Call const& call, Command const& self)
{
    QCommandLineParser parser;
    int status = Success;
    if (!parse(call, self, 1, 1, parser, status)) return status;
    std::optional<QPoint> const at = pointFrom(parser.value(QStringLiteral("at")));
    if (!at) return wrongUsage(self, QStringLiteral("--at X,Y: expected a point such as 640,400"));

    if (FenSceneFile::hasSceneName(parser.positionalArguments().first())) {
        SceneInput input;
        if (std::optional<int> const failure = input.prepare(call, self, parser)) return *failure;
        return pickIn(*input.scene, *input.canvas, input.picture, *at);
    }
    TableChart chart;
    if (std::optional<int> const failure = chart.prepare(call, self, parser)) return *failure;
    FenVisScene scene;
    if (std::optional<int> const failure = chart.build(scene)) return *failure;
    return pickIn(scene, *chart.canvas, chart.picture, *at);
}
