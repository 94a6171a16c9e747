#include "services/logging/Logger.h"
#include "services/logging/Checks.h"
#include "services/logging/DebugLogger.h"
#include "services/logging/Trace.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

typedef std::vector<std::string> Lines;

/// Takes a logger's lines as "Tag:line" for the length of a test.
struct Heard {
    kesdebug::logger& logger;
    Lines lines;

    explicit Heard(kesdebug::logger& theLogger)
        : logger(theLogger)
    {
        logger.setSink(
            [this](std::string const& tag, std::string const& line) { lines.push_back(tag + ':' + line); });
    }
    ~Heard() { logger.setSink({}); }
};

} // namespace

// Not in the namespace above, whose name in signatures depends on the compiler.
static bool failingCheck(int p_count) { return FENVIS_ENSURE(p_count >= 1, "p_count >= 1"); }
static bool failingWarning() { return FENVIS_WARN_UNLESS(false, "_count <= 1 && \"more\"", "@line38"); }

TEST(Logger, HandsOverWholeLinesWithTheirTags)
{
    kesdebug::logger logger;
    Heard const heard(logger);
    logger.dout << "half " << 1;
    logger.derr << "other" << std::endl;
    logger.dout << std::flush << " rest\n\nlast" << '\n';
    kesdebug::dbgostream(logger, "Own") << "never ended";
    EXPECT_TRUE(logger.ensure(true, "fine"));
    EXPECT_FALSE(logger.ensure(false, "broken"));
    logger.sentry("void f()", "@line 7");
    {
        kesdebug::trace const scope(logger, "void f()", " @line 185");
        logger.dlog << "inside\n";
    }
    EXPECT_EQ((Lines{"Err:other", "Out:half 1 rest", "Out:", "Out:last", "Own:never ended", "Err:broken",
                     "Err:void f() @line 7", "Trace:enter void f() @line 185", "Log:inside",
                     "Trace:leave void f() @line 185"}),
              heard.lines);
}

TEST(Logger, TheDefaultPrintsErrorsAndOutputAndASinkMayLogThrowOrReplaceItself)
{
    kesdebug::logger logger;
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    logger.setSink([&](std::string const&, std::string const&) {
        logger.derr << "from the sink" << std::endl;
        logger.setSink({});
        throw 1;
    });
    logger.derr << "first\n";
    logger.derr << "second\n";
    logger.dout << "out\n";
    logger.dlog << "log\n";
    kesdebug::trace const traced(logger, "void f()", "@line 1");
    EXPECT_EQ("out\n", testing::internal::GetCapturedStdout());
    EXPECT_EQ("from the sink\nsecond\n", testing::internal::GetCapturedStderr());
}

TEST(Checks, TextsNameConditionSignatureAndMark)
{
    Heard const heard(fen::debug_logger::debuglogger());
    EXPECT_TRUE(failingCheck(1));
    EXPECT_FALSE(failingCheck(0) || failingWarning());
    EXPECT_EQ((Lines{"Err:\"p_count >= 1\" - bool failingCheck(int)",
                     "Err:WARNING: _count <= 1 && \"more\" - bool failingWarning() @line38"}),
              heard.lines);
}
