#pragma once

#include "../logging/Export.h"
#include "../properties/PropertyAdaptor.h"

#include <QColor>
#include <QString>

/// What all chart data objects have in common: title and text colours; and the texts of styles, modes and
/// symbols that variables name.
///
/// A chart data object is the content of one chart node (its child "chart"); it draws nothing itself.
class FENVIS_EXPORT FenChart : public FenProperties {
public:
    static QString const typeString;

    static QString const styleNone, styleLine, styleSpline, styleStep, styleBar;
    static QString const lineNone, lineSolid, lineGradient;
    static QString const fillNone, fillSolid, fillSparse, fillGradient;
    static QString const symbolNone, symbolRect, symbolEllipse, symbolTriangle, symbolUTriangle,
        symbolDTriangle, symbolLTriangle, symbolRTriangle, symbolDiamond, symbolHexagon, symbolStar,
        symbolCross, symbolXCross;
    static QString const legendVertical;

    explicit FenChart(FenModifiedGroup& group);
    FenChart(FenChart const& other);
    FenChart& operator=(FenChart const&) = default;
    ~FenChart() override;

    FenPropertyAdaptor<QString> title;
    FenPropertyAdaptor<QColor> titleColor;
    FenPropertyAdaptor<QColor> textColor;

    /// Tells the chart that `item`, an axis or variable in one of its lists, was called `oldName`.
    static void tellRename(FenProperties const& item, QString const& oldName);

protected:
    /// Called when an item of one of the lists was renamed: what refers to it by name follows.
    virtual void onItemRename(FenProperties const& list, QString const& oldName, QString const& newName);
    /// Names a by-value member and makes it a child of this object.
    void insertNested(FenProperties& child, QString const& name);
};
