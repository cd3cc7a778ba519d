// A library that zeltcfg's tests preload to make one file-system call of the
// program fail, or to kill the program at that call, so that a test can see
// what a failure or a crash at each step leaves behind.
//
//   ZELTCFG_FAULT_AT=K      the K-th counted call (from 1) is the one
//   ZELTCFG_FAULT=EIO|ENOSPC|EINTR|KILL
//                           it fails with that error, or SIGKILL ends the
//                           program before it is made
//   ZELTCFG_FAULT_MARK=FILE made when the fault happens, so that the test
//                           knows the program reached the K-th call
//
// Counted calls: open, openat, read, write, close, fsync, fdatasync, rename,
// renameat, unlink, fchmod, fchown, flock and mkostemp, from any code in the
// program, the zelt library and json-c included.
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

long CallsMade = 0;

void MarkFault() {
    const char* mark = std::getenv("ZELTCFG_FAULT_MARK");
    if (mark == nullptr) return;
    // Straight to the kernel, so that the mark is not a counted call.
    const long file = syscall(SYS_openat, AT_FDCWD, mark, O_WRONLY | O_CREAT | O_CLOEXEC, 0644);
    if (file >= 0) syscall(SYS_close, file);
}

// The error the current call fails with, or 0 when it goes ahead.
int FaultOfThisCall() {
    const char* at = std::getenv("ZELTCFG_FAULT_AT");
    const char* kind = std::getenv("ZELTCFG_FAULT");
    if (at == nullptr || kind == nullptr || ++CallsMade != std::atol(at)) return 0;
    MarkFault();
    if (std::strcmp(kind, "KILL") == 0) kill(getpid(), SIGKILL);
    if (std::strcmp(kind, "ENOSPC") == 0) return ENOSPC;
    if (std::strcmp(kind, "EINTR") == 0) return EINTR;
    return EIO;
}

template <typename Function>
Function Next(const char* name) {
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

}  // namespace

// Each call either fails with the chosen error or goes to the C library.
#define ZELTCFG_FAULT_POINT(failure)           \
    if (const int fault = FaultOfThisCall()) { \
        errno = fault;                         \
        return failure;                        \
    }

// The same for an open, whose mode argument is there only when a file may be
// made; it is read into mode.
#define ZELTCFG_OPEN_FAULT_POINT(flags)                                                         \
    va_list arguments;                                                                          \
    va_start(arguments, flags);                                                                 \
    const mode_t mode = ((flags) & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(arguments, mode_t) : 0; \
    va_end(arguments);                                                                          \
    ZELTCFG_FAULT_POINT(-1)

extern "C" {

int open(const char* path, int flags, ...) {
    ZELTCFG_OPEN_FAULT_POINT(flags)
    return Next<int (*)(const char*, int, ...)>("open")(path, flags, mode);
}

int open64(const char* path, int flags, ...) {
    ZELTCFG_OPEN_FAULT_POINT(flags)
    return Next<int (*)(const char*, int, ...)>("open64")(path, flags, mode);
}

int openat(int folder, const char* path, int flags, ...) {
    ZELTCFG_OPEN_FAULT_POINT(flags)
    return Next<int (*)(int, const char*, int, ...)>("openat")(folder, path, flags, mode);
}

ssize_t read(int file, void* buffer, size_t size) {
    ZELTCFG_FAULT_POINT(-1)
    return Next<ssize_t (*)(int, void*, size_t)>("read")(file, buffer, size);
}

ssize_t write(int file, const void* buffer, size_t size) {
    ZELTCFG_FAULT_POINT(-1)
    return Next<ssize_t (*)(int, const void*, size_t)>("write")(file, buffer, size);
}

int close(int file) {
    // A close that fails with EINTR or EIO has still released the
    // descriptor on Linux; so does this one.
    if (const int fault = FaultOfThisCall()) {
        Next<int (*)(int)>("close")(file);
        errno = fault;
        return -1;
    }
    return Next<int (*)(int)>("close")(file);
}

int fsync(int file) {
    ZELTCFG_FAULT_POINT(-1)
    return Next<int (*)(int)>("fsync")(file);
}

int fdatasync(int file) {
    ZELTCFG_FAULT_POINT(-1)
    return Next<int (*)(int)>("fdatasync")(file);
}

int rename(const char* from, const char* to) {
    ZELTCFG_FAULT_POINT(-1)
    return Next<int (*)(const char*, const char*)>("rename")(from, to);
}

int renameat(int fromFolder, const char* from, int toFolder, const char* to) {
    ZELTCFG_FAULT_POINT(-1)
    return Next<int (*)(int, const char*, int, const char*)>("renameat")(fromFolder, from, toFolder,
                                                                         to);
}

int unlink(const char* path) {
    ZELTCFG_FAULT_POINT(-1)
    return Next<int (*)(const char*)>("unlink")(path);
}

int fchmod(int file, mode_t mode) {
    ZELTCFG_FAULT_POINT(-1)
    return Next<int (*)(int, mode_t)>("fchmod")(file, mode);
}

int fchown(int file, uid_t owner, gid_t group) {
    ZELTCFG_FAULT_POINT(-1)
    return Next<int (*)(int, uid_t, gid_t)>("fchown")(file, owner, group);
}

int flock(int file, int operation) {
    ZELTCFG_FAULT_POINT(-1)
    return Next<int (*)(int, int)>("flock")(file, operation);
}

int mkostemp(char* pattern, int flags) {
    ZELTCFG_FAULT_POINT(-1)
    return Next<int (*)(char*, int)>("mkostemp")(pattern, flags);
}

}  // extern "C"
