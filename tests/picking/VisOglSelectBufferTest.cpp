#include "picking/select/VisOglSelectBuffer.h"
#include "picking/select/VisOglSelect.h"
#include "tests/support/LogCapture.h"
#include "tests/support/RecordingNode.h"

#include <gtest/gtest.h>

#include <algorithm>

/// Fills a buffer as OpenGL would.
struct FenVisOglSelectBufferProbe {
    static FenVisOglSelectBuffer filled(unsigned hits, int hitCount, std::vector<quint32> const& words)
    {
        FenVisOglSelectBuffer buffer(hits);
        std::copy(words.begin(), words.end(), buffer._buffer.begin());
        buffer._hitCount = hitCount;
        return buffer;
    }
};

namespace {

constexpr quint32 none = 0xFFFFFFFF;
constexpr char const* performance =
    "WARNING: !hasInvalids && \"performance warning, hits were made when no valid name existed.\" - ";
constexpr char const* extraName = "WARNING: _count <= 1 && \"We have inadvertently pushed an additional "
                                  "name to the selection name stack\" - ";

constexpr char const* tooLarge = "WARNING: hits <= mostHits && ";

} // namespace

TEST(VisOglSelectBuffer, ReadsCompleteNamedRecordsOnly)
{
    struct Row {
        char const* what;
        unsigned hits;
        int hitCount;
        std::vector<quint32> words;
        QString expected;
        QStringList warnings;
    } const rows[] = {
        {"fresh", 3, -1, {}, "", {}},
        {"hits 0 is not read", 1, 0, {1, 0, 0, 5}, "", {}},
        {"depths", 2, 2, {1, 0, 0, 1, 1, 0xFFFFFFFF, 0xFFFFFFFF, 2}, "1@0 2@1 ", {}},
        {"overflow", 2, -1, {1, 0, 0, 1, 1, 0, 0, 2}, "1@0 2@0 ", {}},
        {"count 0 ends", 3, 3, {1, 0, 0, 1, 0, 0, 0, 2, 1, 0, 0, 3}, "1@0 ", {}},
        {"beyond the end", 2, 2, {1, 0, 0, 1, 2, 0, 0, 2}, "1@0 ", {extraName, extraName}},
        {"absurd count", 1, 1, {0xFFFFFFFF, 0, 0, 2}, "", {extraName}},
        {"first of two names", 2, 1, {2, 0, 0, 8, 9}, "8@0 ", {extraName, extraName}},
        {"unnamed", 3, 3, {1, 0, 0, none, 1, 0, 0, 4, 1, 0, 0, none}, "4@0 ", {performance}},
        {"only unnamed", 1, 1, {1, 0, 0, none}, "", {performance}},
        {"no memory", 0, 1, {}, "", {}},
        {"absurd size", 0xFFFFFFFF, 1, {1, 0, 0, 7}, "7@0 ", {tooLarge}},
    };
    for (Row const& row : rows) {
        LogCapture log;
        auto buffer = FenVisOglSelectBufferProbe::filled(row.hits, row.hitCount, row.words);
        EXPECT_EQ(row.expected, describe(buffer.records())) << row.what;
        QStringList const lines = log.take();
        ASSERT_EQ(row.warnings.size(), lines.size()) << row.what;
        for (int i = 0; i < lines.size(); ++i) {
            EXPECT_TRUE(lines[i].startsWith(row.warnings[i])) << row.what;
            char const* const mark = row.warnings[i] == performance ? " @line230"
                : row.warnings[i] == tooLarge                       ? " @line72"
                                                                    : " @line38";
            EXPECT_TRUE(lines[i].endsWith(mark)) << row.what;
        }
    }
}

TEST(VisOglSelect, WithoutAnOpenGLContextItFindsNothing)
{
    LogCapture log;
    Passes passes;
    FenVisOglSelectBuffer buffer(4);
    {
        FenVisOglSelect select(passes.select(QPoint(5, 5)), buffer);
        EXPECT_EQ(1u, FenVisOglSelectWeakPtr(select).next());
    }
    EXPECT_TRUE(buffer.records().empty());
}
