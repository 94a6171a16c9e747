#pragma once

#include "../framework/VisList.h"

class FenVisLight;

/// Node list of the lights of a scene. The place of a light among the children
/// is its OpenGL light unit: child i drives GL_LIGHT0 + i.
///
/// The host calls `setLighting` before the 3D pass; changes show from then on.
class FENVIS_EXPORT FenVisLightList : public FenVisList {
public:
    static QString const typeString;

    explicit FenVisLightList(FenModifiedGroup& group);
    /// Copies no lights, as a list copies no children.
    FenVisLightList(FenVisLightList const& other);
    FenVisLightList& operator=(FenVisLightList const&) = default;
    ~FenVisLightList() override;

    using FenVisList::insert;
    /// Names an unnamed light "light", then inserts it as the tree does.
    /// @return false for null and where the tree refuses
    bool insert(FenVisLight* item, bool nested);

    /// The light of that name, made when absent. When there is a child that is no
    /// light, the failure is logged and a placeholder returned that belongs to no
    /// tree: nobody may use it.
    FenVisLight& child(QString const& name, QString const& type);
    /// The same without making one.
    FenVisLight const& child(QString const& name, QString const& type) const;

    /// Hands the enabled lights to OpenGL and switches off every other light unit.
    /// GL_LIGHTING itself, the matrices and their mode stay as they are. Lights
    /// beyond the units that there are do nothing.
    void setLighting() const;

protected:
    /// Always a light, whatever the type.
    FenProperties* makeChild(QString const& name, QString const& type) override;
};
