#include <iostream>
#include <string>
#include <utility>

#include "orva/orva.hpp"

using namespace orva;

// Exceptions: an application can raise the library's classes and classes derived from them.
class queue_full : public exceptions::full_error {
 public:
  using exceptions::full_error::full_error;
};

void push(int job, int limit) {
  if (job >= limit) throw queue_full("no room for job " + std::to_string(job), 21, "app/queue", "app::push");
}

// Counted objects: the count is in the object, and the last pointer deletes the object.
class document : public generic::abilities::clone_ability,
                 public generic::abilities::reference_count_pointer_ability<document> {
 public:
  explicit document(std::string title) : title_(std::move(title)) {}
  ~document() override { std::cout << "closed: " << title_ << '\n'; }
  document* clone() const { return generic::abilities::create_dynamic<document>(title_ + " (copy)"); }
  const std::string& title() const { return title_; }

 private:
  std::string title_;
};

using document_pointer = memory::pointers::rc_pointer<document>;

// Delegates: they call a member function of an object ...
struct editor {
  void show(const strings::ustring8& text) { std::cout << name << " shows " << text << '\n'; }
  std::string name;
};

// ... or anything else that can be called: a lambda, or a plain function.
void report(const char* text, const char*, unsigned int&) {
  std::cout << "assertion failed: " << text << '\n';
}

int main() {
  exceptions::install_terminate_handler();  // what nothing catches is described on standard error
  try {
    push(8, 8);
  } catch (const exceptions::exception& failure) {
    const auto& place = failure.error_state();
    std::cout << failure.message() << " [" << place.function() << ", " << place.file() << ':' << place.line()
              << "]\n";
    std::cout << exceptions::describe() << '\n';
  }

  document_pointer first = generic::abilities::create_dynamic<document>("report");
  document_pointer second = first;  // two pointers, one document
  document_pointer third = first->clone();
  first = nullptr;
  std::cout << "still open: " << second->title() << ", " << third->title() << '\n';
  second = nullptr;

  editor window{"window"};
  functor::delegate_t<void(const strings::ustring8&)> on_change;
  if (!on_change) std::cout << "no listener\n";
  on_change = functor::member_function_t(&window, &editor::show);
  on_change("a change");
  int changes = 0;
  on_change = [&changes](const strings::ustring8&) { ++changes; };
  on_change("another change");
  std::cout << changes << " counted\n";

  const int pages = 0;
  ORVA_ASSERT(pages > 0);  // no hook: silent
  debug::set_assert_hook(report);
  ORVA_ASSERT(pages > 0);
  ORVA_CONTEXT_ASSERT(pages > 0, "%d pages in %s", pages, third->title().c_str());
  debug::set_assert_hook(types::nil);
}
