#include "apps/viewer/PropertyPanel.h"

#include "host/edit/UndoPropertyEdit.h"
#include "host/scene/Scene.h"
#include "services/math/Matrix.h"
#include "services/math/Vector2.h"
#include "services/math/Vector3.h"
#include "services/properties/Properties.h"
#include "services/properties/ValueText.h"
#include "services/properties/ViewPtr.h"

#include <QHeaderView>
#include <QPixmap>

#include <vector>

namespace {

enum Column { KeyColumn, ValueColumn };
int const swatchSize = 12; // [px]

/// A branch stands for a tree node and is filled when it is opened first.
class Branch : public QTreeWidgetItem {
public:
    explicit Branch(FenProperties& theItem)
        : item(&theItem)
    {
        setText(KeyColumn, theItem.name());
        setChildIndicatorPolicy(ShowIndicator);
    }
    fen::view_ptr<FenProperties> item;
    bool filled = false;
};

template <class T>
bool reads(QString const& text)
{
    T value{};
    return fen::fromText(text, value);
}

/// True when a text can be read as the type that a setting was declared with.
bool fits(QString const& text, QString const& type)
{
    using Check = bool (*)(QString const&);
    static QHash<QString, Check> const checks{
        {QStringLiteral("bool"), reads<bool>},
        {QStringLiteral("int"), reads<int>},
        {QStringLiteral("unsigned"), reads<unsigned>},
        {QStringLiteral("float"), reads<float>},
        {QStringLiteral("double"), reads<double>},
        {QStringLiteral("QColor"), reads<QColor>},
        {QStringLiteral("QStringList"), reads<QStringList>},
        {QStringLiteral("QColorList"), reads<QList<QColor>>},
        {QStringLiteral("Vector2"), reads<Kes::Math::Vector2>},
        {QStringLiteral("Vector3"), reads<Kes::Math::Vector3>},
        {QStringLiteral("Matrix"), reads<Kes::Math::Matrix>},
        {QStringLiteral("DoubleList"), reads<std::vector<double>>},
    };
    Check const check = checks.value(type, nullptr);
    return !check || check(text);
}

QIcon swatch(QString const& text)
{
    QColor color;
    if (!fen::fromText(text, color) || !color.isValid()) return {};
    QPixmap picture(swatchSize, swatchSize);
    picture.fill(color);
    return picture;
}

} // namespace

PropertyPanel::PropertyPanel(FenVisScene& scene, QWidget* parent)
    : QTreeWidget(parent)
    , _scene(scene)
    , _watcher(&scene.root())
{
    setHeaderLabels({QStringLiteral("Property"), QStringLiteral("Value")});
    setUniformRowHeights(true);
    setAlternatingRowColors(true);
    setEditTriggers(NoEditTriggers);
    header()->setSectionResizeMode(KeyColumn, QHeaderView::ResizeToContents);
    connect(this, &QTreeWidget::itemExpanded, this, [this](QTreeWidgetItem* item) {
        auto* const branch = dynamic_cast<Branch*>(item);
        if (branch && branch->item && !branch->filled) fill(branch, *branch->item);
    });
    connect(this, &QTreeWidget::itemDoubleClicked, this, [this](QTreeWidgetItem* item, int column) {
        if (column == ValueColumn && !dynamic_cast<Branch*>(item)) editItem(item, ValueColumn);
    });
    connect(this, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem* item, int column) {
        if (!_filling && column == ValueColumn) accept(item);
    });
    refresh();
}

void PropertyPanel::refresh()
{
    if (!_watcher.modified()) return;
    _watcher.reset();
    FenVisList& root = _scene.root();
    _filling = true;
    if (topLevelItemCount() == 0) {
        auto* const branch = new Branch(root);
        branch->setText(KeyColumn, QStringLiteral("scene"));
        addTopLevelItem(branch);
        fill(branch, root);
        branch->setExpanded(true);
    }
    refreshBranch(topLevelItem(0));
    _filling = false;
}

void PropertyPanel::fill(QTreeWidgetItem* item, FenProperties& node)
{
    bool const wasFilling = std::exchange(_filling, true);
    auto* const branch = static_cast<Branch*>(item);
    qDeleteAll(branch->takeChildren());
    QList<QTreeWidgetItem*> rows;
    for (unsigned i = 0; i < node.size(); ++i) rows << new Branch(*node.at(i));
    for (QString const& key : node.string().keys()) {
        auto* const leaf = new QTreeWidgetItem;
        leaf->setText(KeyColumn, key);
        leaf->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsEditable);
        showValue(leaf, node, key);
        rows << leaf;
    }
    branch->addChildren(rows);
    branch->filled = true;
    _filling = wasFilling;
}

void PropertyPanel::refreshBranch(QTreeWidgetItem* item)
{
    auto* const branch = static_cast<Branch*>(item);
    FenProperties* const node = branch->item.get();
    if (!node || !branch->filled) return;
    QStringList const keys = node->string().keys();
    bool same = branch->childCount() == int(node->size()) + int(keys.size());
    for (unsigned i = 0; same && i < node->size(); ++i) {
        auto const* const child = dynamic_cast<Branch const*>(branch->child(int(i)));
        same = child && child->item.get() == node->at(i) && child->text(KeyColumn) == node->at(i)->name();
    }
    if (!same) {
        fill(branch, *node);
        return;
    }
    for (int i = 0; i < int(node->size()); ++i) refreshBranch(branch->child(i));
    for (int i = 0; i < int(keys.size()); ++i)
        showValue(branch->child(int(node->size()) + i), *node, keys.at(i));
}

void PropertyPanel::showValue(QTreeWidgetItem* leaf, FenProperties const& item, QString const& key)
{
    QString const value = item.getString(key, QString());
    bool const isNew = leaf->data(ValueColumn, Qt::UserRole).isNull();
    if (!isNew && leaf->text(ValueColumn) == value) return;
    QString const type = item.string().typeName(key);
    QString const unit = item.string().getUnit(key, QString());
    leaf->setText(ValueColumn, value);
    leaf->setData(ValueColumn, Qt::UserRole, value); // what a refused edit goes back to
    leaf->setToolTip(KeyColumn,
                     unit.isEmpty() ? type : type + QStringLiteral(" [%1]").arg(unit.toHtmlEscaped()));
    if (type == QLatin1String("QColor")) leaf->setIcon(ValueColumn, swatch(value));
}

void PropertyPanel::accept(QTreeWidgetItem* leaf)
{
    auto* const branch = dynamic_cast<Branch*>(leaf->parent());
    FenProperties* const item = branch ? branch->item.get() : nullptr;
    if (!item) return;
    QString const key = leaf->text(KeyColumn);
    QString const value = leaf->text(ValueColumn);
    if (!fits(value, item->string().typeName(key))) {
        _filling = true;
        leaf->setText(ValueColumn, leaf->data(ValueColumn, Qt::UserRole).toString());
        _filling = false;
        return;
    }
    _scene.propertyEdit().edit(*item, key, value);
    if (_changed) _changed();
}
