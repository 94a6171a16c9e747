#include "apps/viewer/Viewer.h"

#include "apps/viewer/MainWindow.h"

#include <QApplication>

#include <iostream>

int runViewer(int& argc, char** argv, QString const& file)
{
    QApplication const application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("FenVis"));
    MainWindow window;
    QString error;
    if (!file.isEmpty() && !window.open(file, error)) {
        std::cerr << error.toStdString() << '\n';
        return 1;
    }
    window.show();
    return QApplication::exec();
}
