#include "picking/select/VisOglSelectBuffer.h"

#include "services/logging/Checks.h"

#include <algorithm>
#include <cstddef>

namespace {

// Logged texts, kept as they are.
constexpr char const* extraNameText =
    "_count <= 1 && \"We have inadvertently pushed an additional name to the selection name stack\"";
constexpr char const* extraNameMark = "@line38";
constexpr char const* invalidsText =
    "!hasInvalids && \"performance warning, hits were made when no valid name existed.\"";
constexpr char const* invalidsMark = "@line230";

constexpr char const* tooManyText = "hits <= mostHits && \"a select buffer holds at most a million hits\"";
constexpr char const* tooManyMark = "@line72";

constexpr unsigned int mostHits = 1u << 20;
constexpr std::size_t wordsPerHit = 4; // name count, nearest depth, farthest depth, name
constexpr double farthestWord = 4294967295.0;

/// One hit as OpenGL lays it down: name count, nearest and farthest depth, names.
class Record {
public:
    Record(quint32 const* start, quint32 const* end);

    /// False at the first record without a name or beyond the end.
    bool valid() const { return _valid; }
    Record following(quint32 const* end) const { return Record(_next, end); }
    quint32 name() const { return _p[3]; }
    double depth() const { return _p[1] / farthestWord; } ///< [depth] the nearest
    bool named() const { return name() != FenVisHitRecord::INVALID_NAME; }

private:
    quint32 const* _p;
    quint32 const* _next = nullptr;
    quint32 _count = 0;
    bool _valid = false;
};

Record::Record(quint32 const* start, quint32 const* end)
    : _p(start)
{
    auto const left = std::size_t(end - start);
    if (left < wordsPerHit) return;
    _count = start[0];
    FENVIS_WARN_UNLESS(_count <= 1, extraNameText, extraNameMark);
    if (_count == 0) return; // the zeros behind the last hit
    std::size_t const length = std::size_t(_count) + 3;
    _valid = length <= left;
    if (_valid) _next = start + length;
}

} // namespace

FenVisOglSelectBuffer::FenVisOglSelectBuffer(unsigned int hits)
    : _buffer(wordsPerHit * std::min(hits, mostHits))
{
    FENVIS_WARN_UNLESS(hits <= mostHits, tooManyText, tooManyMark);
}

unsigned int FenVisOglSelectBuffer::count() const
{
    if (_hitCount == 0) return 0;
    unsigned int count = 0;
    bool hasInvalids = false;
    quint32 const* const end = _buffer.data() + _buffer.size();
    for (Record record(_buffer.data(), end); record.valid(); record = record.following(end)) {
        if (record.named()) {
            ++count;
        } else {
            hasInvalids = true;
        }
    }
    FENVIS_WARN_UNLESS(!hasInvalids, invalidsText, invalidsMark);
    _hitCount = qint32(count);
    return count;
}

std::vector<FenVisHitRecord> FenVisOglSelectBuffer::records()
{
    std::vector<FenVisHitRecord> hits;
    unsigned int const n = count();
    if (n == 0) return hits;
    hits.reserve(n);
    quint32 const* const end = _buffer.data() + _buffer.size();
    for (Record record(_buffer.data(), end); record.valid(); record = record.following(end)) {
        if (record.named()) hits.push_back(FenVisHitRecord(record.name(), record.depth()));
    }
    return hits;
}
