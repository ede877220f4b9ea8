/// The text of `describe`, written piece by piece, so that it can be shown where there is no memory left.
///
/// Internal: not installed.
#pragma once

#include <exception>
#include <string_view>

#include "orva/version.hpp"

namespace ORVA_NAMESPACE::exceptions::_private {

/// Takes the pieces of a text in order.
class text_sink {
 public:
  text_sink() = default;
  text_sink(const text_sink&) = delete;
  text_sink& operator=(const text_sink&) = delete;
  virtual void append(std::string_view text) = 0;

 protected:
  ~text_sink() = default;
};

/// Allocates nothing by itself. The runtime keeps memory for exceptions that are raised again; where that is
/// used up too, it calls `std::terminate`.
void append_description(text_sink& to, const std::exception_ptr& failure);

}  // namespace ORVA_NAMESPACE::exceptions::_private
