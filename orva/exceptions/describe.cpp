#include "orva/exceptions/describe.hpp"

#include <charconv>
#include <string_view>
#include <utility>

#include "orva/exceptions/exception.hpp"
#include "orva/exceptions/internal/description.hpp"
#include "orva/platform/type_name.hpp"

namespace ORVA_NAMESPACE::exceptions {

namespace _private {

namespace {

/// The class that was thrown, without the one that `std::throw_with_nested` derives from it.
void append_type(text_sink& to) {
  const platform::type_name type(platform::handled_type());
  std::string_view name = type.view();
  constexpr std::string_view wrapper = "std::_Nested_exception<";
  if (name.starts_with(wrapper) && name.ends_with('>')) {
    name = name.substr(wrapper.size(), name.size() - wrapper.size() - 1);
    if (name.ends_with(' ')) name.remove_suffix(1);
  }
  to.append(name);
}

void append_type_and_message(text_sink& to, const char* message) {
  append_type(to);
  if (message == nullptr || *message == '\0') return;
  to.append(": ");
  to.append(message);
}

void append_line(text_sink& to, unsigned int line) {
  char digits[10];
  to.append({digits, std::to_chars(digits, digits + sizeof digits, line).ptr});
}

/// " [app::push, app/queue:21]". Applications may leave out each of the three.
void append_place(text_sink& to, const exception::state& place) {
  const std::string_view function = place.function(), file = place.file();
  const bool has_line = place.line() != 0;
  if (function.empty() && file.empty() && !has_line) return;
  to.append(" [");
  to.append(function);
  if (!function.empty() && (!file.empty() || has_line)) to.append(", ");
  to.append(file);
  if (has_line) {
    to.append(file.empty() ? "line " : ":");
    append_line(to, place.line());
  }
  to.append("]");
}

/// An application's own message may fail.
const char* message_of(const exception& caught) noexcept {
  try {
    return caught.message();
  } catch (...) {
    return "its message cannot be read";
  }
}

void append_text(text_sink& to, std::string_view text) {
  to.append("text: ");
  to.append(text);
}

void append_object(text_sink& to) {
  to.append("an object of type ");
  append_type(to);
}

template <typename Caught>
std::exception_ptr cause_of(const Caught& caught) noexcept {
  const auto* const nested = dynamic_cast<const std::nested_exception*>(&caught);
  return nested != nullptr ? nested->nested_ptr() : nullptr;
}

/// Describes one exception and returns its cause.
///
/// REQUIRES: described is not null.
std::exception_ptr append_one(text_sink& to, const std::exception_ptr& described) {
  try {
    std::rethrow_exception(described);
  } catch (const exception& caught) {
    append_type_and_message(to, message_of(caught));
    append_place(to, caught.error_state());
    return cause_of(caught);
  } catch (const std::exception& caught) {
    append_type_and_message(to, caught.what());
    return cause_of(caught);
  } catch (const std::nested_exception& caught) {
    if (const auto* const text = dynamic_cast<const std::string*>(&caught); text != nullptr) {
      append_text(to, *text);
    } else {
      append_object(to);
    }
    return caught.nested_ptr();
  } catch (const std::string& text) {
    append_text(to, text);
  } catch (const char* text) {
    append_text(to, text != nullptr ? text : "a null pointer");
  } catch (...) {
    append_object(to);
  }
  return nullptr;
}

class string_sink final : public text_sink {
 public:
  void append(std::string_view text) override { text_ += text; }
  std::string take() { return std::move(text_); }

 private:
  std::string text_;
};

}  // namespace

void append_description(text_sink& to, const std::exception_ptr& failure) {
  if (failure == nullptr) return to.append("no C++ exception");
  std::exception_ptr cause = append_one(to, failure);
  for (int count = 1; cause != nullptr; ++count) {
    to.append("\ncaused by ");
    if (count == max_described_exceptions) return to.append("more exceptions, which are not shown");
    cause = append_one(to, cause);
  }
}

}  // namespace _private

std::string describe(const std::exception_ptr& failure) {
  _private::string_sink text;
  _private::append_description(text, failure);
  return text.take();
}

}  // namespace ORVA_NAMESPACE::exceptions
