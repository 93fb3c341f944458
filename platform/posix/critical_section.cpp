#include "platform/posix/platform.h"

// A lock that cannot be made, taken or released is a programming error, and these functions have
// no way to report one; the results are not looked at, as on Windows.

void InitializeCriticalSection(CRITICAL_SECTION* section) {
  pthread_mutexattr_t attributes;
  pthread_mutexattr_init(&attributes);
  pthread_mutexattr_settype(&attributes, PTHREAD_MUTEX_RECURSIVE);
  pthread_mutex_init(&section->mutex, &attributes);
  pthread_mutexattr_destroy(&attributes);
}

void EnterCriticalSection(CRITICAL_SECTION* section) { pthread_mutex_lock(&section->mutex); }

void LeaveCriticalSection(CRITICAL_SECTION* section) { pthread_mutex_unlock(&section->mutex); }

void DeleteCriticalSection(CRITICAL_SECTION* section) { pthread_mutex_destroy(&section->mutex); }
