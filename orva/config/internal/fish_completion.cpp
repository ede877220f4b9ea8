// The script for fish. Its functions are those of the scripts for bash and zsh; they print what those set.
#include "orva/config/internal/completion_model.hpp"
#include "orva/config/internal/script_text.hpp"

namespace ORVA_NAMESPACE::config::_private {

namespace {

constexpr std::string_view fish_main = R"(
# Short options in one word. The value of the last may be attached, or be the next word.
function FUNCTION_letters
    set -l letters (string split '' -- (string sub -s 2 -- $argv[2]))
    for i in (seq (count $letters))
        set -l takes (FUNCTION_option $argv[1] -$letters[$i])
        test $takes[1] = nothing; and continue
        test $i -lt (count $letters); and set takes nothing
        printf '%s\n' $takes
        return
    end
    echo nothing
end

function FUNCTION
    set -l scope 0
    set -l takes nothing
    set -l ended
    set -l number 0
    set -l tokens (commandline -opc)
    for token in $tokens[2..-1]
        if test $takes[1] != nothing
            set takes nothing
        else if test -z "$ended" -a "$token" = --
            set ended 1
        else if test -z "$ended"; and string match -qr -- '^--.*=' $token
            continue
        else if test -z "$ended"; and string match -qr -- '^--' $token
            set takes (FUNCTION_option $scope $token)
        else if test -z "$ended"; and string match -qr -- '^-.' $token
            set takes (FUNCTION_letters $scope $token)
        else
            set -l inner (FUNCTION_word $scope $token)
            if test -n "$inner"
                set scope $inner
                set number 0
            else
                set number (math $number + 1)
            end
        end
    end
    set -l word (commandline -ct)
    set -l prefix ''
    if test $takes[1] != nothing
        # The value of the option before.
    else if test -z "$ended"; and string match -qr -- '^--.*=' $word
        set prefix (string replace -r -- '=.*' '=' $word)
        set takes (FUNCTION_option $scope (string replace -r -- '=.*' '' $word))
    else if test -z "$ended"; and string match -qr -- '^-' $word
        FUNCTION_offered $scope
        return
    else
        FUNCTION_commands $scope
        set takes (FUNCTION_argument $scope $number)
    end
    if test $takes[1] = word
        for value in $takes[2..-1]
            echo -- $prefix$value
        end
    else if test $takes[1] = file
        for path in (__fish_complete_path (string sub -s (math (string length -- "$prefix") + 1) -- $word))
            echo -- $prefix$path
        end
    end
end

)";

void add_value(script_text& script, const completed_value& value) {
  script.add("printf '%s\\n' ").add(name_of(value.kind));
  for (const std::string& word : value.words) script.add(" ").add_quoted(word);
  script.add("\n");
}

class fish_writer {
 public:
  explicit fish_writer(const completed_program& program)
      : program_(program), script_(program.function, fish_quoted) {}

  std::string write() {
    script_.add("# Completions for fish.\n");
    add_option();
    add_offered();
    add_word();
    add_commands();
    add_argument();
    add_around();
    script_.add(fish_main);
    // This argument is read a second time, as a word of a command line.
    const std::string name = is_plain_name(program_.name) ? program_.name : fish_quoted(program_.name);
    script_.add("complete -c ").add_quoted(name).add(" -e\n");
    script_.add("complete -c ").add_quoted(name).add(" -f -a '(FUNCTION)'\n");
    return script_.finish();
  }

 private:
  void add_option() {
    script_.add("\n# What comes after an option.\nfunction FUNCTION_option\n    set -l scope $argv[1]\n");
    script_.add("    while test -n \"$scope\"\n        set -l key \"$scope $argv[2]\"\n");
    for (std::size_t number = 0; number < program_.scopes.size(); ++number) {
      for (const completed_option& option : program_.scopes[number].options) {
        script_.add("        if contains -- $key");
        for (const std::string& name : option.names) script_.add(" ").add_quoted(key_of(number, name));
        script_.add("\n            ");
        add_value(script_, option.value);
        script_.add("            return\n        end\n");
      }
    }
    script_.add("        set scope (FUNCTION_around $scope)\n    end\n    echo nothing\nend\n");
  }

  void add_offered() {
    script_.add("\n# The options.\nfunction FUNCTION_offered\n    set -l scope $argv[1]\n");
    script_.add("    while test -n \"$scope\"\n        switch $scope\n");
    for (std::size_t number = 0; number < program_.scopes.size(); ++number) {
      const auto& offered = program_.scopes[number].offered_options;
      if (offered.empty()) continue;
      script_.add("            case ").add(std::to_string(number)).add("\n");
      for (const offered_name& each : offered) add_offered_name("                ", each);
    }
    script_.add("        end\n        set scope (FUNCTION_around $scope)\n    end\nend\n");
  }

  void add_offered_name(std::string_view indentation, const offered_name& offered) {
    script_.add(indentation).add("printf '%s\\t%s\\n' ").add_quoted(offered.name).add(" ");
    script_.add_quoted(offered.help).add("\n");
  }

  void add_word() {
    script_.add(
        "\n# The number of a command.\nfunction FUNCTION_word\n    set -l key \"$argv[1] $argv[2]\"\n");
    for (std::size_t number = 0; number < program_.scopes.size(); ++number) {
      for (const auto& [command, inner] : program_.scopes[number].commands) {
        script_.add("    test \"$key\" = ").add_quoted(key_of(number, command.name));
        script_.add("; and echo ").add(std::to_string(inner)).add("\n");
      }
    }
    script_.add("end\n");
  }

  void add_commands() {
    script_.add("\n# The commands.\nfunction FUNCTION_commands\n    switch $argv[1]\n");
    for (std::size_t number = 0; number < program_.scopes.size(); ++number) {
      if (program_.scopes[number].commands.empty()) continue;
      script_.add("        case ").add(std::to_string(number)).add("\n");
      for (const auto& [command, inner] : program_.scopes[number].commands) {
        add_offered_name("            ", command);
      }
    }
    script_.add("    end\nend\n");
  }

  void add_argument() {
    script_.add(
        "\n# What an argument may be.\nfunction FUNCTION_argument\n    switch \"$argv[1] $argv[2]\"\n");
    for (std::size_t number = 0; number < program_.scopes.size(); ++number) {
      const completed_scope& scope = program_.scopes[number];
      for (std::size_t i = 0; i < scope.arguments.size(); ++i) {
        const bool takes_rest = scope.ends_in_list && i + 1 == scope.arguments.size();
        script_.add("        case '").add(std::to_string(number)).add(" ");
        script_.add(takes_rest ? "*" : std::to_string(i)).add("'\n            ");
        add_value(script_, scope.arguments[i]);
      }
    }
    script_.add("        case '*'\n            echo nothing\n    end\nend\n");
  }

  void add_around() {
    script_.add("\n# The command around another one.\nfunction FUNCTION_around\n    switch $argv[1]\n");
    for (std::size_t number = 1; number < program_.scopes.size(); ++number) {
      script_.add("        case ").add(std::to_string(number)).add("\n            echo ");
      script_.add(std::to_string(program_.scopes[number].parent)).add("\n");
    }
    script_.add("    end\nend\n");
  }

  const completed_program& program_;
  script_text script_;
};

}  // namespace

std::string fish_script(const completed_program& program) { return fish_writer(program).write(); }

}  // namespace ORVA_NAMESPACE::config::_private
