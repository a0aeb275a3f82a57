// What GCC's run-time library asks of POSIX threads: a lock, an action that is done once, a value
// of each thread. It asks so that exceptions work in several threads at a time. Windows has all of
// it; the library of POSIX threads on Windows, which would be linked otherwise, adds a sixth to the
// program's size.
#include <bit>

#include <pthread.h>
#include <windows.h>

namespace {

// A mutex has room for one of Windows's locks, and needs nothing else.
SRWLOCK* lockOf(pthread_mutex_t* mutex) noexcept { return std::bit_cast<SRWLOCK*>(mutex); }

static_assert(sizeof(pthread_mutex_t) == sizeof(SRWLOCK));

}  // namespace

extern "C" {

int pthread_mutex_init(pthread_mutex_t* mutex, const pthread_mutexattr_t*) {
    InitializeSRWLock(lockOf(mutex));
    return 0;
}

int pthread_mutex_destroy(pthread_mutex_t*) { return 0; }

int pthread_mutex_lock(pthread_mutex_t* mutex) {
    AcquireSRWLockExclusive(lockOf(mutex));
    return 0;
}

int pthread_mutex_unlock(pthread_mutex_t* mutex) {
    ReleaseSRWLockExclusive(lockOf(mutex));
    return 0;
}

int pthread_once(pthread_once_t* o, void (*func)()) {
    static SRWLOCK lock = SRWLOCK_INIT;
    AcquireSRWLockExclusive(&lock);
    if (*o == PTHREAD_ONCE_INIT) {
        func();
        *o = !PTHREAD_ONCE_INIT;
    }
    ReleaseSRWLockExclusive(&lock);
    return 0;
}

// The value of a thread that ends is left to the process's end.
int pthread_key_create(pthread_key_t* key, void (*)(void*)) {
    *key = TlsAlloc();
    return *key == TLS_OUT_OF_INDEXES ? ERROR_NOT_ENOUGH_MEMORY : 0;
}

// An exception is often made from the last error, after this has been called for it.
void* pthread_getspecific(pthread_key_t key) {
    const DWORD lastError = GetLastError();
    void* const value = TlsGetValue(key);
    SetLastError(lastError);
    return value;
}

int pthread_setspecific(pthread_key_t key, const void* value) {
    // NOLINTNEXTLINE(*-const-cast): a thread's own value, handed back as it came
    return TlsSetValue(key, const_cast<void*>(value)) != 0 ? 0 : ERROR_NOT_ENOUGH_MEMORY;
}

}  // extern "C"
