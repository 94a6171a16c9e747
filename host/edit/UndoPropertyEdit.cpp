#include "host/edit/UndoPropertyEdit.h"

#include "framework/Visualization.h"
#include "services/chartdata/Chart.h"
#include "services/properties/Properties.h"
#include "services/properties/ViewPtr.h"

#include <QStringList>
#include <QUndoCommand>
#include <QUndoStack>

#include <algorithm>
#include <chrono>
#include <utility>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;
auto const mergeTime = std::chrono::seconds(1);
int const amends = -2; // merge id of what belongs to the last step in any case

/// One setting and its two texts. Nodes that are gone are skipped.
struct Change {
    fen::view_ptr<FenProperties> item;
    QString key;
    QString before;
    QString after;
    bool kept = false; ///< put back by undo though the step itself did not change it

    void write(QString const& value) const
    {
        if (auto* const target = item.get()) target->setValue(key, value);
    }
};
using Changes = std::vector<Change>;

Change* find(Changes& changes, FenProperties const* item, QString const& key)
{
    auto const found = std::find_if(changes.begin(), changes.end(), [&](Change const& change) {
        return change.item.get() == item && change.key == key;
    });
    return found == changes.end() ? nullptr : &*found;
}

void undoAll(Changes const& changes)
{
    for (auto change = changes.rbegin(); change != changes.rend(); ++change) change->write(change->before);
}

/// A finished step.
class EditCommand : public QUndoCommand {
public:
    /// @param mergeId  as `beginStep` takes it, or `amends`
    EditCommand(QString const& text, Changes changes, int mergeId)
        : QUndoCommand(text)
        , _changes(std::move(changes))
        , _mergeId(mergeId)
        , _time(Clock::now())
    {
    }
    void undo() override { undoAll(_changes); }
    /// Writes what is there already when the step is new.
    void redo() override
    {
        for (Change const& change : _changes) change.write(change.after);
    }
    int id() const override { return 1; } // any two may join; `mergeWith` decides
    bool mergeWith(QUndoCommand const* other) override
    {
        auto const* const next = dynamic_cast<EditCommand const*>(other);
        if (!next || !(next->_mergeId == amends || joinedBy(*next))) return false;
        for (Change const& change : next->_changes) {
            Change* const known = find(_changes, change.item.get(), change.key);
            if (known)
                known->after = change.after;
            else
                _changes.push_back(change);
        }
        _time = next->_time;
        return true;
    }

private:
    bool joinedBy(EditCommand const& next) const
    {
        return _mergeId != -1 && next._mergeId == _mergeId && next.text() == text()
            && next._time - _time <= mergeTime;
    }

    Changes _changes;
    int _mergeId;
    Clock::time_point _time;
};

FenVisualization const* nodeOf(FenProperties const* item)
{
    for (; item; item = item->parent()) {
        if (auto const* const node = dynamic_cast<FenVisualization const*>(item)) return node;
    }
    return nullptr;
}

QString describeAll(Changes const& changes)
{
    int const mostKeysNamed = 3;
    Change const& first = changes.front();
    FenProperties const* const item = first.item.get();
    if (!item) return QStringLiteral("Change settings");
    QStringList keys;
    bool sameItem = true;
    bool sameNode = true;
    for (Change const& change : changes) {
        sameItem = sameItem && change.item.get() == item;
        sameNode = sameNode && nodeOf(change.item.get()) == nodeOf(item);
        keys << change.key;
    }
    if (sameItem && keys.size() <= mostKeysNamed)
        return QStringLiteral("Set ") + FenUndoPropertyEdit::describe(*item, keys.join(QStringLiteral(", ")));
    if (sameNode && nodeOf(item)) return QStringLiteral("Change ") + nodeOf(item)->name();
    return QStringLiteral("Change %1 settings").arg(changes.size());
}

} // namespace

struct FenUndoPropertyEdit::Step {
    QString text;
    int mergeId;
    int depth;
    Changes changes;
};

/// Stands on the stack for a step that is still open. Undoing it cancels the step and takes it from
/// the stack, as the end of the step does.
class FenUndoPropertyEdit::HeldCommand : public QUndoCommand {
public:
    HeldCommand(FenUndoPropertyEdit& edit, QString const& text, std::function<void()> cancel)
        : QUndoCommand(text)
        , _edit(&edit)
        , _cancel(std::move(cancel))
    {
    }
    ~HeldCommand() override
    {
        if (_edit) _edit->_held = nullptr;
    }
    void redo() override { }
    void undo() override
    {
        FenUndoPropertyEdit* const edit = forget();
        if (_cancel) _cancel();
        if (edit) edit->cancelStep();
    }
    /// The stack deletes it at the next chance and neither undoes nor redoes it.
    FenUndoPropertyEdit* forget()
    {
        setObsolete(true);
        if (_edit) _edit->_held = nullptr;
        return std::exchange(_edit, nullptr);
    }

private:
    FenUndoPropertyEdit* _edit;
    std::function<void()> _cancel;
};

FenUndoPropertyEdit::FenUndoPropertyEdit(QUndoStack& stack)
    : _stack(stack)
{
}

FenUndoPropertyEdit::~FenUndoPropertyEdit()
{
    if (_held) _held->forget();
}

void FenUndoPropertyEdit::beginEdit() { beginStep(); }

void FenUndoPropertyEdit::editProperty(FenProperties&, FenProperties& item, QString const& key,
                                       QString const& value)
{
    edit(item, key, value);
}

void FenUndoPropertyEdit::endEdit() { endStep(); }

void FenUndoPropertyEdit::edit(FenProperties& item, QString const& key, QString const& value)
{
    beginStep();
    noteChange(item, key, item.getString(key, QString()));
    item.setValue(key, value);
    endStep();
}

void FenUndoPropertyEdit::beginStep(QString const& text, int mergeId)
{
    if (!_step) {
        _step = std::make_unique<Step>(Step{text, mergeId, 1, {}});
        return;
    }
    ++_step->depth;
    if (_step->text.isEmpty()) _step->text = text;
}

void FenUndoPropertyEdit::endStep()
{
    if (!_step || --_step->depth > 0) return;
    auto const step = std::move(_step);
    release();
    Changes changed;
    for (Change& change : step->changes) {
        FenProperties const* const item = change.item.get();
        if (!item) continue;
        change.after = item->getString(change.key, QString());
        if (change.after != change.before || change.kept) changed.push_back(change);
    }
    if (std::all_of(changed.begin(), changed.end(), [](Change const& change) { return change.kept; })) return;
    QString const text = step->text.isEmpty() ? describeAll(changed) : step->text;
    _stack.push(new EditCommand(text, std::move(changed), step->mergeId));
}

void FenUndoPropertyEdit::cancelStep()
{
    if (!_step) return;
    auto const step = std::move(_step);
    undoAll(step->changes);
    release();
}

void FenUndoPropertyEdit::amendStep() { beginStep(QString(), amends); }

void FenUndoPropertyEdit::holdStep(std::function<void()> cancel)
{
    if (!_step || _held) return;
    QString const text = _step->text.isEmpty() ? QStringLiteral("Drag") : _step->text;
    _held = new HeldCommand(*this, text, std::move(cancel));
    _stack.push(_held);
}

void FenUndoPropertyEdit::release()
{
    if (!_held) return;
    _held->forget();
    _stack.undo(); // takes it from the stack, for it is obsolete
}

bool FenUndoPropertyEdit::stepOpen() const { return bool(_step); }

void FenUndoPropertyEdit::noteChange(FenProperties& item, QString const& key, QString const& before)
{
    if (_step && !find(_step->changes, &item, key)) _step->changes.push_back({&item, key, before, {}, false});
}

void FenUndoPropertyEdit::keep(FenProperties& item, QString const& key)
{
    if (_step && !find(_step->changes, &item, key))
        _step->changes.push_back({&item, key, item.getString(key, QString()), {}, true});
}

QString FenUndoPropertyEdit::describe(FenProperties const& item, QString const& key)
{
    QStringList path;
    FenProperties const* const node = nodeOf(&item);
    bool const isContent = dynamic_cast<FenChart const*>(&item) != nullptr;
    if (node) path << node->name();
    if (node != &item && !(node && isContent)) path << item.name();
    path << key;
    path.removeAll(QString());
    return path.join(QLatin1Char('.'));
}
