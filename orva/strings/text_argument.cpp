#include "orva/strings/text_argument.hpp"

#include "orva/internal/transforms/transforms.hpp"

namespace ORVA_NAMESPACE::strings::_private {

template <code_unit To, code_unit From>
basic_ustring<To> converted(std::basic_string_view<From> text) {
  return internal::transforms::convert<To>(text);
}

template ustring8 converted(ustring16::view);
template ustring8 converted(ustring32::view);
template ustring16 converted(ustring8::view);
template ustring16 converted(ustring32::view);
template ustring32 converted(ustring8::view);
template ustring32 converted(ustring16::view);

}  // namespace ORVA_NAMESPACE::strings::_private
