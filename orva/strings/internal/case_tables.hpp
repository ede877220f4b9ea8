/// Case mapping and case folding of single characters, by the tables of Unicode.
///
///     simple_mapping(lower_table, U'A')           =>  U'a'
///     case_mapping(upper_table, 0xDF).text        =>  {U'S', U'S'}
///
/// Internal: not installed. Mappings that depend on a language or on the characters around are not here.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <span>

#include "orva/internal/text/character_range.hpp"
#include "orva/version.hpp"

namespace ORVA_NAMESPACE::strings::_private::unicode_case {

using internal::text::character_range;

/// The most characters that one is mapped to.
inline constexpr std::size_t longest_case_mapping = 3;

struct special_mapping {
  std::uint32_t from;
  /// Unused places are 0.
  std::array<std::uint32_t, longest_case_mapping> to;
};

#include "orva/strings/internal/case_tables.inc"

struct case_table {
  /// The number of the block of each 64 characters; 0 if none of them changes.
  std::span<const std::uint8_t> blocks;
  /// For each character of a block, the index in `deltas` of what is added to it; `special` if it is mapped
  /// to several characters.
  const std::uint8_t* delta_indexes;
  std::span<const special_mapping> specials;
};

inline constexpr std::uint8_t special = 255;
inline constexpr std::uint32_t block_size = 64;

inline constexpr case_table lower_table{lower_blocks, lower_deltas, lower_specials};
inline constexpr case_table upper_table{upper_blocks, upper_deltas, upper_specials};
inline constexpr case_table folded_table{folded_blocks, folded_deltas, folded_specials};

static_assert(std::size(lower_blocks) * block_size >= 0x10000 &&
              std::size(upper_blocks) * block_size >= 0x10000 &&
              std::size(folded_blocks) * block_size >= 0x10000);

/// Whether a character below U+10000 is mapped to itself.
inline bool is_unchanged(const case_table& table, std::uint32_t code_point) {
  const std::uint32_t block = table.blocks[code_point / block_size];
  return block == 0 || table.delta_indexes[block * block_size + code_point % block_size] == 0;
}

struct mapped_characters {
  std::array<std::uint32_t, longest_case_mapping> text;
  std::size_t count;
};

/// What `simple_mapping` gives for a character that is mapped to several.
inline constexpr std::uint32_t several = 0xFFFFFFFF;

inline std::uint32_t simple_mapping(const case_table& table, std::uint32_t code_point) {
  if (code_point >= table.blocks.size() * block_size) return code_point;
  const std::uint32_t block = table.blocks[code_point / block_size];
  const std::uint8_t index = table.delta_indexes[block * block_size + code_point % block_size];
  return index == special ? several : code_point + static_cast<std::uint32_t>(deltas[index]);
}

/// REQUIRES: `simple_mapping` gives `several`.
inline mapped_characters special_case_mapping(const case_table& table, std::uint32_t code_point) {
  const auto found = std::ranges::lower_bound(table.specials, code_point, {}, &special_mapping::from);
  return {found->to, found->to[2] == 0 ? std::size_t{2} : std::size_t{3}};
}

inline mapped_characters case_mapping(const case_table& table, std::uint32_t code_point) {
  const std::uint32_t mapped = simple_mapping(table, code_point);
  return mapped == several ? special_case_mapping(table, code_point) : mapped_characters{{mapped}, 1};
}

}  // namespace ORVA_NAMESPACE::strings::_private::unicode_case
