#pragma once

#include "../../framework/IVisPropertyEdit.h"
#include "../../services/logging/Export.h"

#include <QString>

#include <functional>
#include <memory>

class FenProperties;
class QUndoStack;

/// Property editor whose writes are steps of a QUndoStack.
///
/// A value is written at once, so that it shows while the user drags; the step
/// is pushed when the outermost bracket closes. What ends up as it was before
/// makes no step. While a drag is held, "Undo" cancels it. A step survives the nodes that it names: undoing
/// it leaves out what no longer exists. The stack must outlive the editor.
class FENVIS_EXPORT FenUndoPropertyEdit : public IFenVisPropertyEdit {
public:
    explicit FenUndoPropertyEdit(QUndoStack& stack);
    ~FenUndoPropertyEdit();
    FenUndoPropertyEdit(FenUndoPropertyEdit const&) = delete;
    FenUndoPropertyEdit& operator=(FenUndoPropertyEdit const&) = delete;

    // === As nodes write: one bracket is one step, unless a step is open already

    void beginEdit() override;
    void editProperty(FenProperties& chart, FenProperties& item, QString const& key,
                      QString const& value) override;
    void endEdit() override;

    // === As hosts write

    /// One setting as a step of its own ("Set plot.x.max").
    void edit(FenProperties& item, QString const& key, QString const& value);
    /// Gathers everything up to `endStep` or `cancelStep` into one step: a drag.
    /// @param text     what a menu shows behind "Undo"; empty: made from what was changed
    /// @param mergeId  a step with the same id (not -1) and text that follows within a second
    ///                 joins the one before
    void beginStep(QString const& text = QString(), int mergeId = -1);
    void endStep();
    /// As `beginStep`, but what follows belongs to the step that was made last, whenever that was.
    void amendStep();
    /// The open step will stay open over several events (a drag): puts it onto the stack as it is, so
    /// that "Undo" meanwhile cancels it and nothing else.
    /// @param cancel  is called then; it has to lead to `cancelStep`
    void holdStep(std::function<void()> cancel);
    /// Writes back what the open step has changed and forgets it; the stack stays as it is.
    void cancelStep();
    bool stepOpen() const;
    /// Takes a change that was written elsewhere into the open step.
    /// @param before  the text that the key had
    void noteChange(FenProperties& item, QString const& key, QString const& before);
    /// Undoing the open step puts back what the key has now, whoever writes it later (a range that
    /// the passes find once it is automatic).
    void keep(FenProperties& item, QString const& key);

    /// Path of a setting as a person reads it: names of the node, of the item inside it (data
    /// model levels left out) and the key, as in "plot.x.max".
    static QString describe(FenProperties const& item, QString const& key);

private:
    struct Step;
    class HeldCommand;
    void release();
    QUndoStack& _stack;
    std::unique_ptr<Step> _step;
    HeldCommand* _held = nullptr; // on the stack while a held step is open
};
