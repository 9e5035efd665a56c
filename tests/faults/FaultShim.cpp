// Loaded before the system's library (LD_PRELOAD): makes one call that reads or changes files fail,
// or ends the process there. Only calls with a path below FAULT_ROOT and those with descriptors
// beyond the standard streams count. It includes none of the headers that declare what it defines.
//
//   FAULT_AT      which call, from 1
//   FAULT_ERROR   its errno; 0: a write writes half of its bytes; -1: the process is gone
//   FAULT_REPORT  a file that gets the name and the path of the failed call, or, when there was
//                 none, the number of calls
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

template <typename Function>
Function* Real(const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

[[gnu::destructor]] void ReportCalls() {
  if (failed) return;
  char digits[21];
  char* begin = digits + sizeof digits;
  *--begin = '\0';
  for (long rest = calls; rest > 0; rest /= 10) *--begin = static_cast<char>('0' + rest % 10);
  Report("calls", begin);
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
    return real arguments;                                                  \
  }
#define FAULTY_WRITE(name, parameters, half, arguments)        \
  extern "C" ssize_t name parameters {                         \
    static auto* const real = Real<ssize_t parameters>(#name); \
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
FAULTY(ssize_t, -1, copy_file_range,
       (int from, off_t* in, int file, off_t* out, size_t size, unsigned flags),
       (from, in, file, out, size, flags), file)
FAULTY(int, -1, fsync, (int file), (file), file)
FAULTY(int, -1, ftruncate, (int file, off_t size), (file, size), file)
FAULTY(int, -1, ftruncate64, (int file, off_t size), (file, size), file)
FAULTY(void*, nullptr, opendir, (const char* path), (path), path)
FAULTY(int, -1, rename, (const char* path, const char* to), (path, to), path)
FAULTY(int, -1, renameat, (int folder, const char* path, int other, const char* to),
       (folder, path, other, to), path)
FAULTY(int, -1, link, (const char* path, const char* to), (path, to), path)
FAULTY(int, -1, mkdir, (const char* path, mode_t mode), (path, mode), path)
FAULTY(int, -1, mkdirat, (int folder, const char* path, mode_t mode), (folder, path, mode), path)
FAULTY(int, -1, unlink, (const char* path), (path), path)
FAULTY(int, -1, unlinkat, (int folder, const char* path, int flags), (folder, path, flags), path)
FAULTY(int, -1, rmdir, (const char* path), (path), path)
FAULTY(int, -1, chmod, (const char* path, mode_t mode), (path, mode), path)

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
