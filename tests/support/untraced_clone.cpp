// For ThreadSanitizer only. QProcess starts a process by clone(CLONE_VM | CLONE_VFORK), whose child
// shares our memory until its exec. GCC 12's ThreadSanitizer takes every clone() for a fork: it
// marks the thread, in the memory that parent and child share, as that of a forked child, and from
// then on overlooks the locks of the thread that started the process. So this one goes past it.

#include <sched.h>

#include <cstdarg>

extern "C" int __clone(int (*run)(void*), void* stack, int flags, void* argument, ...);

extern "C" int clone(int (*run)(void*), void* stack, int flags, void* argument, ...) noexcept {
  va_list rest;
  va_start(rest, argument);
  auto* parent = va_arg(rest, pid_t*);
  auto* tls = va_arg(rest, void*);
  auto* child = va_arg(rest, pid_t*);
  va_end(rest);
  return __clone(run, stack, flags, argument, parent, tls, child);
}
