#include "host/output/FileOutput.h"

#include "host/output/MessageText.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>

#include <array>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <memory>
#include <new>
#include <regex>
#include <string>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace {

constexpr int mostLinks = 40; // as the system follows
constexpr char strayPrefix[] = ".fenvis-";
constexpr char strayPattern[] = ".fenvis-\?\?\?\?\?\?";

/// An open file that is closed at the end.
class Handle {
public:
    explicit Handle(int descriptor)
        : _descriptor(descriptor)
    {
    }
    ~Handle() { close(); }
    Handle(Handle&& other) noexcept
        : _descriptor(std::exchange(other._descriptor, -1))
    {
    }
    Handle& operator=(Handle&& other) noexcept
    {
        std::swap(_descriptor, other._descriptor);
        return *this;
    }

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
bool stream(QString const& path, Handle target, QByteArray const& bytes, QString& error)
{
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

/// The open file of this process that a path names ("/dev/stdout", "/dev/fd/3"), or -1.
int openDescriptor(QByteArray file)
{
    static std::regex const folders("/proc/([0-9]+)(/task/[0-9]+)?/fd");
    for (int links = 0; links < mostLinks; ++links) {
        std::string const folder = resolved(folderOf(file)).toStdString();
        QByteArray const name = file.mid(file.lastIndexOf('/') + 1);
        std::smatch match;
        bool number = false;
        int const descriptor = name.toInt(&number);
        if (number && std::regex_match(folder, match, folders))
            return match[1] == std::to_string(::getpid()) ? descriptor : -1;
        std::array<char, PATH_MAX> target;
        ssize_t const length = ::readlink(file.constData(), target.data(), target.size());
        if (length <= 0 || std::size_t(length) >= target.size()) return -1;
        QByteArray const next(target.data(), length);
        file = next.startsWith('/') ? next : folderOf(file) + '/' + next;
    }
    return -1;
}

mode_t defaultMode()
{
    mode_t const mask = ::umask(0); // there is no way to ask without setting it
    ::umask(mask);
    return 0666 & ~mask;
}

/// Removes what saves left behind that were killed. Whoever is still writing holds a lock.
void sweepStrays(QByteArray const& folder)
{
    QStringList const strays =
        QDir(QFile::decodeName(folder))
            .entryList({QString::fromLatin1(strayPattern)}, QDir::Files | QDir::Hidden | QDir::NoSymLinks);
    for (QString const& name : strays) {
        QByteArray const stray = folder + '/' + QFile::encodeName(name);
        Handle const file(::open(stray.constData(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
        struct stat status { };
        bool const ours = file && ::fstat(file.get(), &status) == 0 && status.st_uid == ::geteuid();
        if (ours && ::flock(file.get(), LOCK_EX | LOCK_NB) == 0) ::unlink(stray.constData());
    }
}

/// A file that is gone if the process ends before `nameIt`: without a name where the file system can
/// do that, else with one that a later save sweeps away.
class Temporary {
public:
    explicit Temporary(QByteArray const& folder)
        : _name(folder + '/' + strayPrefix + "XXXXXX")
        , _handle(::open(folder.constData(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0600))
    {
        if (!_handle) {
            _handle = Handle(::mkostemp(_name.data(), O_CLOEXEC));
            _named = bool(_handle);
        }
        if (_handle) ::flock(_handle.get(), LOCK_EX | LOCK_NB);
    }
    ~Temporary()
    {
        int const reason = errno;
        if (_named) ::unlink(_name.constData());
        errno = reason;
    }
    Temporary(Temporary const&) = delete;
    Temporary& operator=(Temporary const&) = delete;

    Handle& handle() { return _handle; }
    /// Moves it over `file`.
    bool moveTo(QByteArray const& file)
    {
        if (!giveName() || ::rename(_name.constData(), file.constData()) != 0) return false;
        _named = false;
        return true;
    }

private:
    bool giveName()
    {
        QByteArray const open = "/proc/self/fd/" + QByteArray::number(_handle.get());
        for (int attempt = 0; !_named && attempt < 100; ++attempt) {
            for (qsizetype i = _name.size() - 6; i < _name.size(); ++i)
                _name[i] = "abcdefghijklmnopqrstuvwxyz0123456789"[QRandomGenerator::system()->bounded(36)];
            _named =
                ::linkat(AT_FDCWD, open.constData(), AT_FDCWD, _name.constData(), AT_SYMLINK_FOLLOW) == 0;
            if (!_named && errno != EEXIST) break;
        }
        return _named;
    }

    QByteArray _name;
    Handle _handle;
    bool _named = false;
};

/// Writes a temporary file and moves it over `file`. On failure errno tells why.
bool replace(QByteArray const& file, mode_t mode, QByteArray const& bytes)
{
    QByteArray const folder = folderOf(file);
    sweepStrays(folder);
    Temporary temporary(folder);
    Handle& handle = temporary.handle();
    if (!handle) return false;
    ::fchmod(handle.get(), mode); // where there are no permissions, none need to be kept
    bool const written = writeAll(handle.get(), bytes) && ::fsync(handle.get()) == 0 && temporary.moveTo(file)
        && handle.close();
    if (!written) return false;
    // The file is in place; some file systems cannot synchronise folders.
    Handle const open(::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    return !open || ::fsync(open.get()) == 0 || errno == EINVAL || errno == EROFS;
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
    int const descriptor = openDescriptor(QFile::encodeName(path));
    if (descriptor >= 0) return stream(path, Handle(::dup(descriptor)), bytes, error);
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
    if (exists && !S_ISREG(status.st_mode))
        return stream(path, Handle(::open(file.constData(), O_WRONLY | O_CLOEXEC)), bytes, error);
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
