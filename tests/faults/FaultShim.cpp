// Loaded before the system's library (LD_PRELOAD): makes one call that reads or changes files fail,
// or ends the process there. Only calls with a path below FAULT_ROOT and those with descriptors
// beyond the standard streams count. It includes none of the headers that declare what it defines.
//
//   FAULT_AT      which call, from 1
//   FAULT_ERROR   its errno; 0: a write writes half of its bytes; -1: the process is gone
//   FAULT_ROOM    so many bytes fit on the disk; from then on it is full for every call that takes
//                 room. 0 and less: no end
//   FAULT_REPORT  a file that gets the name and the path of the failed call, or, when there was
//                 none, the number of calls and of the bytes that were written
#include <dlfcn.h>
#include <sys/syscall.h>
#include <sys/types.h>

#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstdlib>
#include <cstring>

extern "C" long syscall(long number, ...) noexcept;

namespace {

std::atomic<long> calls{0};
std::atomic<long> written{0};
std::atomic<bool> failed{false};

long NumberFrom(const char* name) {
  const char* const text = std::getenv(name);
  return text == nullptr ? 0 : std::atol(text);
}

void Report(const char* call, const char* path) {
  const char* const report = std::getenv("FAULT_REPORT");
  if (report == nullptr) return;
  constexpr int kWriteCreateCut = 01 | 0100 | 01000;
  constexpr int kFromHere = -100;
  const long file = syscall(SYS_openat, kFromHere, report, kWriteCreateCut, 0666);
  for (const char* text : {call, " ", path, "\n"}) syscall(SYS_write, file, text, strlen(text));
  syscall(SYS_close, file);
}

/// Counts a call; true when it is to fail, with errno set.
bool Fails(const char* call, const char* path) {
  const char* const root = std::getenv("FAULT_ROOT");
  if (root == nullptr || (path[0] == '/' && strncmp(path, root, strlen(root)) != 0)) return false;
  static const long at = NumberFrom("FAULT_AT");
  static const long error = NumberFrom("FAULT_ERROR");
  const bool isWrite = strstr(call, "write") != nullptr;
  if (error == 0 && !isWrite) return false;
  if (++calls != at) return false;
  failed = true;
  Report(call, path);
  constexpr int kKilled = 137;
  if (error < 0) syscall(SYS_exit_group, kKilled);
  errno = static_cast<int>(error);
  return true;
}

bool Fails(const char* call, int descriptor) { return descriptor > 2 && Fails(call, "-"); }

/// Takes room on the disk; false, with errno set, when there is not enough left.
bool TakeRoom(std::size_t bytes) {
  static const long room = NumberFrom("FAULT_ROOM");
  written += static_cast<long>(bytes);
  if (room <= 0 || written <= room) return true;
  errno = ENOSPC;
  return false;
}

template <typename Function>
Function* Real(const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

[[gnu::destructor]] void ReportCalls() {
  if (failed) return;
  char digits[48];
  char* begin = digits + sizeof digits;
  *--begin = '\0';
  for (long number : {written.load(), calls.load()}) {
    for (; number > 0; number /= 10) *--begin = static_cast<char>('0' + number % 10);
    *--begin = ' ';
  }
  Report("calls", begin + 1);
}

}  // namespace

// `subject` is the path or the descriptor that says whether the call counts.
#define FAULTY(result, failure, name, parameters, arguments, subject) \
  extern "C" result name parameters {                                 \
    static auto* const real = Real<result parameters>(#name);         \
    if (Fails(#name, subject)) return failure;                        \
    return real arguments;                                            \
  }
#define FAULTY_OPEN(name, parameters, arguments)                            \
  extern "C" int name parameters {                                          \
    static auto* const real = Real<int parameters>(#name);                  \
    va_list rest;                                                           \
    va_start(rest, flags);                                                  \
    const unsigned mode = (flags & 0100) != 0 ? va_arg(rest, unsigned) : 0; \
    va_end(rest);                                                           \
    if (Fails(#name, path)) return -1;                                      \
    if ((flags & 0100) != 0 && !TakeRoom(1)) return -1;                     \
    return real arguments;                                                  \
  }
#define FAULTY_WRITE(name, parameters, half, arguments)        \
  extern "C" ssize_t name parameters {                         \
    static auto* const real = Real<ssize_t parameters>(#name); \
    if (file > 2 && !TakeRoom(size)) return -1;                \
    if (!Fails(#name, file)) return real arguments;            \
    if (errno != 0) return -1;                                 \
    return real half;                                          \
  }

FAULTY_OPEN(open, (const char* path, int flags, ...), (path, flags, mode))
FAULTY_OPEN(open64, (const char* path, int flags, ...), (path, flags, mode))
FAULTY_OPEN(openat, (int folder, const char* path, int flags, ...), (folder, path, flags, mode))
FAULTY_OPEN(openat64, (int folder, const char* path, int flags, ...), (folder, path, flags, mode))
FAULTY_WRITE(write, (int file, const void* bytes, size_t size), (file, bytes, (size + 1) / 2),
             (file, bytes, size))
FAULTY_WRITE(pwrite, (int file, const void* bytes, size_t size, off_t offset),
             (file, bytes, (size + 1) / 2, offset), (file, bytes, size, offset))
FAULTY_WRITE(pwrite64, (int file, const void* bytes, size_t size, off_t offset),
             (file, bytes, (size + 1) / 2, offset), (file, bytes, size, offset))
FAULTY(ssize_t, -1, read, (int file, void* bytes, size_t size), (file, bytes, size), file)
FAULTY(ssize_t, -1, pread, (int file, void* bytes, size_t size, off_t offset),
       (file, bytes, size, offset), file)
FAULTY(ssize_t, -1, pread64, (int file, void* bytes, size_t size, off_t offset),
       (file, bytes, size, offset), file)
FAULTY(int, -1, fsync, (int file), (file), file)
FAULTY(int, -1, ftruncate, (int file, off_t size), (file, size), file)
FAULTY(int, -1, ftruncate64, (int file, off_t size), (file, size), file)
FAULTY(void*, nullptr, opendir, (const char* path), (path), path)
FAULTY(int, -1, rename, (const char* path, const char* to), (path, to), path)
FAULTY(int, -1, renameat, (int folder, const char* path, int other, const char* to),
       (folder, path, other, to), path)
FAULTY(int, -1, link, (const char* path, const char* to), (path, to), path)
FAULTY(int, -1, unlink, (const char* path), (path), path)
FAULTY(int, -1, unlinkat, (int folder, const char* path, int flags), (folder, path, flags), path)
FAULTY(int, -1, rmdir, (const char* path), (path), path)
FAULTY(int, -1, chmod, (const char* path, mode_t mode), (path, mode), path)
FAULTY(int, -1, flock, (int file, int operation), (file, operation), file)
FAULTY(int, -1, stat, (const char* path, void* status), (path, status), path)
FAULTY(int, -1, lstat, (const char* path, void* status), (path, status), path)
FAULTY(int, -1, fstatat, (int folder, const char* path, void* status, int flags),
       (folder, path, status, flags), path)
struct dirent;
struct __dirstream;
FAULTY(dirent*, nullptr, readdir, (__dirstream * folder), (folder), "-")

// These take room on the disk.
#define TAKING_ROOM(result, name, parameters, arguments, subject, bytes) \
  extern "C" result name parameters {                                    \
    static auto* const real = Real<result parameters>(#name);            \
    if (!TakeRoom(bytes) || Fails(#name, subject)) return -1;            \
    return real arguments;                                               \
  }
TAKING_ROOM(int, mkdir, (const char* path, mode_t mode), (path, mode), path, 1)
TAKING_ROOM(int, mkdirat, (int folder, const char* path, mode_t mode), (folder, path, mode), path,
            1)

// How much it copies shows only behind it.
extern "C" ssize_t copy_file_range(int from, off_t* in, int file, off_t* out, size_t size,
                                   unsigned flags) {
  using Copy = ssize_t(int, off_t*, int, off_t*, size_t, unsigned);
  static auto* const real = Real<Copy>("copy_file_range");
  if (Fails("copy_file_range", file)) return -1;
  const ssize_t copied = real(from, in, file, out, size, flags);
  return copied > 0 && !TakeRoom(static_cast<size_t>(copied)) ? -1 : copied;
}

// What it closes is closed, whatever it says.
extern "C" int close(int file) {
  static auto* const real = Real<int(int)>("close");
  const bool fails = Fails("close", file);
  const int error = errno;
  const int result = real(file);
  if (!fails) return result;
  errno = error;
  return -1;
}
