// Paints the atlas of plot symbols from the list in services/opengl/PlotSymbols.

#include "services/opengl/PlotSymbols.h"

#include <QImage>

#include <cstdio>

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: plot-symbols OUT.png\n");
        return 2;
    }
    QString const path = QString::fromLocal8Bit(argv[1]);
    if (fen::plotSymbolAtlas().save(path, "PNG")) return 0;
    std::fprintf(stderr, "%s: cannot be written\n", argv[1]);
    return 1;
}
