#include "apps/viewer/MainWindow.h"

#include "apps/viewer/PropertyPanel.h"
#include "host/file/SceneFile.h"
#include "host/input/ChartNavigation.h"
#include "host/input/MouseTracker.h"
#include "host/output/FileOutput.h"
#include "host/scene/Scene.h"
#include "host/scene/Theme.h"
#include "host/table/ChartBuilder.h"
#include "host/table/DataTable.h"
#include "host/widget/VisWidget.h"

#include <QActionGroup>
#include <QBuffer>
#include <QDockWidget>
#include <QFileDialog>
#include <QFileInfo>
#include <QImage>
#include <QMenuBar>
#include <QMessageBox>
#include <QStatusBar>
#include <QUndoStack>

MainWindow::MainWindow(QWidget* parent)
    : QMainWindow(parent)
    , _view(new FenVisWidget(this))
    , _panel(new PropertyPanel(_view->scene(), this))
    , _theme(&FenTheme::light())
{
    resize(1280, 800); // [px]
    setWindowTitle(QStringLiteral("FenVis"));
    setCentralWidget(_view);
    auto* const dock = new QDockWidget(QStringLiteral("Properties"), this);
    dock->setObjectName(QStringLiteral("properties"));
    dock->setWidget(_panel);
    addDockWidget(Qt::RightDockWidgetArea, dock);
    makeFileMenu();
    makeEditMenu();
    makeViewMenu();
    _theme->apply(_view->scene());
    _panel->setChanged([this] { _view->update(); });
    connect(_view, &QOpenGLWidget::frameSwapped, _panel, [this] { _panel->refresh(); });
    statusBar()->showMessage(QStringLiteral("Wheel: zoom.  Drag: move.  Right drag: zoom to a rectangle.  "
                                            "Double click: fit."));
}

MainWindow::~MainWindow()
{
    // The panel points into the scene, which the view owns.
    delete _panel;
    delete _view;
}

void MainWindow::makeFileMenu()
{
    QMenu* const menu = menuBar()->addMenu(QStringLiteral("&File"));
    menu->addAction(QStringLiteral("&Open data ..."), QKeySequence::Open, this, [this] { askForFile(); });
    menu->addAction(QStringLiteral("&Save scene ..."), QKeySequence::Save, this,
                    [this] { askForSceneFile(); });
    menu->addAction(QStringLiteral("Save &picture ..."), QKeySequence(Qt::CTRL | Qt::Key_E), this,
                    [this] { askForPicture(); });
    menu->addSeparator();
    menu->addAction(QStringLiteral("&Quit"), QKeySequence::Quit, this, [this] { close(); });
}

void MainWindow::makeEditMenu()
{
    QMenu* const menu = menuBar()->addMenu(QStringLiteral("&Edit"));
    QUndoStack& steps = _view->scene().undoStack();
    QAction* const undo = steps.createUndoAction(this);
    undo->setShortcut(QKeySequence::Undo);
    QAction* const redo = steps.createRedoAction(this);
    redo->setShortcut(QKeySequence::Redo);
    menu->addActions({undo, redo});
}

void MainWindow::makeViewMenu()
{
    QMenu* const menu = menuBar()->addMenu(QStringLiteral("&View"));
    menu->addAction(QStringLiteral("&Fit"), QKeySequence(Qt::CTRL | Qt::Key_0), this, [this] {
        _view->tracker().navigation().fitAll();
        _view->update();
    });
    auto* const themes = new QActionGroup(this);
    for (FenTheme const* const theme : {&FenTheme::light(), &FenTheme::dark()}) {
        QAction* const action = themes->addAction(QStringLiteral("Theme: ") + theme->name);
        action->setCheckable(true);
        action->setChecked(theme == _theme);
        connect(action, &QAction::triggered, this, [this, theme] { setTheme(*theme); });
    }
    menu->addActions(themes->actions());
}

bool MainWindow::open(QString const& path, QString& error)
{
    bool const scene = FenSceneFile::hasSceneName(path);
    if (scene ? !openScene(path, error) : !openTable(path, error)) return false;
    setWindowTitle(QFileInfo(path).fileName() + QStringLiteral(" - FenVis"));
    _view->update();
    return true;
}

bool MainWindow::openScene(QString const& path, QString& error)
{
    error.clear();
    for (FenSceneProblem const& problem : FenSceneFile::load(path, _view->scene()))
        if (problem.error && error.isEmpty()) error = problem.text();
    return error.isEmpty();
}

bool MainWindow::saveScene(QString const& path, QString& error)
{
    error.clear();
    for (FenSceneProblem const& problem : FenSceneFile::save(_view->scene(), path))
        if (problem.error && error.isEmpty()) error = problem.text();
    return error.isEmpty();
}

bool MainWindow::openTable(QString const& path, QString& error)
{
    FenDataTable table;
    if (!FenDataTable::read(path, table, error)) return false;
    FenVisScene& scene = _view->scene();
    FenVisList& nodes = scene.root();
    unsigned const before = nodes.size();
    FenChartOptions options;
    options.title = QFileInfo(path).completeBaseName();
    options.legend = true;
    if (!fen::addChart(scene, table, options, *_theme, error)) {
        error = path + QStringLiteral(": ") + error;
        return false;
    }
    // Only now that the new chart is there; steps about the old one mean nothing any more.
    for (unsigned i = 0; i < before; ++i) nodes.erase(nodes.at(0U));
    scene.undoStack().clear();
    scene.tables = {{QString(), path, {}, table, {}}};
    return true;
}

bool MainWindow::savePicture(QString const& path, QString& error)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (!_view->picture().save(&buffer, "PNG")) {
        error = path + QStringLiteral(": the picture cannot be written as PNG");
        return false;
    }
    return fen::writeFile(path, bytes, error);
}

void MainWindow::setTheme(FenTheme const& theme)
{
    _theme = &theme;
    FenVisScene& scene = _view->scene();
    theme.apply(scene);
    for (unsigned i = 0; i < scene.root().size(); ++i) theme.apply(*scene.root().at(i));
    _view->update();
}

void MainWindow::askForFile()
{
    QString const path = QFileDialog::getOpenFileName(
        this, QStringLiteral("Open data"), QString(),
        QStringLiteral("Tables and scenes (*.csv *.tsv *.txt *.json);;All files (*)"));
    QString error;
    if (!path.isEmpty() && !open(path, error)) complain(QStringLiteral("Cannot open the data"), error);
}

void MainWindow::askForPicture()
{
    QString path = QFileDialog::getSaveFileName(this, QStringLiteral("Save picture"), QString(),
                                                QStringLiteral("Pictures (*.png)"));
    if (path.isEmpty()) return;
    if (QFileInfo(path).suffix().isEmpty()) path += QStringLiteral(".png");
    QString error;
    if (!savePicture(path, error)) complain(QStringLiteral("Cannot save the picture"), error);
}

void MainWindow::askForSceneFile()
{
    QString path = QFileDialog::getSaveFileName(this, QStringLiteral("Save scene"), QString(),
                                                QStringLiteral("Scenes (*.json)"));
    if (path.isEmpty()) return;
    if (QFileInfo(path).suffix().isEmpty()) path += QStringLiteral(".json");
    QString error;
    if (!saveScene(path, error)) complain(QStringLiteral("Cannot save the scene"), error);
}

void MainWindow::complain(QString const& title, QString const& message)
{
    QMessageBox box(QMessageBox::Warning, title, message, QMessageBox::Ok, this);
    box.setTextFormat(Qt::PlainText); // names of files and columns are in it
    box.exec();
}
