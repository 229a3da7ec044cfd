#include "engine/object/recursion.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdint>

#ifdef _WIN32
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#elif defined(__APPLE__) || defined(__linux__)
#include <pthread.h>
#endif

namespace tessora::host {

namespace {

// What may be left for code of others: pygame, Python's own frames, finalisers.
constexpr std::size_t kMargin = std::size_t{192} * 1024;
// Where the system does not tell: stacks of threads are mostly larger.
constexpr std::size_t kUnknownStack = std::size_t{448} * 1024;

struct Stack {
  const char* lowest = nullptr;
  std::size_t size = 0;
};

// The calling thread's stack, which grows downwards; nothing where the system does not tell.
Stack find_stack() noexcept {
  Stack stack;
#ifdef _WIN32
  ULONG_PTR low = 0;
  ULONG_PTR high = 0;
  GetCurrentThreadStackLimits(&low, &high);
  stack.lowest = reinterpret_cast<const char*>(low);
  stack.size = static_cast<std::size_t>(high - low);
#elif defined(__APPLE__)
  const pthread_t self = pthread_self();
  stack.size = pthread_get_stacksize_np(self);
  stack.lowest = static_cast<const char*>(pthread_get_stackaddr_np(self)) - stack.size;
#elif defined(__linux__)
  pthread_attr_t attributes;
  if (pthread_getattr_np(pthread_self(), &attributes) != 0) return stack;
  void* address = nullptr;
  std::size_t size = 0;
  if (pthread_attr_getstack(&attributes, &address, &size) == 0) {
    stack = {static_cast<const char*>(address), size};
  }
  pthread_attr_destroy(&attributes);
#endif
  return stack;
}

const char* find_stack_end(const char* here) noexcept {
  const Stack stack = find_stack();
  if (stack.lowest == nullptr || stack.size == 0) return here - kUnknownStack;
  return stack.lowest + std::min(kMargin, stack.size / 2);
}

}  // namespace

void RecursionGuard::check_depth(const char* here) {
  if (thread_.stack_end == nullptr) thread_.stack_end = find_stack_end(here);
  if (thread_.depth <= thread_.limit && !std::less<>()(here, thread_.stack_end)) return;
  --thread_.depth;
  raise(PyExc_RecursionError, "maximum recursion depth exceeded in a tree of nodes");
}

}  // namespace tessora::host
