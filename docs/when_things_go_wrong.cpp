#include <algorithm>
#include <iostream>
#include <orva/orva.hpp>

namespace convert = orva::generic::convert;
using namespace orva::diagnostics;
using orva::generic::argument;

const std::string_view orders =
    "2026-11-22;3;tea\n"
    "2026-02-30;12;coffee\n"
    "2026-11-23;12x;cocoa\n"
    "2026-11-24;300;milk\n"
    "2026-11-24;0;water\n"
    "2026-11-25;7;caf\xE9\n";

/// Reads a list of orders. Every line is taken as a whole and exactly, or the report says what is wrong with
/// it.
class order_reader {
 public:
  explicit order_reader(std::string_view text) : text_(text), lines_(text) {}

  report read() {
    for (std::size_t number = 1; number < lines_.size(); ++number) read_line(lines_.line(number));
    return found_;
  }

 private:
  void read_line(std::string_view line) {
    const std::string_view date = next_field(line);
    const auto day = orva::system::date_time::read_date(date);
    if (day.error != orva::system::date_time::iso8601_error::none) return add(describe(day, date), date);
    const std::string_view count = next_field(line);
    const auto cups = convert::read_number<signed char>(count);
    if (cups.error != convert::number_error::none || cups.length != count.size()) {
      return add(describe(cups, count), count);
    }
    if (cups.value == 0) {
      return add({severity::warning, "orders.nothing", {}, {}, argument("text", "Nothing is ordered.")},
                 count);
    }
    if (const auto bad = orva::strings::first_malformed(line)) return add(describe(*bad, line), line);
    std::cout << "order: " << int{cups.value} << ' ' << line << '\n';
  }

  /// Cuts the text up to the next semicolon off the line.
  static std::string_view next_field(std::string_view& line) {
    const std::string_view field = line.substr(0, line.find(';'));
    line.remove_prefix(std::min(field.size() + 1, line.size()));
    return field;
  }

  /// The place of the finding is in a part of the text.
  void add(finding found, std::string_view part) {
    found.file = "orders.txt";
    found.at =
        place_in_whole(lines_.place_of(static_cast<std::size_t>(part.data() - text_.data())), found.at);
    found_.add(found);
  }

  std::string_view text_;
  line_index lines_;
  report found_;
};

void read_orders() {
  const report found = order_reader(orders).read();
  text_options options;
  options.colour = shows_colour(std::cout);
  options.source = [](const auto& file) { return file == "orders.txt" ? orders : std::string_view(); };
  write_text(std::cout, found, options);
  std::cout << found.count(severity::error) << " errors\n\n";
}

void read_menu() {
  const std::string_view menu = "<?xml version=\"1.0\"?>\n<menu>\n  <dish price=\"7>soup</dish>\n</menu>\n";
  const auto error = orva::parser::xml_parser().parse(std::string(menu));
  const finding found = orva::parser::describe(error, menu, "menu.xml");
  std::cout << found << "\nas JSON: ";
  write_json(std::cout, found);
  std::cout << '\n';
}

void read_damaged_data() {
  std::string stored = orva::serialization::write_frame("example.orders", 1, "three cups of tea");
  stored[stored.size() / 2] ^= 1;
  const auto read = orva::serialization::read_frame(stored);
  std::cout << describe(read.failure, "orders.frame") << '\n';
}

int main() {
  read_orders();
  read_menu();
  read_damaged_data();
}
