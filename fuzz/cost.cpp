#include "cost.h"

#include <algorithm>
#include <bit>
#include <ctime>

#include "input.h"

using AllocationHook = void (*)(const volatile void* place, std::size_t size);
using FreeHook = void (*)(const volatile void* place);

// AddressSanitizer's own, where it is.
[[gnu::weak]] int installHooks(AllocationHook onAllocation,
                               FreeHook onFree) asm("__sanitizer_install_malloc_and_free_hooks");
[[gnu::weak]] std::size_t allocatedSize(const volatile void* place) asm(
    "__sanitizer_get_allocated_size");

namespace {

thread_local std::int64_t held = 0;  // bytes
thread_local std::int64_t peak = 0;

void allocated(const volatile void*, std::size_t size) {
  held += static_cast<std::int64_t>(size);
  peak = std::max(peak, held);
}
void freed(const volatile void* place) {
  if (place != nullptr) held -= static_cast<std::int64_t>(allocatedSize(place));
}

std::int64_t processorTime() {
  timespec time{};
  ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
  return std::int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec;
}

}  // namespace

namespace vantor {

Cost costOf(const std::function<void()>& work) {
  [[maybe_unused]] static const int hooks =
      installHooks != nullptr ? installHooks(allocated, freed) : 0;
  held = peak = 0;
  const std::int64_t begin = processorTime();
  work();
  return {processorTime() - begin, peak};
}

QByteArray Harmless::ofSize(qsizetype size) const {
  const qsizetype rows = (size - head.size() - tail.size()) / row.size();
  return head + row.repeated(std::max<qsizetype>(rows, 0)) + tail;
}

Yardstick::Yardstick(Harmless harmless, Parse parse)
    : Yardstick([harmless = std::move(harmless)](qsizetype size) { return harmless.ofSize(size); },
                std::move(parse)) {}

Yardstick::Yardstick(std::function<QByteArray(qsizetype)> harmless, Parse parse)
    : harmless_(std::move(harmless)), parse_(std::move(parse)) {}

std::int64_t Yardstick::quickest(const QByteArray& input) const {
  std::int64_t least = std::numeric_limits<std::int64_t>::max();
  for (int round = 0; round < 3; ++round)
    least = std::min(least, costOf([&] { parse_(input); }).time);
  return least;
}

std::int64_t Yardstick::harmlessTime(qsizetype size) {
  constexpr std::size_t smallest = 1024;
  const auto rounded =
      static_cast<qsizetype>(std::bit_ceil(std::max(static_cast<std::size_t>(size), smallest)));
  std::int64_t& time = times_[rounded];
  if (time == 0) time = quickest(harmless_(rounded));
  return time;
}

std::int64_t Yardstick::measure(const QByteArray& input, qsizetype size) {
  constexpr int most = 50;
  const std::int64_t bound = most * harmlessTime(std::max(size, input.size()));
  const Cost cost = costOf([&] { parse_(input); });
  // Once may be chance.
  if (cost.time > bound) mustHold(quickest(input) <= bound);
  return cost.memory;
}

}  // namespace vantor
