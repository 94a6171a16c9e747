#pragma once

#include <QMainWindow>

class FenVisWidget;
class PropertyPanel;
struct FenTheme;

/// The viewer: a table of data as a chart, its settings in a panel beside it.
class MainWindow : public QMainWindow {
public:
    explicit MainWindow(QWidget* parent = nullptr);
    ~MainWindow() override;

    /// Replaces what is shown by a scene file, or by a chart of a CSV file.
    /// @param error  set to "file:line: message" on failure; what is shown stays then
    bool open(QString const& path, QString& error);
    /// Writes what is shown as PNG, whole or not at all.
    /// @param error  set to "file: message" on failure
    bool savePicture(QString const& path, QString& error);
    /// Writes what is shown as a scene file, whole or not at all.
    /// @param error  set to "file: message" on failure
    bool saveScene(QString const& path, QString& error);
    /// Colours of everything that is shown.
    void setTheme(FenTheme const& theme);

    FenVisWidget& view() { return *_view; }
    PropertyPanel& panel() { return *_panel; }

private:
    void makeFileMenu();
    void makeEditMenu();
    void makeViewMenu();
    void askForFile();
    void askForPicture();
    void askForSceneFile();
    bool openScene(QString const& path, QString& error);
    bool openTable(QString const& path, QString& error);
    void complain(QString const& title, QString const& message);

    FenVisWidget* _view; // children of the window
    PropertyPanel* _panel;
    FenTheme const* _theme;
};
