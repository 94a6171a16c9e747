#include "apps/fenvis/Command.h"
#include "apps/fenvis/TextTable.h"

#include "framework/VisList.h"
#include "scene/VisAnnotation.h"
#include "scene/VisLight.h"
#include "services/chartdata/ChartAxis.h"
#include "services/chartdata/ChartVariable.h"
#include "services/properties/ModifiedGroup.h"

#include <QCommandLineParser>

#include <memory>

namespace {

void collect(FenProperties const& item, QString const& path, command::TextTable& rows)
{
    FenPropertiesString const& store = item.string();
    for (QString const& key : store.keys())
        rows.push_back(
            {path + key, store.typeName(key), item.getString(key, QString()), store.getUnit(key, QString())});
    for (unsigned i = 0; i < item.size(); ++i)
        collect(*item.at(i), path + item.at(i)->name() + QLatin1Char('.'), rows);
}

/// What lists do not make by type: items of a chart, lights, annotations.
std::unique_ptr<FenProperties> makeItem(QString const& type, FenModifiedGroup& group)
{
    if (type == FenChartVariable::typeString) return std::make_unique<FenChartVariable>(group);
    if (type == FenChartAxisContinuous::typeString) return std::make_unique<FenChartAxisContinuous>(group);
    if (type == FenChartAxisDiscrete::typeString) return std::make_unique<FenChartAxisDiscrete>(group);
    if (type == FenVisLight::typeString) return std::make_unique<FenVisLight>(group);
    if (type == FenVisAnnotation::typeString) return std::make_unique<FenVisAnnotation>(group);
    return nullptr;
}

QStringList allTypes()
{
    return FenVisList::creatableTypes()
        + QStringList{FenVisLight::typeString, FenVisAnnotation::typeString, FenChartVariable::typeString,
                      FenChartAxisContinuous::typeString, FenChartAxisDiscrete::typeString};
}

command::TextTable rowsOf(QString const& type)
{
    FenModifiedGroup group;
    command::TextTable rows{
        {QStringLiteral("key"), QStringLiteral("type"), QStringLiteral("default"), QStringLiteral("unit")}};
    if (std::unique_ptr<FenProperties> const item = makeItem(type, group)) {
        collect(*item, QString(), rows);
    } else {
        FenVisList list(group, QStringLiteral("node"));
        collect(list.child(QStringLiteral("node"), type), QString(), rows);
    }
    return rows;
}

} // namespace

int command::runTypes(Call const& call, Command const& self)
{
    QCommandLineParser parser;
    int status = Success;
    if (!parse(call, self, 0, 1, parser, status)) return status;
    QStringList const types = allTypes();
    if (parser.positionalArguments().isEmpty()) {
        print(types.join(QLatin1Char('\n')) + QLatin1Char('\n'));
        return Success;
    }
    QString const type = parser.positionalArguments().first();
    if (!types.contains(type))
        return wrongUsage(self, QStringLiteral("there is no such type; fenvis types lists all"));
    print(textTable(rowsOf(type)));
    return Success;
}
