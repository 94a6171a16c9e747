#include "picking/hits/IVisEventHandler.h"
#include "picking/hits/VisHitProjectedPointQualifier.h"
#include "picking/hits/VisHitQualifiers.h"
#include "picking/hits/VisHitRecordQuery.h"
#include "tests/support/LogCapture.h"
#include "tests/support/RecordingNode.h"

#include <boost/make_shared.hpp>

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <memory>
#include <sstream>

typedef std::vector<FenVisHitRecord> Records;

static_assert(sizeof(FenVisHitRecord) == 16);

TEST(VisHitProperty, ComparesLivingOwnersAndNeverUndefinedOnes)
{
    FenModifiedGroup group;
    FenProperties other(group);
    auto owner = std::make_unique<FenProperties>(group);
    FenProperties const* const address = owner.get();
    FenVisHitProperty const plain(address), none;
    FenVisHitProperty const move(address, boost::make_shared<FenVisHitMoveQualifier>());
    EXPECT_TRUE(plain.isPropertyEqual(move) && !plain.isPropertyEqual(&other));
    EXPECT_FALSE(none.isPropertyEqual(none) || none.isPropertyEqual(nullptr));
    owner.reset();
    EXPECT_FALSE(plain.defined() || plain.isPropertyEqual(move));
    EXPECT_FALSE(plain.isPropertyEqual(address)); // something new may live there
}

TEST(VisHitQualifiers, EveryQualifierHasItsText)
{
    using namespace Kes::Math;
    typedef boost::shared_ptr<FenVisHitProperty::IQualifier> Qualifier;
    auto const value = boost::make_shared<FenVisHitVector1Qualifier>(2.5);
    auto const area = FenVisHitResizeQualifier::BottomLeft;
    std::pair<Qualifier, QString> const rows[] = {
        {boost::make_shared<FenVisHitDataPointQualifier>(4294967295u, value), "dataPointIdx(4294967295)"},
        {value, "vector1(2.5)"},
        {boost::make_shared<FenVisHitVector2Qualifier>(1e-7, -1234567.0), "vector2(1e-07,-1.23457e+06)"},
        {boost::make_shared<FenVisHitVector3Qualifier>(0.1, 2.0, NAN), "vector3(0.1,2,nan)"},
        {boost::make_shared<FenVisHitNameQualifier>("50 %1"), "name(50 %1)"},
        {boost::make_shared<FenVisHitRangeMinQualifier>(-0.5), "filterRangeMin(-0.5)"},
        {boost::make_shared<FenVisHitRangeMaxQualifier>(7.0), "filterRangeMax(7)"},
        {boost::make_shared<FenVisHitLabelQualifier>("-X"), "label(-X)"},
        {boost::make_shared<FenVisHitMoveQualifier>(), "move()"},
        {boost::make_shared<FenVisHitResizeQualifier>(area), "resize()"},
        {boost::make_shared<FenVisHitProjectedPointQualifier>(Matrix(), Matrix(), FenOglViewport(), QPoint(),
                                                              Vector3(), Vector3()),
         "??? no string version avaialble ???"},
    };
    for (auto const& [qualifier, text] : rows) EXPECT_EQ(text, qualifier->toString());
}

TEST(VisHitRecordList, DropsEmptyEntriesAppendsListsAndPrintsItself)
{
    FenModifiedGroup group;
    RecordingNode const node(group, "chart");
    FenVisHitRecordList list({FenVisHitRecord(3, 0.25)}, {}, &node, 7);
    list.insert(Records(), 3);
    list.insert({FenVisHitRecord::catchall(), FenVisHitRecord()}, -1);
    list.insert(FenVisHitRecordList(Records(), {}, &node, 0));
    FenVisHitRecordList twice = list;
    twice.insert(twice);
    EXPECT_EQ(4u, twice.size());
    EXPECT_EQ(7, twice.layer(2));
    std::ostringstream text;
    text << list << FenVisHitRecordList();
    EXPECT_EQ("hits(2)\n\tlayer(7) handler(0) source(chart)\n\t\tcontext(3) depth(0.25)\n"
              "\tlayer(-1) handler(0) source(<anon>)\n\t\tcontext(0) depth(1)\n"
              "\t\tcontext(4294967295) depth(-1)\n\nhits(0)\n\n",
              text.str());
}

TEST(VisHitRecordQuery, TopTakesTheHighestLayerThenTheNearestDepthAndTheLaterOfEquals)
{
    struct Row {
        std::vector<std::pair<int, Records>> entries;
        unsigned name;
    } const rows[] = {
        {{{0, {{1, 0.5}}}, {0, {{2, 0.9}}}}, 2},
        {{{5, {{1, 0.9}}}, {0, {{2, 0.1}}}}, 1},
        {{{0, {{0, 1.0}, {1, 0.5}, {2, 0.5}, {3, 0.7}}}}, 2},
        {{{-2147483647, {{4, 0.0}}}, {INT_MIN, {{5, 0.0}}}}, 4},
        {{{1, {{1, NAN}, {2, 0.5}}}}, 2},
    };
    for (Row const& row : rows) {
        FenVisHitRecordList list;
        for (auto const& [layer, records] : row.entries) list.insert(records, layer);
        EXPECT_EQ(row.name, FenVisHitRecordQuery::top(list).context());
    }
}

TEST(VisHitRecordQuery, TopWithoutAHitLogsItsChecks)
{
    LogCapture log;
    EXPECT_EQ(0xFFFFFFFFu, FenVisHitRecordQuery::top(FenVisHitRecordList()).context());
    QStringList const lines = log.take();
    char const* const checks[] = {
        "any(p_hits) && \"No hits were required!\"",
        "topListIdx>=0 && \"We have got a top list index that is -1, something is horribly wrong!\"",
        "topRecIdx>=0 && \"We have got a current top hit at index -1, something is horribly wrong!\""};
    ASSERT_EQ(3, lines.size());
    for (int i = 0; i < 3; ++i) EXPECT_TRUE(lines[i].startsWith(QString("\"%1\" - ").arg(checks[i])));
}
