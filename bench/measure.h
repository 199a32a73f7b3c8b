#pragma once

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>
#include <vector>

namespace vantor::bench {

/// The times of one thing over several runs, in milliseconds.
class Times {
 public:
  using Milliseconds = std::chrono::duration<double, std::milli>;

  template <class Work>
  void run(Work work) {
    const auto begin = std::chrono::steady_clock::now();
    work();
    add(std::chrono::steady_clock::now() - begin);
  }
  void add(Milliseconds time) { times_.push_back(time.count()); }
  double median() const { return quantile(0.5); }
  /// What 95 of 100 do not exceed.
  double high() const { return quantile(0.95); }
  double worst() const {
    return times_.empty() ? 0 : *std::max_element(times_.begin(), times_.end());
  }
  double best() const {
    return times_.empty() ? 0 : *std::min_element(times_.begin(), times_.end());
  }

 private:
  double quantile(double share) const {
    std::vector<double> sorted = times_;
    std::sort(sorted.begin(), sorted.end());
    const auto place = static_cast<std::size_t>(share * static_cast<double>(sorted.size()));
    return sorted.empty() ? 0 : sorted[std::min(place, sorted.size() - 1)];
  }

  std::vector<double> times_;
};

/// One line of the table: what, the measured value, what it is compared with, the budget.
inline void row(const std::string& what, const std::string& measured, const std::string& against,
                const std::string& budget, bool within) {
  std::printf("%-52s %-24s %-30s %-16s %s\n", what.c_str(), measured.c_str(), against.c_str(),
              budget.c_str(), within ? "ok" : "OVER");
  std::fflush(stdout);
}

inline std::string milliseconds(double value) {
  char text[32];
  std::snprintf(text, sizeof text, "%.1f ms", value);
  return text;
}

inline std::string factor(double value) {
  char text[32];
  std::snprintf(text, sizeof text, "%.2f x", value);
  return text;
}

}  // namespace vantor::bench
