#pragma once

#include "../../services/logging/Export.h"
#include "../../services/properties/ViewPtr.h"

#include <QHash>

#include <boost/shared_ptr.hpp>

class FenProperties;
class QString;

/// What a pick name stands for: the tree node that owns the hit, and which part of it.
///
/// Points at the owner without owning it and notices when it is destroyed: from
/// then on the value counts as undefined, whatever is built in the same place.
class FENVIS_EXPORT FenVisHitProperty {
public:
    /// Which part of its owner a hit means. Handlers ask for the concrete class.
    class FENVIS_EXPORT IQualifier {
    public:
        virtual ~IQualifier() = default;
        /// Description for logs and tooltips.
        virtual QString toString() const = 0;
    };

    /// Undefined.
    FenVisHitProperty();
    /// The whole of `owner`; undefined for null.
    FenVisHitProperty(FenProperties const* owner);
    FenVisHitProperty(FenProperties const* owner, boost::shared_ptr<IQualifier> part);

    /// True while there is an owner.
    bool defined() const;
    /// True when `owner` owns the hit; qualifiers are not compared. Undefined
    /// equals nothing, not even undefined.
    bool isPropertyEqual(FenProperties const* owner) const;
    bool isPropertyEqual(FenVisHitProperty const& other) const;

    /// Set by the constructors. Ask `defined()` before following it: the owner may be gone.
    FenProperties const* property = nullptr;
    /// Empty: the whole property.
    boost::shared_ptr<IQualifier> qualifier;

private:
    fen::view_ptr<FenProperties const> _owner;
};

/// What the names of one node's last select pass stand for.
typedef QHash<quint32, FenVisHitProperty> FenVisHitTable;
