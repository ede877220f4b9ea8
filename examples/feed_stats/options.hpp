/// The command line.
#pragma once

#include "orva/orva.hpp"

namespace feed_stats {

/// The options and arguments that there are. With "generate" a feed is written, and without it is read.
orva::config::declaration declared();

}  // namespace feed_stats
