/// `peak_memory`: the highest growth of the resident memory of the process since the object was made.
#pragma once

#include <cstdint>
#include <fstream>
#include <string>

namespace bench {

class peak_memory {
 public:
  peak_memory() : before_(read("VmRSS:")) { std::ofstream("/proc/self/clear_refs") << 5; }

  /// In bytes; 0 if the system does not report it.
  double growth() const { return static_cast<double>(read("VmHWM:") - before_) * 1024; }

 private:
  static std::int64_t read(const std::string& wanted) {
    std::ifstream status("/proc/self/status");
    std::string word;
    while (status >> word) {
      std::int64_t kilobytes = 0;
      if (word == wanted && status >> kilobytes) return kilobytes;
    }
    return 0;
  }

  std::int64_t before_;
};

}  // namespace bench
