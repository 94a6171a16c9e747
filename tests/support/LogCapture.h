#pragma once

#include <QString>
#include <QStringList>

/// Collects the "Err" lines that the library logs during its lifetime. Those that
/// no `expect` or `take` accounted for fail the test at the end.
class LogCapture {
public:
    LogCapture();
    ~LogCapture();
    LogCapture(LogCapture const&) = delete;
    LogCapture& operator=(LogCapture const&) = delete;

    /// Error lines that contain `part` are in order from here on.
    void expect(QString const& part);
    /// Returns the error lines so far and clears them.
    QStringList take();
    /// Number of error lines that contain `part`.
    int count(QString const& part) const;
    /// All error lines so far, accounted for or not.
    QStringList const& errors() const { return _errors; }
    /// Fails the test for error lines that nothing accounted for, and forgets them.
    void check();

private:
    QStringList _errors;
    QStringList _expected;
};
