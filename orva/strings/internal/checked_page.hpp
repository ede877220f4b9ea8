/// What the decoders and the encoders of code pages share.
///
/// Internal: not installed.
#pragma once

#include "orva/strings/code_page.hpp"
#include "orva/strings/conversion_loss.hpp"
#include "orva/strings/internal/system_type.hpp"

namespace ORVA_NAMESPACE::strings::_private {

struct open_code_page : code_page {
  explicit open_code_page(const code_page& page) : code_page(page) {}
  using code_page::to_system_type;
};

/// Raises for an invalid page what its conversions raise.
inline int required_system_type(const code_page& page) {
  return open_code_page(page).to_system_type(page.type());
}

/// Counts a loss. `make` is called for those that the list takes.
template <typename Loss, typename Make>
void add_loss(loss_list<Loss>& losses, Make make) {
  ++losses.count;
  if (losses.first.size() < max_losses) losses.first.push_back(make());
}

}  // namespace ORVA_NAMESPACE::strings::_private
