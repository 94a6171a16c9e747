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
    int id() const override { return _mergeId; }
    bool mergeWith(QUndoCommand const* other) override
    {
        auto const* const next = dynamic_cast<EditCommand const*>(other);
        if (!next || next->text() != text() || next->_time - _time > mergeTime) return false;
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

FenUndoPropertyEdit::FenUndoPropertyEdit(QUndoStack& stack)
    : _stack(stack)
{
}

FenUndoPropertyEdit::~FenUndoPropertyEdit() = default;

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
