// The texts of the library. Each has a message in each catalog of orva/config/messages; a test holds them
// together.
#include "orva/config/text_lookup.hpp"

namespace ORVA_NAMESPACE::config {

namespace {

constexpr known_text texts[] = {
    {"help.arguments", "Arguments:"},
    {"help.at_least", "at least {min}"},
    {"help.at_most", "at most {max}"},
    {"help.command", "COMMAND"},
    {"help.commands", "Commands:"},
    {"help.default", "default: {value}"},
    {"help.deprecated", "deprecated, use {name}"},
    {"help.environment", "environment: {name}"},
    {"help.examples", "Examples:"},
    {"help.general_options", "General options:"},
    {"help.group", "{name}:"},
    {"help.key", "key: {key}"},
    {"help.man_commands", "COMMANDS"},
    {"help.man_description", "DESCRIPTION"},
    {"help.man_environment", "ENVIRONMENT"},
    {"help.man_examples", "EXAMPLES"},
    {"help.man_file", "CONFIGURATION FILE"},
    {"help.man_file_text", "A configuration file has settings under their keys: key = value."},
    {"help.man_name", "NAME"},
    {"help.man_options", "OPTIONS"},
    {"help.man_synopsis", "SYNOPSIS"},
    {"help.man_variable", "Sets {name}."},
    {"help.more", "Help for a command: {command}"},
    {"help.one_of", "one of: {words}"},
    {"help.options", "Options:"},
    {"help.range", "{min} to {max}"},
    {"help.repeated", "may be repeated"},
    {"help.required", "required"},
    {"help.sample", "Settings of {name}. To set one, remove the # in front of it."},
    {"help.show_help", "Shows this help."},
    {"help.show_version", "Shows the version."},
    {"help.usage", "Usage: {command}"},
    {"help.usage_command", "COMMAND [ARGUMENT]..."},
    {"help.usage_options", "[OPTION]..."},
    {"help.value_choice", "WORD"},
    {"help.value_duration", "DURATION"},
    {"help.value_integer", "NUMBER"},
    {"help.value_number", "NUMBER"},
    {"help.value_path", "FILE"},
    {"help.value_size", "SIZE"},
    {"help.value_text", "TEXT"},
    {"help.without_option", "Settings without an option:"},
};

}  // namespace

std::span<const known_text> known_texts() noexcept { return texts; }

}  // namespace ORVA_NAMESPACE::config
