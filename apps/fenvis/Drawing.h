#pragma once

#include <QByteArray>
#include <QCommandLineOption>
#include <QGuiApplication>
#include <QImage>
#include <QList>
#include <QSize>
#include <QString>

#include <memory>
#include <optional>

class FenOffscreenContext;
class FenVisScene;
class QCommandLineParser;
struct FenTheme;

namespace command {

/// Size and looks of a picture as options say.
struct PictureOptions {
    QSize size{1280, 800}; ///< [px] logical
    double scale = 1; ///< device pixels per logical one
    FenTheme const* theme;
    // From where a 3D part is seen; empty: as the scene says.
    QString view;
    std::optional<double> azimuth, elevation; ///< [deg]
    std::optional<double> zoom;
    bool perspective = false;
    std::optional<int> samples; ///< per pixel; empty: 4 for a scene with a 3D part, else 1

    PictureOptions();
    /// --size, --scale, --theme, and those of the camera
    static QList<QCommandLineOption> options();
    /// @param error  set to what is wrong with a word, on failure
    bool read(QCommandLineParser const& parser, QString& error);
    /// [device px]
    QSize deviceSize() const;
    /// Empty, or why a picture of this size cannot be drawn.
    QString sizeError() const;

private:
    void readCamera(QCommandLineParser const& parser, QString& error);
};

/// Application and OpenGL context for drawing without a display. Scenes that are drawn must be
/// destroyed before it.
class Canvas {
public:
    /// @param argc, argv  of `main`
    Canvas(int& argc, char** argv);
    ~Canvas();

    /// Makes the context for pictures of this size current.
    /// @param error  set to why it cannot, on failure
    bool prepare(PictureOptions const& options, QString& error);
    /// Lays the scene out and draws it.
    QImage draw(FenVisScene& scene, PictureOptions const& options);

private:
    QGuiApplication _application;
    std::unique_ptr<FenOffscreenContext> _context;
};

/// @return empty when there is not enough memory
QByteArray pngBytes(QImage const& image);

} // namespace command
