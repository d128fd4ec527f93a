#include "support/FileFault.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <climits>
#include <cstdarg>
#include <dlfcn.h>
#include <fcntl.h>
#include <string_view>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <thread>
#include <type_traits>
#include <unistd.h>
#include <utility>

namespace clipwren::test {
namespace {

std::atomic<int> callsUntilFault = -1; // below 0 when none is to come
std::atomic<int> faultError = 0;
std::thread::id faultThread;
std::string faultFolder;

bool isCounted(const char *path)
{
    return path && std::string_view(path).starts_with(faultFolder);
}

bool isCounted(int file)
{
    const std::string link = "/proc/self/fd/" + std::to_string(file);
    std::array<char, PATH_MAX> path{};
    return ::readlink(link.c_str(), path.data(), path.size() - 1) > 0 && isCounted(path.data());
}

/// True for the call that is to fail.
template <typename Place> bool isFault(Place place)
{
    if (callsUntilFault < 0)
        return false;
    if (faultFolder.empty() ? std::this_thread::get_id() != faultThread : !isCounted(place))
        return false;
    if (callsUntilFault-- != 1)
        return false;
    callsUntilFault = -1;
    errno = faultError;
    faultError = 0;
    return true;
}

/// Calls the system's function of that name, or fails. `place` is the path or the open file.
template <typename Result, typename Place, typename... Arguments>
Result callOrFail(const char *name, Place place, Arguments... arguments)
{
    if (isFault(place)) {
        if constexpr (std::is_pointer_v<Result>)
            return nullptr;
        else
            return -1;
    }
    using Function = Result (*)(Arguments...);
    return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name))(arguments...);
}

} // namespace

FileFault::FileFault(int number, int error, std::string folder)
{
    faultThread = std::this_thread::get_id();
    faultFolder = std::move(folder);
    faultError = error;
    callsUntilFault = number;
}

FileFault::~FileFault()
{
    callsUntilFault = -1;
    faultError = 0;
}

bool FileFault::happened()
{
    return faultError == 0;
}

} // namespace clipwren::test

extern "C" {

using clipwren::test::callOrFail;

int open(const char *path, int flags, ...)
{
    va_list rest;
    va_start(rest, flags);
    const auto mode = (flags & (O_CREAT | O_TMPFILE)) ? va_arg(rest, mode_t) : 0;
    va_end(rest);
    return callOrFail<int>("open", path, path, flags, mode);
}

int open64(const char *path, int flags, ...)
{
    va_list rest;
    va_start(rest, flags);
    const auto mode = (flags & (O_CREAT | O_TMPFILE)) ? va_arg(rest, mode_t) : 0;
    va_end(rest);
    return callOrFail<int>("open64", path, path, flags, mode);
}

int mkostemp(char *name, int flags)
{
    return callOrFail<int>("mkostemp", name, name, flags);
}

ssize_t read(int file, void *bytes, size_t size)
{
    return callOrFail<ssize_t>("read", file, file, bytes, size);
}

ssize_t write(int file, const void *bytes, size_t size)
{
    return callOrFail<ssize_t>("write", file, file, bytes, size);
}

int fsync(int file)
{
    return callOrFail<int>("fsync", file, file);
}

int rename(const char *from, const char *to) noexcept
{
    return callOrFail<int>("rename", from, from, to);
}

int link(const char *from, const char *to) noexcept
{
    return callOrFail<int>("link", from, from, to);
}

int linkat(int fromFolder, const char *from, int toFolder, const char *to, int flags) noexcept
{
    return callOrFail<int>("linkat", from, fromFolder, from, toFolder, to, flags);
}

int unlink(const char *path) noexcept
{
    return callOrFail<int>("unlink", path, path);
}

int mkdir(const char *path, mode_t mode) noexcept
{
    return callOrFail<int>("mkdir", path, path, mode);
}

int chmod(const char *path, mode_t mode) noexcept
{
    return callOrFail<int>("chmod", path, path, mode);
}

int statx(int folder, const char *path, int flags, unsigned int mask, struct statx *result) noexcept
{
    return callOrFail<int>("statx", path, folder, path, flags, mask, result);
}

char *mkdtemp(char *name) noexcept
{
    return callOrFail<char *>("mkdtemp", name, name);
}

int rmdir(const char *path) noexcept
{
    return callOrFail<int>("rmdir", path, path);
}

int flock(int file, int mode) noexcept
{
    return callOrFail<int>("flock", file, file, mode);
}

int ftruncate64(int file, off64_t size) noexcept
{
    return callOrFail<int>("ftruncate64", file, file, size);
}

int lstat(const char *path, struct stat *result) noexcept
{
    return callOrFail<int>("lstat", path, path, result);
}

int fstat(int file, struct stat *result) noexcept
{
    return callOrFail<int>("fstat", file, file, result);
}

ssize_t lgetxattr(const char *path, const char *name, void *value, size_t size) noexcept
{
    return callOrFail<ssize_t>("lgetxattr", path, path, name, value, size);
}

int lsetxattr(const char *path, const char *name, const void *value, size_t size,
              int flags) noexcept
{
    return callOrFail<int>("lsetxattr", path, path, name, value, size, flags);
}

int lremovexattr(const char *path, const char *name) noexcept
{
    return callOrFail<int>("lremovexattr", path, path, name);
}

} // extern "C"
