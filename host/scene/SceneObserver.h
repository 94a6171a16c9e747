#pragma once

/// Is told when a scene has been updated and laid out. See `FenVisScene::addObserver`.
class IFenSceneObserver {
public:
    /// @return true when it changed something that has to be updated before the picture is drawn
    virtual bool sceneUpdated() = 0;

protected:
    ~IFenSceneObserver() = default;
};
