/* Makes one call of a program to the system fail, or kills or stops the program there. Loaded into
 * it by LD_PRELOAD, and told by the environment what to do:
 *
 *     INJECT_TEXT   only calls on files whose path holds this text count
 *     INJECT_KIND   write, rename, fsync, fsyncdir (of a folder), openw, openr, read, mkdir or remove
 *     INJECT_AT     number of the call of that kind, from 1; 0 for none
 *     INJECT_DO     number of an error; or short (half of it is written or read), kill (before the
 *                   call), killed (after it), torn (after half of a write), stop (before it,
 * until somebody lets the program go on) INJECT_LOG    a file that gets a line for each call that
 * counts: kind, blank, path
 *
 * An fsync of a file that nobody has written to since its last one counts for nothing.
 * What the C library writes and reads of its own accord, for a FILE or a folder's list, is not
 * seen.
 */
#define _GNU_SOURCE
#include <dlfcn.h>
#include <errno.h>
#include <fcntl.h>
#include <signal.h>
#include <stdarg.h>
#include <stdatomic.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <unistd.h>

enum { descriptors = 4096 };
enum act { pass, fail, halve, killAfter };

static atomic_uchar watched[descriptors];
static atomic_uchar onDisk[descriptors]; /* nothing was written since the last fsync */
static atomic_int calls;

/* A call in hand: what is to become of it, and the error for a failing one. */
struct fate {
    enum act act;
    int error;
};

#define REAL(name) ((__typeof__(&name))dlsym(RTLD_NEXT, #name))

static void die(void) {
    syscall(SYS_kill, getpid(), SIGKILL);
    for (;;) {
    }
}

static void note(const char* kind, const char* path) {
    const char* log = getenv("INJECT_LOG");
    if (log == NULL)
        return;
    char line[4200];
    const int length = snprintf(line, sizeof line, "%s %s\n", kind, path);
    const long file = syscall(SYS_openat, AT_FDCWD, log, O_WRONLY | O_APPEND | O_CREAT, 0666);
    if (file >= 0 && length > 0) {
        syscall(SYS_write, file, line, (size_t)length);
        syscall(SYS_close, file);
    }
}

static struct fate decide(const char* kind, const char* path) {
    const struct fate go = {pass, 0};
    const int before = errno;
    note(kind, path);
    errno = before;
    const char* wanted = getenv("INJECT_KIND");
    const char* at = getenv("INJECT_AT");
    const char* what = getenv("INJECT_DO");
    if (wanted == NULL || at == NULL || what == NULL || strcmp(wanted, kind) != 0)
        return go;
    if (atomic_fetch_add(&calls, 1) + 1 != atoi(at))
        return go;
    if (strcmp(what, "kill") == 0)
        die();
    if (strcmp(what, "killed") == 0)
        return (struct fate){killAfter, 0};
    if (strcmp(what, "short") == 0 || strcmp(what, "torn") == 0)
        return (struct fate){halve, what[0] == 't'};
    if (strcmp(what, "stop") == 0) {
        syscall(SYS_kill, getpid(), SIGSTOP);
        return go;
    }
    return (struct fate){fail, atoi(what)};
}

/* The path as the system sees it, so that a name within an open folder is known too. */
static const char* whole(int folder, const char* path, char* room) {
    char link[64];
    if (path == NULL)
        return "";
    if (path[0] == '/')
        return path;
    if (folder == AT_FDCWD)
        snprintf(link, sizeof link, "/proc/self/cwd");
    else
        snprintf(link, sizeof link, "/proc/self/fd/%d", folder);
    const ssize_t length = readlink(link, room, 2000);
    if (length < 0)
        return path;
    snprintf(room + length, 2000, "/%s", path);
    return room;
}

static int counts(const char* path) {
    const char* text = getenv("INJECT_TEXT");
    return text != NULL && strstr(path, text) != NULL;
}

static int isWatched(int file) { return file >= 0 && file < descriptors && watched[file]; }

static struct fate decideOn(int file, const char* kind) {
    char link[64];
    char path[4000] = "";
    if (!isWatched(file))
        return (struct fate){pass, 0};
    snprintf(link, sizeof link, "/proc/self/fd/%d", file);
    const ssize_t length = readlink(link, path, sizeof path - 1);
    path[length > 0 ? length : 0] = '\0';
    return decide(kind, path);
}

static void watch(int file, int yes) {
    if (file >= 0 && file < descriptors)
        watched[file] = (unsigned char)yes;
    if (file >= 0 && file < descriptors)
        onDisk[file] = 0;
}

/* Fate of a write, which makes the file one that is not on the disk. */
static struct fate decideOnWrite(int file) {
    if (isWatched(file))
        onDisk[file] = 0;
    return decideOn(file, "write");
}

/* Makes a call, or lets it fail as decided. */
#define WITH_FATE(fate, result, failed, call)                                                      \
    do {                                                                                           \
        if ((fate).act == fail) {                                                                  \
            errno = (fate).error;                                                                  \
            return failed;                                                                         \
        }                                                                                          \
        result = call;                                                                             \
        if ((fate).act == killAfter)                                                              \
            die();                                                                                 \
    } while (0)

static int opened(int folder, const char* path, int flags, mode_t mode) {
    char room[4100];
    const char* full = whole(folder, path, room);
    const int mine = counts(full);
    const int writes = (flags & O_ACCMODE) != O_RDONLY || (flags & O_CREAT) != 0;
    const struct fate fate =
        mine ? decide(writes ? "openw" : "openr", full) : (struct fate){pass, 0};
    int file;
    WITH_FATE(fate, file, -1, (int)syscall(SYS_openat, folder, path, flags, mode));
    watch(file, mine);
    return file;
}

#define MODE_OF(flags, mode)                                                                       \
    mode_t mode = 0;                                                                               \
    if ((flags) & (O_CREAT | __O_TMPFILE)) {                                                       \
        va_list rest;                                                                              \
        va_start(rest, flags);                                                                     \
        mode = va_arg(rest, mode_t);                                                               \
        va_end(rest);                                                                              \
    }

int open(const char* path, int flags, ...) {
    MODE_OF(flags, mode)
    return opened(AT_FDCWD, path, flags, mode);
}
int open64(const char* path, int flags, ...) {
    MODE_OF(flags, mode)
    return opened(AT_FDCWD, path, flags | O_LARGEFILE, mode);
}
int openat(int folder, const char* path, int flags, ...) {
    MODE_OF(flags, mode)
    return opened(folder, path, flags, mode);
}
int openat64(int folder, const char* path, int flags, ...) {
    MODE_OF(flags, mode)
    return opened(folder, path, flags | O_LARGEFILE, mode);
}
int creat(const char* path, mode_t mode) {
    return opened(AT_FDCWD, path, O_WRONLY | O_CREAT | O_TRUNC, mode);
}

static FILE* streamed(const char* path, const char* mode, FILE* (*real)(const char*, const char*)) {
    char room[4100];
    const char* full = whole(AT_FDCWD, path, room);
    const int mine = counts(full);
    const struct fate fate =
        mine ? decide(mode[0] == 'r' && strchr(mode, '+') == NULL ? "openr" : "openw", full)
             : (struct fate){pass, 0};
    FILE* file;
    WITH_FATE(fate, file, NULL, real(path, mode));
    if (file != NULL)
        watch(fileno(file), mine);
    return file;
}
FILE* fopen(const char* path, const char* mode) { return streamed(path, mode, REAL(fopen)); }
FILE* fopen64(const char* path, const char* mode) { return streamed(path, mode, REAL(fopen64)); }

static int temporary(char* path, int flags, int (*real)(char*, int)) {
    char room[4100];
    const int mine = counts(whole(AT_FDCWD, path, room));
    const struct fate fate = mine ? decide("openw", path) : (struct fate){pass, 0};
    int file;
    WITH_FATE(fate, file, -1, real(path, flags));
    watch(file, mine);
    return file;
}
int mkstemp(char* path) { return temporary(path, 0, REAL(mkostemp)); }
int mkstemp64(char* path) { return temporary(path, 0, REAL(mkostemp)); }
int mkostemp(char* path, int flags) { return temporary(path, flags, REAL(mkostemp)); }
int mkostemp64(char* path, int flags) { return temporary(path, flags, REAL(mkostemp)); }

int close(int file) {
    watch(file, 0);
    return (int)syscall(SYS_close, file);
}

#define TRANSFER(decision, file, count, call)                                                      \
    const struct fate fate = decision;                                                             \
    if (fate.act == halve && (count) > 1)                                                          \
        (count) /= 2;                                                                              \
    ssize_t result;                                                                                \
    WITH_FATE(fate, result, -1, call);                                                             \
    if (fate.act == halve && fate.error)                                                           \
        die();                                                                                     \
    return result;

ssize_t write(int file, const void* bytes, size_t count){
    TRANSFER(decideOnWrite(file), file, count, syscall(SYS_write, file, bytes, count))} ssize_t
    pwrite(int file, const void* bytes, size_t count, off_t at){
        TRANSFER(decideOnWrite(file), file, count, REAL(pwrite)(file, bytes, count, at))} ssize_t
    pwrite64(int file, const void* bytes, size_t count, off64_t at){
        TRANSFER(decideOnWrite(file), file, count, REAL(pwrite64)(file, bytes, count, at))} ssize_t
    writev(int file, const struct iovec* parts, int count){
        TRANSFER(decideOnWrite(file), file, count, syscall(SYS_writev, file, parts, count))} ssize_t
    read(int file, void* bytes,
         size_t count){TRANSFER(decideOn(file, "read"), file, count,
                                syscall(SYS_read, file, bytes, count))} ssize_t
    pread(int file, void* bytes, size_t count, off_t at){
        TRANSFER(decideOn(file, "read"), file, count, REAL(pread)(file, bytes, count, at))} ssize_t
    pread64(int file, void* bytes, size_t count,
            off64_t at){TRANSFER(decideOn(file, "read"), file, count,
                                 REAL(pread64)(file, bytes, count, at))} ssize_t
    readv(int file, const struct iovec* parts, int count) {
    TRANSFER(decideOn(file, "read"), file, count, syscall(SYS_readv, file, parts, count))
}

static int synced(int file, long call) {
    struct stat state;
    const int folder = fstat(file, &state) == 0 && S_ISDIR(state.st_mode);
    if (isWatched(file) && onDisk[file])
        return (int)syscall(call, file);
    const struct fate fate = decideOn(file, folder ? "fsyncdir" : "fsync");
    int result;
    WITH_FATE(fate, result, -1, (int)syscall(call, file));
    if (result == 0 && isWatched(file))
        onDisk[file] = 1;
    return result;
}
int fsync(int file) { return synced(file, SYS_fsync); }
int fdatasync(int file) { return synced(file, SYS_fdatasync); }

static int moved(int newFolder, const char* newPath, long call, int oldFolder, const char* oldPath,
                 int flags) {
    char room[4100];
    const char* full = whole(newFolder, newPath, room);
    const struct fate fate = counts(full) ? decide("rename", full) : (struct fate){pass, 0};
    int result;
    WITH_FATE(fate, result, -1, (int)syscall(call, oldFolder, oldPath, newFolder, newPath, flags));
    return result;
}
int rename(const char* from, const char* to) {
    return moved(AT_FDCWD, to, SYS_renameat2, AT_FDCWD, from, 0);
}
int renameat(int oldFolder, const char* from, int newFolder, const char* to) {
    return moved(newFolder, to, SYS_renameat2, oldFolder, from, 0);
}
int renameat2(int oldFolder, const char* from, int newFolder, const char* to, unsigned flags) {
    return moved(newFolder, to, SYS_renameat2, oldFolder, from, (int)flags);
}
int link(const char* from, const char* to) {
    return moved(AT_FDCWD, to, SYS_linkat, AT_FDCWD, from, 0);
}
int linkat(int oldFolder, const char* from, int newFolder, const char* to, int flags) {
    return moved(newFolder, to, SYS_linkat, oldFolder, from, flags);
}

static int made(int folder, const char* path, mode_t mode) {
    char room[4100];
    const char* full = whole(folder, path, room);
    const struct fate fate = counts(full) ? decide("mkdir", full) : (struct fate){pass, 0};
    int result;
    WITH_FATE(fate, result, -1, (int)syscall(SYS_mkdirat, folder, path, mode));
    return result;
}
int mkdir(const char* path, mode_t mode) { return made(AT_FDCWD, path, mode); }
int mkdirat(int folder, const char* path, mode_t mode) { return made(folder, path, mode); }
char* mkdtemp(char* path) {
    char room[4100];
    const char* full = whole(AT_FDCWD, path, room);
    const struct fate fate = counts(full) ? decide("mkdir", full) : (struct fate){pass, 0};
    char* result;
    WITH_FATE(fate, result, NULL, REAL(mkdtemp)(path));
    return result;
}

static int removed(int folder, const char* path, int flags) {
    char room[4100];
    const char* full = whole(folder, path, room);
    const struct fate fate = counts(full) ? decide("remove", full) : (struct fate){pass, 0};
    int result;
    WITH_FATE(fate, result, -1, (int)syscall(SYS_unlinkat, folder, path, flags));
    return result;
}
int unlink(const char* path) { return removed(AT_FDCWD, path, 0); }
int unlinkat(int folder, const char* path, int flags) { return removed(folder, path, flags); }
int rmdir(const char* path) { return removed(AT_FDCWD, path, AT_REMOVEDIR); }
