#include "services/opengl/Resource.h"

#include "services/opengl/PlotSymbols.h"

void FenResource::setImage(QString const& name, QImage const& image) { _images.insert(name, image); }

QImage FenResource::image(QString const& name) const
{
    auto const set = _images.constFind(name);
    if (set != _images.constEnd()) return *set;
    if (name != QLatin1String(fen::plotSymbolsName)) return QImage();
    static QImage const builtIn = fen::plotSymbolAtlas();
    return builtIn;
}

void FenResource::setFont(QString const& name, QByteArray const& data) { _fonts.insert(name, data); }

QByteArray FenResource::font(QString const& name) const { return _fonts.value(name); }
