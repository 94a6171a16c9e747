#pragma once

#include "../logging/Export.h"

#include <QByteArray>
#include <QHash>
#include <QImage>
#include <QString>

/// Images and fonts of the application by name.
///
/// "plotSymbols.png", the atlas of plot symbols, is built in and may be replaced.
class FENVIS_EXPORT FenResource {
public:
    void setImage(QString const& name, QImage const& image);
    /// Null when there is none of this name.
    QImage image(QString const& name) const;
    /// True when the host has set an image of this name.
    bool hasImage(QString const& name) const { return _images.contains(name); }

    /// @param data  a TrueType or OpenType file
    void setFont(QString const& name, QByteArray const& data);
    /// Empty when there is none of this name.
    QByteArray font(QString const& name) const;

private:
    QHash<QString, QImage> _images;
    QHash<QString, QByteArray> _fonts;
};
