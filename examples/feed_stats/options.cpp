#include "options.hpp"

namespace feed_stats {

namespace config = orva::config;
using config::setting;

namespace {

constexpr std::int64_t max_number = 999'999'999;

}  // namespace

config::declaration declared() {
  config::declaration program("feed_stats");
  program.version(FEED_STATS_VERSION)
      .description(
          "Counts the records of a feed of any size, and passes over the damaged ones.\n\n"
          "Exits with 0 if the root of the feed was closed, with 1 if it was not or a file cannot be read or "
          "written, with 2 for a wrong command line.");
  program.add(setting("progress", config::flag())
                  .by_default(true)
                  .help("Shows on standard error how much of the feed has been read."));
  program.add(setting("generate", config::integer_between(0, max_number))
                  .value_name("MEGABYTES")
                  .help("Writes a feed of map data to FILE, the same for the same arguments."));
  program.add(setting("damage", config::integer_between(0, max_number))
                  .by_default(0)
                  .value_name("N")
                  .help("Damages one of N records of the feed that is written. 0 damages none."));
  program.add_positional(setting("file", config::file_path())
                             .required()
                             .value_name("FILE")
                             .help("An XML file whose root has records: map data, a product feed."));
  program.example("feed_stats planet.osm", "Counts the records of a feed.");
  program.example("feed_stats --generate 100 --damage 500000 planet.osm", "Writes a feed to try it with.");
  return program;
}

}  // namespace feed_stats
