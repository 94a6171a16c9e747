#pragma once

#include "services/properties/ModifiedWatcher.h"

#include <QTreeWidget>

#include <functional>

class FenProperties;
class FenVisScene;

/// The settings of a scene as a tree: a branch for each node, a leaf for each key, its value
/// editable. What is typed is checked against the type of the setting and becomes one undo step.
class PropertyPanel : public QTreeWidget {
public:
    /// @param scene  must outlive the panel
    explicit PropertyPanel(FenVisScene& scene, QWidget* parent = nullptr);

    /// Told after each edit.
    void setChanged(std::function<void()> changed) { _changed = std::move(changed); }
    /// Shows what has changed in the scene since. Cheap when nothing has.
    void refresh();

private:
    void fill(QTreeWidgetItem* branch, FenProperties& item);
    void refreshBranch(QTreeWidgetItem* branch);
    void showValue(QTreeWidgetItem* leaf, FenProperties const& item, QString const& key);
    void accept(QTreeWidgetItem* leaf);

    FenVisScene& _scene;
    std::function<void()> _changed;
    bool _filling = false; // the panel itself is writing into its leaves
    FenModifiedWatcher _watcher; // of the root
};
