#include "orva/serialization/serialize_binary_buf.hpp"

#include "orva/generic/abilities/alloc_detection_ability.hpp"

namespace ORVA_NAMESPACE::serialization {

using generic::abilities::create_dynamic;

serialize_binary_buf::~serialize_binary_buf() = default;

serialize_binary_buf* serialize_binary_buf::read_buffer() const {
  const auto bytes = read_bytes();
  return bytes ? create_dynamic<serialize_binary_buf>(std::string(*bytes)) : nullptr;
}

serialize_binary_buf* serialize_binary_buf::create() const { return create_dynamic<serialize_binary_buf>(); }

serialize_binary_buf* serialize_binary_buf::clone() const {
  return create_dynamic<serialize_binary_buf>(*this);
}

}  // namespace ORVA_NAMESPACE::serialization
