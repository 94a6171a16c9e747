#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

class FenDataTable;
class FenVisScene;
struct FenTheme;

namespace gallery {

/// One picture of the gallery.
struct Scene {
    QString name; ///< of its file, without ending
    QString title;
    /// Words behind "fenvis chart" that draw the same; empty when it takes code to make it.
    QStringList command;
    /// Fills an empty scene.
    std::function<void(FenVisScene& scene)> build;
};

/// All pictures, in the order of the page. The one registry for `fenvis gallery`, the reference
/// pictures of the tests, and the pictures of the documentation.
std::vector<Scene> const& scenes();

/// One of the tables in data/samples, which are part of this library.
/// @param file  "penguins.csv"
FenDataTable sample(QString const& file);

// Scenes that take code: each is one function, to be read as an example.
void buildWeatherKinds(FenVisScene& scene);
void buildStackedSources(FenVisScene& scene);
void buildBarsAndLine(FenVisScene& scene);
void buildWeatherMatrix(FenVisScene& scene);
void buildDashboard(FenVisScene& scene);
void furnishChart(FenVisScene& scene);
void buildTextPlacement(FenVisScene& scene);
void buildTeapotLights(FenVisScene& scene);
void buildTeapotShadow(FenVisScene& scene);
void buildEarthquakesInSpace(FenVisScene& scene);
void buildRainOfMonths(FenVisScene& scene);
void buildYearsOfCarbonDioxide(FenVisScene& scene);
void buildIowaInDepth(FenVisScene& scene);

} // namespace gallery
