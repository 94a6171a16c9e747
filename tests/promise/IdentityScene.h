#pragma once

#include <QColor>
#include <QString>

#include <functional>
#include <random>
#include <vector>

class FenProperties;
class FenVisScene;

/// The pickable things of a random scene, each with a colour that it can be drawn in alone.
struct IdentityScene {
    struct Thing {
        QColor color;
        FenProperties const* owner;
        /// Picked by the rectangles around its texts as well as by its pixels.
        bool hasTexts;
        /// [px] from its pixels to where it is picked still: symbols are picked by their squares.
        int reach;
        /// Gives the thing its colour.
        std::function<void()> paint;
    };
    std::vector<Thing> things;

    /// The thing that is drawn in exactly this colour; null for none.
    Thing const* drawnIn(QColor const& color) const;
    Thing const* ownedBy(FenProperties const* owner) const;
};

/// One kind of node in the comparison of drawing and picking. A new kind is a new row.
struct IdentityKind {
    char const* name;
    /// Fills an empty scene at random; all random choices come from `random`.
    IdentityScene (*make)(FenVisScene& scene, std::mt19937& random);
};

std::vector<IdentityKind> const& identityKinds();
