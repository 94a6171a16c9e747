#include "services/properties/PropertiesString.h"

#include "services/logging/Checks.h"
#include "services/properties/Modified.h"
#include "services/properties/StoredValue.h"
#include "services/properties/ValueText.h"

#include <type_traits>

using fen::stored::given;
using fen::stored::isStorable;
using fen::stored::isText;
using fen::stored::kept;
using fen::stored::Kept;
using fen::stored::same;

namespace {

std::size_t const fewEntries = 12; ///< up to here keys are compared one by one

/// Names of the types, in the order of the store's alternatives; texts come first.
char const* const typeNames[] = {"QString", "bool",        "int",       "unsigned",   "float",
                                 "double",  "QStringList", "QColor",    "QColorList", "Vector2",
                                 "Vector3", "Matrix",      "DoubleList"};

template <class T>
char const* nameOfType()
{
    if (std::is_same_v<T, std::vector<int>>) return "list of int";
    if (std::is_same_v<T, std::vector<bool>>) return "list of bool";
    return "";
}

/// The beginning of a text, fit for one line of the log.
std::string excerpt(QString const& text)
{
    qsizetype const longest = 40;
    QString line = text.left(longest);
    for (QChar& c : line)
        if (!c.isPrint()) c = u'?';
    if (text.size() > longest) line += QLatin1String("...");
    return line.toStdString();
}

} // namespace

FenPropertiesString::FenPropertiesString(FenModified* owner)
    : _owner(owner)
{
}

FenPropertiesString::FenPropertiesString(FenPropertiesString const& other)
    : _owner(nullptr)
    , _entries(other._entries)
    , _index(other._index)
    , _revision(other._revision)
{
}

FenPropertiesString& FenPropertiesString::operator=(FenPropertiesString const& other)
{
    if (this == &other) return *this;
    bool change = false;
    for (Entry& mine : _entries) {
        int const theirs = other.find(mine.key);
        if (theirs >= 0 && (other._entries[unsigned(theirs)].defined || !mine.defined)) continue;
        if (theirs < 0 && !mine.unit.isEmpty()) {
            mine.unit.clear();
            change = true;
        }
        change |= mine.defined;
        if (mine.defined) undefine(mine);
    }
    for (Entry const& theirs : other._entries) change |= take(theirs);
    if (change && _owner) _owner->modify();
    return *this;
}

FenPropertiesString::~FenPropertiesString() = default;

bool FenPropertiesString::defined(QString const& key) const
{
    int const slot = find(key);
    return slot >= 0 && _entries[unsigned(slot)].defined;
}

QStringList FenPropertiesString::keys() const
{
    QStringList list;
    for (Entry const& entry : _entries)
        if (entry.defined) list.push_back(entry.key);
    return list;
}

QString FenPropertiesString::typeName(QString const& key) const
{
    return defined(key) ? QLatin1String(typeNames[_entries[unsigned(find(key))].type]) : QString();
}

QString FenPropertiesString::getUnit(QString const& key, QString const& def) const
{
    int const slot = find(key);
    if (slot < 0 || _entries[unsigned(slot)].unit.isEmpty()) return def;
    return _entries[unsigned(slot)].unit;
}

void FenPropertiesString::setUnit(QString const& key, QString const& unit)
{
    if (getUnit(key, QString()) == unit) return;
    _entries[place(key)].unit = unit;
    if (_owner) _owner->modify();
}

int FenPropertiesString::find(QString const& key) const
{
    if (!_index.isEmpty()) {
        auto const found = _index.constFind(key);
        return found == _index.cend() ? -1 : int(*found);
    }
    for (std::size_t i = 0; i < _entries.size(); ++i)
        if (_entries[i].key == key) return int(i);
    return -1;
}

unsigned FenPropertiesString::place(QString const& key)
{
    int const found = find(key);
    if (found >= 0) return unsigned(found);
    unsigned const slot = unsigned(_entries.size());
    _entries.emplace_back().key = key;
    if (!_index.isEmpty()) {
        _index.insert(key, slot);
    } else if (_entries.size() > fewEntries) {
        for (unsigned i = 0; i <= slot; ++i) _index.insert(_entries[i].key, i);
    }
    return slot;
}

void FenPropertiesString::changed(Entry& entry)
{
    entry.defined = true;
    entry.reported = false;
    entry.revision = ++_revision;
    if (_owner) _owner->modify();
}

void FenPropertiesString::undefine(Entry& entry)
{
    entry.value = std::monostate();
    entry.text.clear();
    entry.hasText = true;
    entry.defined = false;
    entry.revision = ++_revision;
}

bool FenPropertiesString::take(Entry const& theirs)
{
    Entry& mine = _entries[place(theirs.key)];
    bool change = mine.unit != theirs.unit;
    mine.unit = theirs.unit;
    if (!theirs.defined || (mine.defined && sameText(mine, theirs))) return change;
    mine.value = theirs.value;
    mine.text = theirs.text;
    mine.hasText = theirs.hasText;
    mine.type = theirs.type;
    mine.defined = true;
    mine.reported = false;
    mine.revision = ++_revision;
    return true;
}

bool FenPropertiesString::sameText(Entry const& a, Entry const& b)
{
    if (a.value.index() != b.value.index() || a.value.index() == 0) return text(a) == text(b);
    return std::visit(
        [&b](auto const& value) {
            typedef std::decay_t<decltype(value)> Type;
            if constexpr (std::is_same_v<Type, std::monostate>)
                return true;
            else
                return same(value, std::get<Type>(b.value));
        },
        a.value);
}

QString const& FenPropertiesString::text(Entry const& entry)
{
    if (entry.hasText) return entry.text;
    std::visit(
        [&entry](auto const& value) {
            if constexpr (!std::is_same_v<std::decay_t<decltype(value)>, std::monostate>)
                entry.text = fen::toText(given(value));
        },
        entry.value);
    entry.hasText = true;
    return entry.text;
}

template <class T>
bool FenPropertiesString::readText(Entry const& entry, T& value)
{
    if (fen::fromText(text(entry), value)) return true;
    if (entry.reported) return false;
    entry.reported = true;
    std::string type = nameOfType<T>();
    if constexpr (isStorable<T>) type = typeNames[Value(typename Kept<T>::Type()).index()];
    std::string const what =
        "value \"" + excerpt(text(entry)) + "\" of property \"" + excerpt(entry.key) + "\" is no " + type;
    fen::debug_logger::debuglogger().derr << fen::warningText(what, __PRETTY_FUNCTION__, "@line 271") << '\n';
    return false;
}

template <class T>
void FenPropertiesString::declare(unsigned slot)
{
    if constexpr (isStorable<T>)
        _entries[slot].type = static_cast<unsigned char>(Value(typename Kept<T>::Type()).index());
}

template <class T>
void FenPropertiesString::read(unsigned slot, T& value, T const& def) const
{
    Entry const& entry = _entries[slot];
    if (!entry.defined) {
        value = def;
        return;
    }
    if constexpr (isStorable<T>) {
        if (auto const* const held = std::get_if<typename Kept<T>::Type>(&entry.value)) {
            value = given(*held);
            return;
        }
    }
    if (!readText(entry, value)) value = def;
}

template <class T>
void FenPropertiesString::write(unsigned slot, T const& value)
{
    Entry& entry = _entries[slot];
    if constexpr (isText<T>) {
        if (entry.defined && text(entry) == value) return;
        entry.value = std::monostate();
        entry.text = value;
        entry.hasText = true;
    } else {
        auto* const held = std::get_if<typename Kept<T>::Type>(&entry.value);
        if (held) {
            if (same(*held, value)) return;
            *held = kept(value);
            entry.text = QString();
            entry.hasText = false;
        } else {
            QString const asText = fen::toText(value);
            bool const known = entry.defined && text(entry) == asText;
            entry.value = kept(value);
            entry.text = asText;
            entry.hasText = true;
            declare<T>(slot);
            if (known) return;
        }
    }
    changed(entry);
}

template <class T>
QString FenPropertiesString::get(QString const& key, T& value, T const& def) const
{
    int const slot = find(key);
    if (slot < 0 || !_entries[unsigned(slot)].defined) {
        value = def;
        return QString();
    }
    read(unsigned(slot), value, def);
    return text(_entries[unsigned(slot)]);
}

template <class T>
QString FenPropertiesString::set(QString const& key, T const& value)
{
    unsigned const slot = place(key);
    write(slot, value);
    return text(_entries[slot]);
}

#define FENVIS_READABLE(T)                                                                                   \
    template FENVIS_EXPORT QString FenPropertiesString::get(QString const&, T&, T const&) const;             \
    template FENVIS_EXPORT void FenPropertiesString::read(unsigned, T&, T const&) const;
#define FENVIS_STORABLE(T)                                                                                   \
    FENVIS_READABLE(T)                                                                                       \
    template FENVIS_EXPORT QString FenPropertiesString::set(QString const&, T const&);                       \
    template FENVIS_EXPORT void FenPropertiesString::write(unsigned, T const&);                              \
    template FENVIS_EXPORT void FenPropertiesString::declare<T>(unsigned);

FENVIS_STORABLE(bool)
FENVIS_STORABLE(int)
FENVIS_STORABLE(unsigned)
FENVIS_STORABLE(float)
FENVIS_STORABLE(double)
FENVIS_STORABLE(QString)
FENVIS_STORABLE(QStringList)
FENVIS_STORABLE(QColor)
FENVIS_STORABLE(QList<QColor>)
FENVIS_STORABLE(Kes::Math::Vector2)
FENVIS_STORABLE(Kes::Math::Vector3)
FENVIS_STORABLE(Kes::Math::Matrix)
FENVIS_STORABLE(std::vector<double>)
FENVIS_READABLE(std::vector<int>)
FENVIS_READABLE(std::vector<bool>)
