#include "host/output/FileOutput.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace {

class FileOutput : public testing::Test {
protected:
    QString path(char const* name) const { return _folder.filePath(QString::fromLatin1(name)); }
    static QByteArray contents(QString const& file)
    {
        QFile open(file);
        return open.open(QIODevice::ReadOnly) ? open.readAll() : QByteArray("(none)");
    }
    /// Number of things in the folder, hidden ones too.
    int entries() const
    {
        return int(QDir(_folder.path())
                       .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot)
                       .size());
    }
    bool write(char const* name, QByteArray const& bytes) { return fen::writeFile(path(name), bytes, error); }

    QString error;

private:
    QTemporaryDir _folder;
};

mode_t modeOf(QString const& file)
{
    struct stat status { };
    ::stat(QFile::encodeName(file).constData(), &status);
    return status.st_mode;
}

} // namespace

TEST_F(FileOutput, ReplacesTheWholeFileAndKeepsItsPermissions)
{
    ASSERT_TRUE(write("a", "old and long")) << error.toStdString();
    mode_t const mask = ::umask(0);
    ::umask(mask);
    EXPECT_EQ(0666 & ~mask, modeOf(path("a")) & 0777);
    ::chmod(QFile::encodeName(path("a")).constData(), 0640);
    ASSERT_TRUE(write("a", "new"));
    EXPECT_EQ("new", contents(path("a")));
    EXPECT_EQ(0640U, modeOf(path("a")) & 0777);
    EXPECT_EQ(1, entries());
}

TEST_F(FileOutput, FollowsLinksAndReplacesNoneOfThem)
{
    ASSERT_TRUE(write("a", "old"));
    ASSERT_TRUE(QFile::link(path("a"), path("link")));
    ASSERT_TRUE(write("link", "new"));
    EXPECT_EQ("new", contents(path("a")));
    EXPECT_TRUE(S_ISLNK([&] {
        struct stat status { };
        ::lstat(QFile::encodeName(path("link")).constData(), &status);
        return status.st_mode;
    }()));
}

TEST_F(FileOutput, WritesIntoPipesAndDevices)
{
    ASSERT_EQ(0, ::mkfifo(QFile::encodeName(path("pipe")).constData(), 0600));
    QByteArray received;
    std::thread reader([&] { received = contents(path("pipe")); });
    EXPECT_TRUE(write("pipe", "through")) << error.toStdString();
    reader.join();
    EXPECT_EQ("through", received);
    EXPECT_TRUE(S_ISFIFO(modeOf(path("pipe"))));
    EXPECT_TRUE(fen::writeFile(QStringLiteral("/dev/null"), "x", error)) << error.toStdString();
    EXPECT_TRUE(S_ISCHR(modeOf(QStringLiteral("/dev/null"))));
    EXPECT_FALSE(fen::writeFile(QStringLiteral("/dev/full"), "x", error));
    EXPECT_EQ(QStringLiteral("/dev/full: cannot write: No space left on device"), error);
}

TEST_F(FileOutput, AnOpenFileIsWrittenToAndNotReplaced)
{
    ASSERT_TRUE(write("log", "old "));
    int const log = ::open(QFile::encodeName(path("log")).constData(), O_WRONLY | O_APPEND);
    EXPECT_TRUE(fen::writeFile(QStringLiteral("/dev/fd/%1").arg(log), "new", error)) << error.toStdString();
    ::close(log);
    EXPECT_EQ("old new", contents(path("log")));
}

TEST_F(FileOutput, SweepsAwayWhatKilledSavesLeftButNothingThatIsBeingWritten)
{
    for (char const* name : {".fenvis-dead00", ".fenvis-alive0", ".fenvis-mine", "other"}) {
        QFile made(path(name));
        ASSERT_TRUE(made.open(QIODevice::WriteOnly));
    }
    int const alive = ::open(QFile::encodeName(path(".fenvis-alive0")).constData(), O_WRONLY);
    ::flock(alive, LOCK_EX);
    ASSERT_TRUE(write("a", "new"));
    ::close(alive);
    EXPECT_FALSE(QFile::exists(path(".fenvis-dead00")));
    EXPECT_EQ(4, entries());
}

TEST_F(FileOutput, RefusesWhatCannotBeWrittenAndLeavesNothingBehind)
{
    ASSERT_TRUE(QDir().mkdir(path("folder")));
    ASSERT_TRUE(QFile::link(path("loop"), path("loop")));
    ASSERT_TRUE(QFile::link(path("nowhere"), path("dangling")));
    for (char const* name : {"folder", "missing/a", "loop", "dangling", "folder/"}) {
        error.clear();
        EXPECT_FALSE(write(name, "x")) << name;
        EXPECT_TRUE(error.startsWith(path(name) + QStringLiteral(": cannot write: "))) << error.toStdString();
    }
    EXPECT_FALSE(fen::writeFile(QString(), "x", error));
    EXPECT_EQ(3, entries());
}

TEST_F(FileOutput, KeepsTheOldFileWhenTheNewOneDoesNotFit)
{
    ASSERT_TRUE(write("a", "old"));
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit before{};
    ::getrlimit(RLIMIT_FSIZE, &before);
    rlimit const small{1000, before.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &small);
    bool const written = write("a", QByteArray(5000, 'x'));
    ::setrlimit(RLIMIT_FSIZE, &before);
    EXPECT_FALSE(written);
    EXPECT_TRUE(error.endsWith(QStringLiteral("File too large"))) << error.toStdString();
    EXPECT_EQ("old", contents(path("a")));
    EXPECT_EQ(1, entries());
}

TEST_F(FileOutput, ReadsRegularFilesOnly)
{
    QByteArray bytes;
    ASSERT_TRUE(write("a", "12345"));
    EXPECT_TRUE(fen::readFile(path("a"), 5, bytes, error));
    EXPECT_EQ("12345", bytes);
    EXPECT_FALSE(fen::readFile(path("a"), 4, bytes, error));
    EXPECT_EQ(path("a") + QStringLiteral(": cannot read: is larger than 4 bytes"), error);
    ASSERT_EQ(0, ::mkfifo(QFile::encodeName(path("pipe")).constData(), 0600));
    struct Row {
        QString file;
        char const* why;
    };
    Row const rows[] = {{path("pipe"), "is no regular file"}, // and does not wait for a writer
                        {path("."), "is a folder"},
                        {path("missing"), "No such file or directory"},
                        {QStringLiteral("/dev/null"), "is no regular file"}};
    for (Row const& row : rows) {
        EXPECT_FALSE(fen::readFile(row.file, 100, bytes, error));
        EXPECT_EQ(row.file + QStringLiteral(": cannot read: ") + QString::fromLatin1(row.why), error);
    }
}
