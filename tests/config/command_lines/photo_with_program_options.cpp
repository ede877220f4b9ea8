// `photo`, with Boost.Program_options, as its manual shows it. It has no ranges and choices: notifiers check
// them.
#include <boost/program_options.hpp>
#include <iostream>

#include "tests/config/command_lines/photo_values.hpp"

namespace {

namespace po = boost::program_options;

void check_threads(int threads) {
  if (threads >= 1 && threads <= 64) return;
  throw po::validation_error(po::validation_error::invalid_option_value, "threads", std::to_string(threads));
}

void check_mode(const std::string& mode) {
  if (mode == "fast" || mode == "small") return;
  throw po::validation_error(po::validation_error::invalid_option_value, "mode", mode);
}

po::options_description declared(photo::values& read) {
  po::options_description visible("Shows pictures.");
  visible.add_options()("help,h", "Shows this help.")("version", "Shows the version.")(
      "threads,t", po::value(&read.threads)->notifier(check_threads), "Number of threads.")(
      "verbose,v", po::bool_switch(&read.verbose), "Shows more.")("all,a", po::bool_switch(&read.all),
                                                                  "Shows hidden files.")(
      "colour", po::value(&read.colour)->implicit_value(true), "Shows colours.")(
      "shift,s", po::value(&read.shift), "Moves the picture.")("zoom,z", po::value(&read.zoom), "Scale.")(
      "mode,m", po::value(&read.mode)->notifier(check_mode), "How to scale.")(
      "output,o", po::value(&read.output), "Folder for copies.")(
      "title", po::value(&read.title), "Title of the window.")("tags", po::value(&read.tags)->composing(),
                                                               "Pictures with these tags.");
  return visible;
}

void parse(int argc, char** argv) {
  photo::values read;
  const po::options_description visible = declared(read);
  po::options_description hidden;
  hidden.add_options()("files", po::value(&read.files)->required());
  po::options_description all;
  all.add(visible).add(hidden);
  po::positional_options_description positional;
  positional.add("files", -1);

  po::variables_map given;
  po::store(po::command_line_parser(argc, argv).options(all).positional(positional).run(), given);
  if (given.count("help") != 0) {
    std::cout << visible;
  } else if (given.count("version") != 0) {
    std::cout << "photo 1.0\n";
  } else {
    po::notify(given);
    photo::write(std::cout, read);
  }
}

}  // namespace

int main(int argc, char** argv) {
  try {
    parse(argc, argv);
  } catch (const po::error& wrong) {
    std::cerr << wrong.what() << '\n';
    return 2;
  }
}
