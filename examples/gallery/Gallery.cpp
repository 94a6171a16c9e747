#include "examples/gallery/Gallery.h"

#include "host/scene/Theme.h"
#include "host/table/ChartArguments.h"
#include "host/table/ChartBuilder.h"
#include "host/table/DataTable.h"

#include <QCommandLineParser>
#include <QFile>

#include <iostream>

namespace {

/// Adds the chart that `fenvis chart` would draw for these words.
void buildCommand(QStringList const& words, FenVisScene& scene)
{
    QCommandLineParser parser;
    parser.addOptions(fen::chartArguments());
    parser.addOption({QStringLiteral("theme"), QString(), QStringLiteral("T"), QStringLiteral("light")});
    parser.parse(QStringList(QString()) + words);
    FenChartOptions options;
    QString error = parser.errorText();
    FenTheme const* const theme = FenTheme::find(parser.value(QStringLiteral("theme")));
    QString const file = parser.positionalArguments().value(0).section(QLatin1Char('/'), -1);
    bool const built = error.isEmpty() && theme && fen::readChartArguments(parser, options, error)
        && fen::addChart(scene, gallery::sample(file), options, *theme, error);
    if (!built) std::cerr << "gallery: " << error.toStdString() << '\n';
}

gallery::Scene fromCommand(char const* name, char const* title, QStringList words)
{
    words += {QStringLiteral("--title"), QString::fromUtf8(title)};
    return {QString::fromLatin1(name), QString::fromUtf8(title), words,
            [words](FenVisScene& scene) { buildCommand(words, scene); }};
}

/// Words of a command: `text` at its blanks, "_" standing for a blank inside a word.
QStringList words(char const* text)
{
    QStringList list = QString::fromUtf8(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (qsizetype i = 0; i < list.size(); ++i)
        if (i > 0 && list[i - 1].endsWith(QLatin1String("-title")))
            list[i].replace(QLatin1Char('_'), QLatin1Char(' '));
    return list;
}

std::vector<gallery::Scene> makeScenes()
{
    return {
        fromCommand("weather-lines", "Daily temperatures in Seattle",
                    words("data/samples/seattle-weather.csv --x date --y temp_max,temp_min --style line "
                          "--y-title temperature_[°C]")),
        fromCommand(
            "penguins", "Penguins of the Palmer Archipelago",
            words("data/samples/penguins.csv --x flipper_length_mm --y body_mass_g --group species "
                  "--style none --symbol ellipse --x-title flipper_length_[mm] --y-title body_mass_[g]")),
        fromCommand("co2-curve", "Carbon dioxide over Mauna Loa",
                    words("data/samples/mauna-loa-co2.csv --x date --y co2 --theme dark "
                          "--y-title weekly_mean_[ppm]")),
        fromCommand("co2-gaps", "The first years: missing weeks are gaps",
                    words("data/samples/mauna-loa-co2.csv --x date --y co2 --symbol ellipse --symbol-size 6 "
                          "--x-range 1958-01-01,1962-03-01 --y-range 312,322 --y-title weekly_mean_[ppm]")),
        fromCommand(
            "temperature-gradient", "Surface temperature of the Earth against 1951 to 1980",
            words("data/samples/global-temperature.csv --x year --y temp --fill gradient --line-width 2 "
                  "--y-title deviation_[°C]")),
        fromCommand("two-axes", "A year of temperature and wind",
                    words("data/samples/seattle-weather.csv --x date --y temp_max --y2 wind "
                          "--x-range 2015-01-01,2016-01-01 --y-title highest_temperature_[°C] "
                          "--y2-title wind_[m/s]")),
        {QStringLiteral("bars-and-line"), QStringLiteral("A winter of rain"), {}, gallery::buildBarsAndLine},
        fromCommand("earthquakes", "1679 earthquakes of one week",
                    words("data/samples/earthquakes.csv --x time --y magnitude --style none --symbol ellipse "
                          "--symbol-size 6")),
        fromCommand("earthquakes-log", "How many earthquakes release at least so much energy",
                    words("data/samples/earthquakes.csv --x energy_J --y at_least --log x,y --style none "
                          "--symbol diamond --symbol-size 9 --x-range 1e4,1e16 --x-title energy_[J] "
                          "--y-title earthquakes")),
        {QStringLiteral("weather-kinds"),
         QStringLiteral("Days of each kind of weather"),
         {},
         gallery::buildWeatherKinds},
        fromCommand("iowa-steps", "Electricity in Iowa by source",
                    words("data/samples/iowa-electricity.csv --x year --y net_generation --group source "
                          "--style step --line-width 2 --y-title net_generation_[GWh]")),
        {QStringLiteral("iowa-stacked"),
         QStringLiteral("Electricity in Iowa, one source upon the other"),
         {},
         gallery::buildStackedSources},
        fromCommand(
            "iowa-splines", "The same as splines with symbols",
            words("data/samples/iowa-electricity.csv --x year --y net_generation --group source "
                  "--style spline --symbol rect --line-width 2 --log y --y-title net_generation_[GWh]")),
        fromCommand("rain-bars", "Rain in the first months of 2012",
                    words("data/samples/seattle-weather.csv --x date --y precipitation --style bar "
                          "--x-range 2012-01-01,2012-04-01 --y-range 0,30 --y-title precipitation_[mm]")),
        fromCommand("penguin-correlation", "How the measures of penguins go together",
                    words("data/samples/penguins.csv --kind correlation "
                          "--y bill_length_mm,bill_depth_mm,flipper_length_mm,body_mass_g")),
        {QStringLiteral("weather-correlation"),
         QStringLiteral("The weather of one day and of the days before"),
         {},
         gallery::buildWeatherMatrix},
        fromCommand("weather-pie", "Days of each kind of weather in Seattle",
                    words("data/samples/seattle-weather.csv --kind pie --label weather")),
        fromCommand("penguin-rings", "Species of penguins on Torgersen, Biscoe and Dream, from the inside",
                    words("data/samples/penguins.csv --kind pie --label species --ring island --theme dark")),
        fromCommand("penguins-parallel", "What tells penguins apart",
                    words("data/samples/penguins.csv --kind parallel --color-by species "
                          "--y species,island,bill_length_mm,bill_depth_mm,flipper_length_mm,body_mass_g")),
        fromCommand("weather-parallel", "The warm days of Seattle",
                    words("data/samples/seattle-weather.csv --kind parallel --theme dark "
                          "--y date,weather,precipitation,wind,temp_min,temp_max --color-by temp_max "
                          "--filter temp_max=22..36")),
        fromCommand("penguins-spider", "Penguins of three kinds, on average",
                    words("data/samples/penguins.csv --kind spider --group species "
                          "--y bill_length_mm,bill_depth_mm,flipper_length_mm,body_mass_g")),
        fromCommand("weather-spider", "Weather in Seattle by its kind, on average",
                    words("data/samples/seattle-weather.csv --kind spider --group weather --fill none "
                          "--y precipitation,temp_max,temp_min,wind")),
        {QStringLiteral("dashboard"),
         QStringLiteral("Four charts of one table"),
         {},
         gallery::buildDashboard},
        {QStringLiteral("furnished-chart"),
         QStringLiteral("A chart with a picture, a logo and a note"),
         {},
         [](FenVisScene& scene) {
             buildCommand(
                 words("data/samples/mauna-loa-co2.csv --x date --y co2 --y-title weekly_mean_[ppm]"), scene);
             gallery::furnishChart(scene);
         }},
        {QStringLiteral("text-placement"),
         QStringLiteral("Texts in pixels"),
         {},
         gallery::buildTextPlacement},
        {QStringLiteral("teapot-lights"),
         QStringLiteral("A teapot under three lights"),
         {},
         gallery::buildTeapotLights},
        {QStringLiteral("teapot-shadow"),
         QStringLiteral("A shadow on the floor"),
         {},
         gallery::buildTeapotShadow},
        fromCommand("terrain", "The Jacksboro fault in Tennessee",
                    words("data/samples/jacksboro-terrain.csv --kind 3d --style surface "
                          "--x-title longitude_[°] --y-title latitude_[°] --z-title height_[m]")),
        fromCommand(
            "penguins-3d", "Penguins in three measures",
            words("data/samples/penguins.csv --kind 3d --x flipper_length_mm --y bill_length_mm "
                  "--z body_mass_g --group species --style none --symbol-size 8 "
                  "--x-title flipper_length_[mm] --y-title bill_length_[mm] --z-title body_mass_[g]")),
        {QStringLiteral("earthquakes-3d"),
         QStringLiteral("Earthquakes by time, strength and depth"),
         {},
         gallery::buildEarthquakesInSpace},
        {QStringLiteral("rain-3d"),
         QStringLiteral("Rain in Seattle by month and year"),
         {},
         gallery::buildRainOfMonths},
        {QStringLiteral("co2-years"),
         QStringLiteral("Carbon dioxide, year behind year"),
         {},
         gallery::buildYearsOfCarbonDioxide},
        {QStringLiteral("iowa-depth"),
         QStringLiteral("Electricity in Iowa in depth"),
         {},
         gallery::buildIowaInDepth},
    };
}

} // namespace

std::vector<gallery::Scene> const& gallery::scenes()
{
    static std::vector<Scene> const all = makeScenes();
    return all;
}

FenDataTable gallery::sample(QString const& name)
{
    FenDataTable table;
    QString error;
    QFile file(QStringLiteral(":/samples/") + name);
    if (!file.open(QIODevice::ReadOnly)) std::cerr << "gallery: no sample " << name.toStdString() << '\n';
    QByteArray const bytes = file.readAll();
    std::string_view const text(bytes.constData(), std::size_t(bytes.size()));
    if (!FenDataTable::parse(text, name, table, error)) std::cerr << error.toStdString() << '\n';
    return table;
}
