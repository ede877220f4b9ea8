/// Numbers with units, computed as on paper: whole decimal numbers of any length, digit by digit.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

namespace orva_test {

/// The sum of two decimal numbers.
inline std::string decimal_sum(std::string a, std::string b) {
  if (a.size() < b.size()) a.swap(b);
  b.insert(0, a.size() - b.size(), '0');
  int carry = 0;
  for (std::size_t i = a.size(); i-- > 0;) {
    const int sum = (a[i] - '0') + (b[i] - '0') + carry;
    a[i] = static_cast<char>('0' + sum % 10);
    carry = sum / 10;
  }
  return carry == 0 ? a : "1" + a;
}

/// The product of a decimal number and an integer: the sum of its doublings.
inline std::string decimal_product(std::string number, std::uint64_t factor) {
  std::string product = "0";
  for (; factor != 0; factor /= 2) {
    if (factor % 2 == 1) product = decimal_sum(product, number);
    number = decimal_sum(number, number);
  }
  return product;
}

struct reference_quantity {
  /// Without zeros in front; "0" for zero.
  std::string whole;
  bool is_whole;
};

/// `integer`.`fraction` times `unit`.
inline reference_quantity quantity_of(const std::string& integer, const std::string& fraction,
                                      std::uint64_t unit) {
  std::string product = decimal_product(integer + fraction, unit);
  if (product.size() <= fraction.size()) product.insert(0, fraction.size() + 1 - product.size(), '0');
  const std::size_t point = product.size() - fraction.size();
  std::string whole = product.substr(0, point);
  whole.erase(0, std::min(whole.find_first_not_of('0'), whole.size() - 1));
  return {whole, product.find_first_not_of('0', point) == product.npos};
}

/// Whether a whole decimal number without zeros in front is at most another.
inline bool decimal_at_most(const std::string& a, const std::string& b) {
  return a.size() != b.size() ? a.size() < b.size() : a <= b;
}

}  // namespace orva_test
