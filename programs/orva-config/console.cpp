#include "console.hpp"

namespace orva_config {

using orva::diagnostics::finding;
using orva::diagnostics::report;

orva::diagnostics::text_options console::options_for(const std::ostream& stream) const {
  orva::diagnostics::text_options options;
  options.colour = !as_json_ && orva::diagnostics::shows_colour(stream);
  options.sentence = [this](const finding& found) { return words_.sentence(found); };
  return options;
}

void console::write(const report& found) {
  const auto options = options_for(std::cout);
  as_json_ ? orva::diagnostics::write_json(std::cout, found, options)
           : orva::diagnostics::write_text(std::cout, found, options);
}

void console::complain(const report& found) {
  const auto options = options_for(std::cerr);
  as_json_ ? orva::diagnostics::write_json(std::cerr, found, options)
           : orva::diagnostics::write_text(std::cerr, found, options);
}

void console::complain(const finding& found) {
  report one;
  one.add(found);
  complain(one);
}

}  // namespace orva_config
