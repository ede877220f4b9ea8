#include "orva/platform/type_name.hpp"

#include <cxxabi.h>

#include <cstdlib>

namespace ORVA_NAMESPACE::platform {

type_name::type_name(const std::type_info& type) noexcept : linker_name_(type.name()) {
  int status = 0;
  readable_.reset(abi::__cxa_demangle(linker_name_, nullptr, nullptr, &status));
}

void type_name::free_memory::operator()(char* memory) const noexcept { std::free(memory); }

const std::type_info& handled_type() noexcept { return *abi::__cxa_current_exception_type(); }

}  // namespace ORVA_NAMESPACE::platform
