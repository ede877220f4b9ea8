/// Catalogs of gettext, with which ours are compared.
#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace i18n_bench {

/// A catalog in gettext's compiled form, with the hash table that its compiler writes. Plural forms have a
/// zero byte between them.
class mo_file {
 public:
  explicit mo_file(std::vector<std::pair<std::string, std::string>> entries) : entries_(std::move(entries)) {
    std::sort(entries_.begin(), entries_.end());
    const auto count = static_cast<std::uint32_t>(entries_.size());
    hash_size_ = next_prime(std::max(count * 4 / 3, 3u));
    const std::uint32_t tables = 28;
    const std::uint32_t hashes = tables + 16 * count;
    text_at_ = hashes + 4 * hash_size_;
    for (const std::uint32_t word : {0x950412DEu, 0u, count, tables, tables + 8 * count, hash_size_, hashes})
      put(word);
    for (const auto& entry : entries_) add_text(entry.first);
    for (const auto& entry : entries_) add_text(entry.second);
    for (const std::uint32_t slot : hash_table()) put(slot);
    bytes_ += texts_;
  }

  const std::string& bytes() const { return bytes_; }

 private:
  static std::uint32_t next_prime(std::uint32_t number) {
    const auto is_prime = [](std::uint32_t n) {
      for (std::uint32_t i = 2; i * i <= n; ++i) {
        if (n % i == 0) return false;
      }
      return true;
    };
    while (!is_prime(number)) ++number;
    return number;
  }

  /// The hash that the format prescribes. The singular counts alone.
  static std::uint32_t hash(const std::string& text) {
    std::uint32_t value = 0;
    for (const char c : text.substr(0, text.find('\0'))) {
      value = (value << 4) + static_cast<unsigned char>(c);
      const std::uint32_t high = value & 0xF0000000u;
      if (high != 0) value ^= (high >> 24) ^ high;
    }
    return value;
  }

  std::vector<std::uint32_t> hash_table() const {
    std::vector<std::uint32_t> table(hash_size_, 0);
    for (std::uint32_t i = 0; i < entries_.size(); ++i) {
      const std::uint32_t value = hash(entries_[i].first);
      const std::uint32_t step = 1 + value % (hash_size_ - 2);
      std::uint32_t slot = value % hash_size_;
      while (table[slot] != 0) slot = (slot + step) % hash_size_;
      table[slot] = i + 1;
    }
    return table;
  }

  void put(std::uint32_t word) { bytes_.append(reinterpret_cast<const char*>(&word), sizeof word); }

  void add_text(const std::string& text) {
    put(static_cast<std::uint32_t>(text.size()));
    put(text_at_ + static_cast<std::uint32_t>(texts_.size()));
    texts_.append(text).push_back('\0');
  }

  std::vector<std::pair<std::string, std::string>> entries_;
  std::uint32_t hash_size_ = 0;
  std::uint32_t text_at_ = 0;
  std::string bytes_;
  std::string texts_;
};

}  // namespace i18n_bench
