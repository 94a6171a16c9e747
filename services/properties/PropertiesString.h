#pragma once

#include "../logging/Export.h"
#include "../math/Matrix.h"
#include "../math/Vector2.h"
#include "../math/Vector3.h"

#include <QColor>
#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

#include <concepts>
#include <memory>
#include <type_traits>
#include <variant>
#include <vector>

class FenModified;

/// The key/value store of one tree node: texts by key, read and written typed.
///
/// What counts is the text of a value: a write that leaves it as it is changes
/// nothing; any other is a change of the node. The text of a typed value is
/// made when somebody asks for it. A text that cannot be read as the type asked
/// for gives the default and one line in the log until it is written anew.
///
/// Each key may carry a unit, before it has a value too.
class FENVIS_EXPORT FenPropertiesString {
public:
    typedef Kes::Math::Vector2 Vector2;
    typedef Kes::Math::Vector3 Vector3;
    typedef Kes::Math::Matrix Matrix;

    /// @param owner  told about each change; may be null
    explicit FenPropertiesString(FenModified* owner = nullptr);
    /// Takes values and units, not the owner.
    FenPropertiesString(FenPropertiesString const& other);
    /// Takes values and units (keys that `other` lacks become undefined); one change at most.
    FenPropertiesString& operator=(FenPropertiesString const& other);
    ~FenPropertiesString();

    bool defined(QString const& key) const;
    /// The keys that have values, in the order in which they came.
    QStringList keys() const;
    /// Type of the value as it was declared or last written: "bool", "int", "unsigned", "float",
    /// "double", "QString", "QColor", "QStringList", "QColorList", "Vector2", "Vector3", "Matrix",
    /// "DoubleList"; texts keep it. Empty for an undefined key.
    QString typeName(QString const& key) const;

    /// Reads the value of a key, or `def` where it is undefined or unreadable.
    /// @return the stored text; empty when the key is undefined
    QString getValue(QString const& key, bool& value, bool const& def) const { return get(key, value, def); }
    QString getValue(QString const& key, int& value, int const& def) const { return get(key, value, def); }
    QString getValue(QString const& key, unsigned& value, unsigned const& def) const
    {
        return get(key, value, def);
    }
    QString getValue(QString const& key, float& value, float const& def) const
    {
        return get(key, value, def);
    }
    QString getValue(QString const& key, double& value, double const& def) const
    {
        return get(key, value, def);
    }
    QString getValue(QString const& key, QString& value, QString const& def) const
    {
        return get(key, value, def);
    }
    QString getValue(QString const& key, QColor& value, QColor const& def) const
    {
        return get(key, value, def);
    }
    QString getValue(QString const& key, Vector2& value, Vector2 const& def) const
    {
        return get(key, value, def);
    }
    QString getValue(QString const& key, Vector3& value, Vector3 const& def) const
    {
        return get(key, value, def);
    }
    QString getValue(QString const& key, Matrix& value, Matrix const& def) const
    {
        return get(key, value, def);
    }
    typedef std::vector<double> DoubleList;
    typedef std::vector<int> IntList;
    typedef std::vector<bool> BoolList;
    typedef QList<QColor> ColorList;
    QString getValue(QString const& key, QStringList& value, QStringList const& def) const
    {
        return get(key, value, def);
    }
    QString getValue(QString const& key, ColorList& value, ColorList const& def) const
    {
        return get(key, value, def);
    }
    QString getValue(QString const& key, DoubleList& value, DoubleList const& def) const
    {
        return get(key, value, def);
    }
    QString getValue(QString const& key, IntList& value, IntList const& def) const
    {
        return get(key, value, def);
    }
    QString getValue(QString const& key, BoolList& value, BoolList const& def) const
    {
        return get(key, value, def);
    }

    /// Writes the value of a key.
    /// @return the stored text
    QString setValue(QString const& key, bool const& value) { return set(key, value); }
    QString setValue(QString const& key, int const& value) { return set(key, value); }
    QString setValue(QString const& key, unsigned const& value) { return set(key, value); }
    QString setValue(QString const& key, float const& value) { return set(key, value); }
    QString setValue(QString const& key, double const& value) { return set(key, value); }
    QString setValue(QString const& key, QString const& value) { return set(key, value); }
    QString setValue(QString const& key, char const* value) { return set(key, QString::fromUtf8(value)); }
    QString setValue(QString const& key, QColor const& value) { return set(key, value); }
    QString setValue(QString const& key, Qt::GlobalColor const& value) { return set(key, QColor(value)); }
    QString setValue(QString const& key, Vector2 const& value) { return set(key, value); }
    QString setValue(QString const& key, Vector3 const& value) { return set(key, value); }
    QString setValue(QString const& key, Matrix const& value) { return set(key, value); }
    QString setValue(QString const& key, QStringList const& value) { return set(key, value); }
    QString setValue(QString const& key, ColorList const& value) { return set(key, value); }
    QString setValue(QString const& key, DoubleList const& value) { return set(key, value); }
    /// Other integers would lose digits, other pointers would become true.
    template <std::integral T>
    QString setValue(QString const& key, T const& value) = delete;
    template <class T>
    requires(!std::is_same_v<T, char> && !std::is_same_v<T, char const>) QString
        setValue(QString const& key, T* value)
    = delete;

    /// Unit of a key, or `def` when none is stored.
    QString getUnit(QString const& key, QString const& def) const;
    void setUnit(QString const& key, QString const& unit);

    /// @name Access by slot, for property adaptors
    /// The place of a key stays the same as long as the store lives.
    /// @{
    /// Place of a key; made, undefined, when the key is new.
    unsigned place(QString const& key);
    /// Says that the values of a key are of type T; changes none.
    template <class T>
    void declare(unsigned slot);
    bool defined(unsigned slot) const { return _entries[slot].defined; }
    /// Changes with each change of the value.
    quint64 revision(unsigned slot) const { return _entries[slot].revision; }
    template <class T>
    void read(unsigned slot, T& value, T const& def) const;
    template <class T>
    void write(unsigned slot, T const& value);
    /// @}

private:
    friend class FenProperties;
    typedef std::variant<std::monostate, bool, int, unsigned, float, double, QStringList, QColor, ColorList,
                         Vector2, Vector3, std::shared_ptr<Matrix const>, DoubleList>
        Value;
    struct Entry {
        QString key;
        QString unit;
        mutable QString text; ///< of a typed value only when `hasText`
        Value value; ///< monostate: the text is all there is
        quint64 revision = 0;
        unsigned char type = 0; ///< the alternative of `Value` declared or written last
        bool defined = false;
        mutable bool hasText = true;
        mutable bool reported = false; ///< the log has a line about the present text
    };

    int find(QString const& key) const;
    void changed(Entry& entry);
    void undefine(Entry& entry);
    /// Takes value and unit of another store's entry. @return whether that is a change
    bool take(Entry const& theirs);
    static bool sameText(Entry const& a, Entry const& b);
    static QString const& text(Entry const& entry);
    template <class T>
    static bool readText(Entry const& entry, T& value);
    template <class T>
    QString get(QString const& key, T& value, T const& def) const;
    template <class T>
    QString set(QString const& key, T const& value);

    FenModified* _owner;
    std::vector<Entry> _entries;
    QHash<QString, unsigned> _index; ///< empty as long as there are few entries
    quint64 _revision = 0;
};
