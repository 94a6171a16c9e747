#include "apps/fenvis/Command.h"
#include "apps/fenvis/TableChart.h"

#include "host/scene/Scene.h"

#include "framework/Visualization.h"
#include "picking/hits/IVisEventHandler.h"
#include "picking/hits/VisHitRecordList.h"
#include "services/properties/StringBuilder.h"

#include <QCommandLineParser>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

#include <cmath>

namespace {

constexpr int pickExtent = 6; // [px] of the pick region

QJsonObject recordObject(FenVisualization const* source, FenVisHitRecord const& record)
{
    FenVisHitProperty const hit = source ? source->hitProperty(record.context()) : FenVisHitProperty();
    QJsonObject object;
    object[QStringLiteral("name")] = qint64(record.context());
    object[QStringLiteral("depth")] = record.depth();
    object[QStringLiteral("item")] = hit.defined() ? QJsonValue(hit.property->name()) : QJsonValue();
    object[QStringLiteral("qualifier")] =
        hit.qualifier ? QJsonValue(hit.qualifier->toString()) : QJsonValue();
    return object;
}

QJsonArray hitsArray(FenVisHitRecordList const& list)
{
    QJsonArray hits;
    for (unsigned i = 0; i < list.size(); ++i) {
        QJsonArray records;
        for (FenVisHitRecord const& record : list.records(i))
            records.append(recordObject(list.source(i), record));
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
    object[QStringLiteral("hits")] = hitsArray(list);
    object[QStringLiteral("top")] = QJsonValue();
    object[QStringLiteral("tooltip")] = QString();
    FenVisPick const picked(list);
    if (!picked) return object;
    QString tooltip;
    if (auto const live = picked.handler.lock())
        live->OnMouseOver(picked.record, FenStringBuilder(scene.numberFormat), tooltip);
    QJsonObject top = recordObject(picked.node, picked.record); // the handler has made out the data point
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
    return TableChart::options() + QList<QCommandLineOption>{at};
}

int command::runPick(Call const& call, Command const& self)
{
    QCommandLineParser parser;
    int status = Success;
    if (!parse(call, self, 1, 1, parser, status)) return status;
    std::optional<QPoint> const at = pointFrom(parser.value(QStringLiteral("at")));
    if (!at) return wrongUsage(self, QStringLiteral("--at X,Y: expected a point such as 640,400"));

    TableChart chart;
    if (std::optional<int> const failure = chart.prepare(call, self, parser)) return *failure;
    QSize const size = chart.picture.deviceSize();
    if (!QRect(QPoint(0, 0), size).contains(*at))
        return badInput(QStringLiteral("fenvis: %1,%2 lies outside of the picture of %3x%4 pixels")
                            .arg(at->x())
                            .arg(at->y())
                            .arg(size.width())
                            .arg(size.height()));
    FenVisScene scene;
    if (std::optional<int> const failure = chart.build(scene)) return *failure;
    chart.canvas->draw(scene, chart.picture);
    double const scale = chart.picture.scale;
    QPoint const point(int(std::floor(at->x() / scale)),
                       int(std::floor((size.height() - 1 - at->y()) / scale)));
    print(QString::fromUtf8(QJsonDocument(pickObject(scene, point)).toJson()));
    return Success;
}
