#include "host/output/FileOutput.h"

#include "host/output/MessageText.h"

#include <QFile>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <memory>
#include <new>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// An open file that is closed at the end.
class Handle {
public:
    explicit Handle(int descriptor)
        : _descriptor(descriptor)
    {
    }
    ~Handle() { close(); }
    Handle(Handle const&) = delete;
    Handle& operator=(Handle const&) = delete;

    explicit operator bool() const { return _descriptor >= 0; }
    int get() const { return _descriptor; }
    /// False when the system reports a late error.
    bool close()
    {
        int const descriptor = _descriptor;
        _descriptor = -1;
        return descriptor < 0 || ::close(descriptor) == 0;
    }

private:
    int _descriptor;
};

QString messageFor(QString const& path, QString const& what)
{
    return fen::messageText(path) + QStringLiteral(": ") + what;
}

QString systemMessage(QString const& path, QString const& doing, int number)
{
    return messageFor(path, doing + QStringLiteral(": ") + QString::fromLocal8Bit(std::strerror(number)));
}

bool writeAll(int descriptor, QByteArray const& bytes)
{
    char const* next = bytes.constData();
    auto left = std::size_t(bytes.size());
    while (left > 0) {
        ssize_t const written = ::write(descriptor, next, left);
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return false;
        next += written;
        left -= std::size_t(written);
    }
    return true;
}

/// Devices, pipes and sockets: what is written is gone, there is nothing to replace.
bool stream(QString const& path, QByteArray const& file, QByteArray const& bytes, QString& error)
{
    Handle target(::open(file.constData(), O_WRONLY | O_CLOEXEC));
    bool const done = target && writeAll(target.get(), bytes) && target.close();
    if (!done) error = systemMessage(path, QStringLiteral("cannot write"), errno);
    return done;
}

/// Path of the file that `file` stands for, through all links; a target that does
/// not exist yet keeps the folder and name it was given.
QByteArray resolved(QByteArray const& file)
{
    std::unique_ptr<char, decltype(&std::free)> const real(::realpath(file.constData(), nullptr), &std::free);
    return real ? QByteArray(real.get()) : file;
}

QByteArray folderOf(QByteArray const& file)
{
    qsizetype const slash = file.lastIndexOf('/');
    return slash < 0 ? QByteArray(".") : slash == 0 ? QByteArray("/") : file.left(slash);
}

mode_t defaultMode()
{
    mode_t const mask = ::umask(0); // there is no way to ask without setting it
    ::umask(mask);
    return 0666 & ~mask;
}

/// Writes the temporary file and moves it over `file`. On failure errno tells why.
bool replace(QByteArray const& file, mode_t mode, QByteArray const& bytes)
{
    QByteArray temporary = folderOf(file) + "/.fenvis-XXXXXX";
    Handle handle(::mkostemp(temporary.data(), O_CLOEXEC));
    if (!handle) return false;
    ::fchmod(handle.get(), mode); // where there are no permissions, none need to be kept
    bool const written = writeAll(handle.get(), bytes) && ::fsync(handle.get()) == 0 && handle.close()
        && ::rename(temporary.constData(), file.constData()) == 0;
    if (!written) {
        int const reason = errno;
        ::unlink(temporary.constData());
        errno = reason;
        return false;
    }
    // The file is in place; some file systems cannot synchronise folders.
    Handle folder(::open(folderOf(file).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    return !folder || ::fsync(folder.get()) == 0 || errno == EINVAL || errno == EROFS;
}

/// @return false with errno set
bool readAll(int descriptor, std::size_t expected, QByteArray& bytes)
{
    bytes.resize(qsizetype(expected));
    std::size_t size = 0;
    while (size < expected) {
        ssize_t const got = ::read(descriptor, bytes.data() + size, expected - size);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return false;
        if (got == 0) break; // became shorter meanwhile
        size += std::size_t(got);
    }
    bytes.resize(qsizetype(size));
    return true;
}

} // namespace

bool fen::writeFile(QString const& path, QByteArray const& bytes, QString& error)
{
    if (path.isEmpty() || path.contains(QChar(0))) {
        error = messageFor(path, QStringLiteral("cannot write: no file name"));
        return false;
    }
    QByteArray const file = resolved(QFile::encodeName(path));
    struct stat status { };
    bool const exists = ::stat(file.constData(), &status) == 0;
    if (!exists && (errno != ENOENT || ::lstat(file.constData(), &status) == 0)) {
        error = systemMessage(path, QStringLiteral("cannot write"), errno);
        return false;
    }
    if (exists && S_ISDIR(status.st_mode)) {
        error = messageFor(path, QStringLiteral("cannot write: is a folder"));
        return false;
    }
    if (exists && !S_ISREG(status.st_mode)) return stream(path, file, bytes, error);
    bool const allowed = !exists || ::access(file.constData(), W_OK) == 0;
    mode_t const mode = exists ? status.st_mode & 07777 : defaultMode();
    if (allowed && replace(file, mode, bytes)) return true;
    error = systemMessage(path, QStringLiteral("cannot write"), errno);
    return false;
}

bool fen::readFile(QString const& path, qint64 limit, QByteArray& bytes, QString& error)
{
    auto const refuse = [&](QString const& what) {
        error = messageFor(path, what);
        return false;
    };
    if (path.isEmpty() || path.contains(QChar(0))) return refuse(QStringLiteral("no file name"));
    // Not blocking: a pipe without a writer would never open.
    Handle const file(
        ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    struct stat status { };
    if (!file || ::fstat(file.get(), &status) != 0) {
        error = systemMessage(path, QStringLiteral("cannot read"), errno);
        return false;
    }
    if (S_ISDIR(status.st_mode)) return refuse(QStringLiteral("cannot read: is a folder"));
    if (!S_ISREG(status.st_mode)) return refuse(QStringLiteral("cannot read: is no regular file"));
    if (status.st_size > limit)
        return refuse(QStringLiteral("cannot read: is larger than %1 bytes").arg(limit));
    try {
        if (readAll(file.get(), std::size_t(status.st_size), bytes)) return true;
    } catch (std::bad_alloc const&) {
        return refuse(QStringLiteral("cannot read: out of memory"));
    }
    error = systemMessage(path, QStringLiteral("cannot read"), errno);
    return false;
}
