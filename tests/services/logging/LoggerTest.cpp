#include "services/logging/Logger.h"
#include "services/logging/Checks.h"
#include "services/logging/DebugLogger.h"
#include "services/logging/Trace.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <new>
#include <string>
#include <vector>

namespace {

size_t allocations = 0;

} // namespace

void* operator new(size_t size)
{
    ++allocations;
    void* const memory = std::malloc(size);
    if (!memory) std::abort();
    return memory;
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, size_t) noexcept { std::free(memory); }

namespace {

typedef std::vector<std::string> Lines;

// A logger's lines as "Tag:line".
struct Heard {
    Lines lines;

    explicit Heard(kesdebug::logger& logger)
    {
        logger.setSink(
            [this](std::string const& tag, std::string const& line) { lines.push_back(tag + ':' + line); });
    }
};

// Sends the process's logger elsewhere for the length of a test.
struct ProcessHeard : Heard {
    ProcessHeard()
        : Heard(fen::debug_logger::debuglogger())
    {
    }
    ~ProcessHeard() { fen::debug_logger::debuglogger().setSink({}); }
};

} // namespace

// Not in the namespace above, whose name in signatures depends on the compiler.
static bool failingCheck(int p_count) { return FENVIS_ENSURE(p_count >= 1, "p_count >= 1"); }
static bool failingWarning() { return FENVIS_WARN_UNLESS(false, "_count <= 1 && \"more\"", "@line38"); }

TEST(Logger, HandsOverWholeLinesAndKeepsUnfinishedOnes)
{
    kesdebug::logger logger;
    Heard heard(logger);
    logger.dout << "half " << 1;
    logger.derr << "other" << std::endl;
    logger.dout << std::flush << " rest\n\nlast" << '\n' << "un";
    EXPECT_EQ((Lines{"Err:other", "Out:half 1 rest", "Out:", "Out:last"}), heard.lines);
    logger.dout << "finished\n";
    EXPECT_EQ("Out:unfinished", heard.lines.back());
}

TEST(Logger, AnUnfinishedLineComesOutWithItsLogger)
{
    Lines lines;
    {
        kesdebug::logger logger;
        logger.setSink([&](std::string const&, std::string const& line) { lines.push_back(line); });
        logger.dlog << "never ended";
    }
    EXPECT_EQ(Lines{"never ended"}, lines);
}

TEST(Logger, EnsureReturnsItsConditionAndOnlySpeaksOfFailures)
{
    kesdebug::logger logger;
    Heard heard(logger);
    EXPECT_TRUE(logger.ensure(true, "fine"));
    EXPECT_FALSE(logger.ensure(false, "broken"));
    logger.sentry("void f()", "@line 7");
    EXPECT_EQ((Lines{"Err:broken", "Err:void f() @line 7"}), heard.lines);
}

TEST(Logger, TheDefaultPrintsErrorsAndOutputAndDropsTheRest)
{
    kesdebug::logger logger;
    Heard heard(logger);
    logger.setSink({});
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    logger.dout << "out\n";
    logger.dlog << "log\n";
    logger.derr << "err\n";
    kesdebug::trace const traced(logger, "void f()", "@line 1");
    EXPECT_EQ("out\n", testing::internal::GetCapturedStdout());
    EXPECT_EQ("err\n", testing::internal::GetCapturedStderr());
    EXPECT_TRUE(heard.lines.empty());
}

TEST(Logger, ASinkMayLogThrowOrReplaceItself)
{
    kesdebug::logger logger;
    int calls = 0;
    logger.setSink([&](std::string const&, std::string const&) {
        ++calls;
        logger.derr << "from the sink" << std::endl;
        logger.setSink({});
        throw 1;
    });
    testing::internal::CaptureStderr();
    logger.derr << "first\n";
    logger.derr << "second\n";
    EXPECT_EQ("from the sink\nsecond\n", testing::internal::GetCapturedStderr());
    EXPECT_EQ(1, calls);
}

TEST(Trace, SpeaksOnEntryAndExitAndOnlyToThoseWhoListen)
{
    kesdebug::logger logger;
    std::string const longName(200, 'f'); // would not fit into a string without allocation
    size_t const before = allocations;
    {
        kesdebug::trace const unheard(logger, longName.c_str(), " @line 185");
    }
    EXPECT_EQ(before, allocations);

    Heard heard(logger);
    {
        kesdebug::trace const scope(logger, "void f()", " @line 185");
        logger.dlog << "inside\n";
    }
    EXPECT_EQ((Lines{"Trace:enter void f() @line 185", "Log:inside", "Trace:leave void f() @line 185"}),
              heard.lines);
}

TEST(Checks, TextsNameConditionSignatureAndMark)
{
    ProcessHeard heard;
    EXPECT_FALSE(failingCheck(0));
    EXPECT_TRUE(failingCheck(1));
    EXPECT_FALSE(failingWarning());
    ASSERT_EQ(2u, heard.lines.size());
    EXPECT_EQ("Err:\"p_count >= 1\" - bool failingCheck(int)", heard.lines[0]);
    EXPECT_EQ("Err:WARNING: _count <= 1 && \"more\" - bool failingWarning() @line38", heard.lines[1]);
}
