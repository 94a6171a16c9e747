#pragma once

#include "../framework/VisPassiveNode.h"
#include "../services/logging/Export.h"

#include <QColor>
#include <QPixmap>
#include <QString>

/// A colour map that is declared in a scene: other nodes refer to it by its name.
///
/// Draws nothing and cannot be picked. Colours by value are the business of
/// `FenColorMap`, those of a named scheme of `fen::colorScheme`; this node holds the
/// choice and the range.
class FENVIS_EXPORT FenVisColorMap : public FenVisPassiveNode {
public:
    static QString const typeString;

    FenPropertyAdaptor<QString> colorMap; ///< name of the colour scheme
    FenPropertyAdaptor<bool> autoRange; ///< the range follows the data
    FenPropertyAdaptor<double> min; ///< [data] lower end of the fixed range
    FenPropertyAdaptor<double> max; ///< [data] upper end of the fixed range
    /// [data] range in force. The host sets it, from the properties or from data; a copied node starts
    /// from 0, an assigned one takes it over.
    double rangeMinimum = 0;
    double rangeMaximum = 0;

    explicit FenVisColorMap(FenModifiedGroup& group);
    FenVisColorMap(FenVisColorMap const& other);
    FenVisColorMap& operator=(FenVisColorMap const& other) = default;
    ~FenVisColorMap() override;

    double getMin() const { return rangeMinimum; }
    double getMax() const { return rangeMaximum; }
    /// Black for every value: the node has no colours of its own.
    QColor color(double value) const;
    /// A null pixmap.
    QPixmap pixmap(int width, int height) const;
};
