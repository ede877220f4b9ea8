/// The names of types, which the C++ runtime knows.
///
///     type_name(typeid(std::runtime_error)).view()   =>  "std::runtime_error"
///
/// Internal: not installed.
#pragma once

#include <memory>
#include <string_view>
#include <typeinfo>

#include "orva/version.hpp"

namespace ORVA_NAMESPACE::platform {

/// The name of a type as source code has it. Where there is no memory for that, it is the name that the
/// linker sees.
class type_name {
 public:
  explicit type_name(const std::type_info& type) noexcept;

  /// Valid as long as this object.
  std::string_view view() const noexcept { return readable_ != nullptr ? readable_.get() : linker_name_; }

 private:
  struct free_memory {
    void operator()(char* memory) const noexcept;
  };

  const char* linker_name_;
  std::unique_ptr<char, free_memory> readable_;
};

/// The type of the object that was thrown, in a handler of it.
///
/// REQUIRES: the thread handles an exception of C++.
const std::type_info& handled_type() noexcept;

}  // namespace ORVA_NAMESPACE::platform
