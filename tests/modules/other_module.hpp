/// A module that the test program uses, as an application uses a loadable module: built on its own, with all
/// names hidden that it does not export.
#pragma once

#include <string>

#include "orva/debug/assert.hpp"
#include "orva/functor/delegate.hpp"
#include "orva/generic/abilities/reference_count_pointer_ability.hpp"
#include "orva/memory/pointers/rc_pointer.hpp"
#include "orva/types/nil.hpp"
#include "other_module_export.hpp"

namespace other_module {

/// Raises the class of the library that has this name.
OTHER_MODULE_EXPORT void raise(const std::string& class_name);

OTHER_MODULE_EXPORT const ORVA_NAMESPACE::types::nil_t* address_of_nil();

/// Fails an assertion.
OTHER_MODULE_EXPORT void assert_something();

struct counted : ORVA_NAMESPACE::generic::abilities::reference_count_pointer_ability<counted> {
  explicit counted(int& destroyed) : destroyed_(&destroyed) {}
  ~counted() { ++*destroyed_; }

 private:
  int* destroyed_;
};

OTHER_MODULE_EXPORT ORVA_NAMESPACE::memory::pointers::rc_pointer<counted> make_counted(int& destroyed);

/// `listen` is exported, not inline: hidden inline functions have another address in every module.
struct listener {
  OTHER_MODULE_EXPORT void listen(const std::string& text);
  std::string heard;
};

using text_delegate = ORVA_NAMESPACE::functor::delegate_t<void(const std::string&)>;
OTHER_MODULE_EXPORT text_delegate listen_with(listener& ear);

}  // namespace other_module
