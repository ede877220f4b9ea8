/// The commands of the program. Each returns the exit code.
#pragma once

#include "console.hpp"
#include "orva/config/settings.hpp"

namespace orva_config {

exit_code check(const orva::config::settings& values, console& shown);
exit_code get(const orva::config::settings& values, console& shown);
exit_code set(const orva::config::settings& values, console& shown);
exit_code unset(const orva::config::settings& values, console& shown);
exit_code list(const orva::config::settings& values, console& shown);
exit_code explain(const orva::config::settings& values, console& shown);
exit_code format(const orva::config::settings& values, console& shown);

}  // namespace orva_config
