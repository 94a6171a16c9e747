#include "tests/support/LogCapture.h"

#include "services/logging/DebugLogger.h"

#include <gtest/gtest.h>

#include <algorithm>

LogCapture::LogCapture()
{
    fen::debug_logger::debuglogger().setSink([this](std::string const& tag, std::string const& line) {
        if (tag == "Err") _errors << QString::fromStdString(line);
    });
}

LogCapture::~LogCapture()
{
    check();
    fen::debug_logger::debuglogger().setSink({});
}

void LogCapture::expect(QString const& part) { _expected << part; }

QStringList LogCapture::take() { return std::exchange(_errors, {}); }

int LogCapture::count(QString const& part) const
{
    return int(std::count_if(_errors.begin(), _errors.end(),
                             [&](QString const& line) { return line.contains(part); }));
}

void LogCapture::check()
{
    for (QString const& line : take()) {
        bool const expected = std::any_of(_expected.begin(), _expected.end(),
                                          [&](QString const& part) { return line.contains(part); });
        if (!expected) ADD_FAILURE() << "unexpected log line: " << line.toStdString();
    }
}
