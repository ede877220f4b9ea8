// The scripts for bash and zsh, which share all but their main functions: these parts are written in what
// both languages have in common.
#include "orva/config/internal/completion_model.hpp"
#include "orva/config/internal/script_text.hpp"

namespace ORVA_NAMESPACE::config::_private {

namespace {

constexpr std::string_view shared_functions = R"(
# Reads a word before the one to complete.
FUNCTION_read() {
  if [[ $takes != nothing ]]; then
    takes=nothing
  elif [[ -z $ended && $1 == -- ]]; then
    ended=1
  elif [[ -z $ended && $1 == --*=* ]]; then
    :
  elif [[ -z $ended && $1 == --* ]]; then
    FUNCTION_option "$1"
  elif [[ -z $ended && $1 == -?* ]]; then
    FUNCTION_letters "$1"
  else
    FUNCTION_word "$1"
  fi
}

# Short options in one word. The value of the last may be attached, or be the next word.
FUNCTION_letters() {
  local i
  for ((i = 1; i < ${#1}; ++i)); do
    FUNCTION_option "-${1:$i:1}"
    [[ $takes == nothing ]] && continue
    ((i + 1 < ${#1})) && takes=nothing
    return
  done
}

# What the last word may be.
FUNCTION_find() {
  if [[ $takes != nothing ]]; then
    :
  elif [[ -z $ended && $1 == --*=* ]]; then
    prefix=${1%%=*}=
    FUNCTION_option "${1%%=*}"
  elif [[ -z $ended && $1 == -* ]]; then
    FUNCTION_offered
  else
    FUNCTION_argument
  fi
}
)";

constexpr std::string_view bash_main = R"(
FUNCTION() {
  local scope=0 takes=nothing ended= number=0 prefix= values=() candidates=()
  local line=() rest=${COMP_LINE#*"${COMP_WORDS[0]}"} i
  # COMP_WORDS is split at = and : too. Words that no blank separates are one.
  for ((i = 1; i <= COMP_CWORD; ++i)); do
    if [[ ${#line[@]} -eq 0 || $rest == [[:space:]]* ]]; then
      line+=("${COMP_WORDS[i]}")
    else
      line[${#line[@]} - 1]+=${COMP_WORDS[i]}
    fi
    rest=${rest#"${rest%%[![:space:]]*}"}
    rest=${rest#"${COMP_WORDS[i]}"}
  done
  for ((i = 0; i < ${#line[@]} - 1; ++i)); do
    FUNCTION_read "${line[i]}"
  done
  local word=${line[${#line[@]} - 1]} last=${COMP_WORDS[COMP_CWORD]}
  FUNCTION_find "$word"
  COMPREPLY=()
  if [[ $takes == file ]]; then
    compopt -o default
    return
  fi
  # What stays of the word: the shell replaces the part after the last = or :.
  [[ $last =~ ^[=:]+$ ]] && last=
  local kept=${word%"$last"} each quoted
  for each in "${values[@]}"; do
    candidates+=("$prefix$each")
  done
  for each in "${candidates[@]}"; do
    printf -v quoted %q "$each"
    if [[ $each == "$word"* || $quoted == "$word"* ]]; then
      COMPREPLY+=("${quoted#"$kept"}")
    fi
  done
}

complete -F FUNCTION -- )";

constexpr std::string_view zsh_main = R"(
FUNCTION() {
  local scope=0 takes=nothing ended= number=0 prefix= i
  local -a values candidates kind
  for ((i = 2; i < CURRENT; ++i)); do
    FUNCTION_read "${(Q)words[i]}"
  done
  FUNCTION_find "$PREFIX"
  [[ -n $prefix ]] && compset -P 1 '*='
  case $takes in
    file) _files ;;
    word) compadd -a values ;;
    *)
      [[ $PREFIX == -* ]] && kind=(-o)
      (($#candidates)) && _describe $kind argument candidates
      ;;
  esac
}

if [[ $zsh_eval_context[-1] == (loadautofunc|shfunc) ]]; then
  FUNCTION "$@"
else
  compdef FUNCTION )";

/// Assignments: what an option or an argument takes.
void add_value(script_text& script, const completed_value& value) {
  script.add("takes=").add(name_of(value.kind));
  if (value.kind != completed_value::type::word) return;
  script.add(" values=(");
  for (std::size_t i = 0; i < value.words.size(); ++i) {
    if (i != 0) script.add(" ");
    script.add_quoted(value.words[i]);
  }
  script.add(")");
}

class posix_script {
 public:
  /// A candidate is a name, and after a colon its help where the shell shows it.
  posix_script(const completed_program& program, bool with_help)
      : program_(program), with_help_(with_help), script_(program.function, posix_quoted) {}

  std::string write(std::string_view head, std::string_view main, std::string_view end) {
    script_.add_plain(head);
    add_option();
    add_offered();
    add_word();
    add_argument();
    add_around();
    script_.add(shared_functions).add(main).add_quoted(program_.name).add(end);
    return script_.finish();
  }

 private:
  void add_option() {
    script_.add("\n# Sets what comes after an option.\nFUNCTION_option() {\n  local scope=$scope around\n")
        .add("  takes=nothing\n  while [[ -n $scope ]]; do\n    case \"$scope $1\" in\n");
    for (std::size_t scope = 0; scope < program_.scopes.size(); ++scope) {
      for (const completed_option& option : program_.scopes[scope].options) add_option(scope, option);
    }
    script_.add("    esac\n    FUNCTION_around\n    scope=$around\n  done\n}\n");
  }

  void add_option(std::size_t scope, const completed_option& option) {
    script_.add("      ");
    for (std::size_t i = 0; i < option.names.size(); ++i) {
      if (i != 0) script_.add(" | ");
      script_.add_quoted(key_of(scope, option.names[i]));
    }
    script_.add(") ");
    add_value(script_, option.value);
    script_.add("; return ;;\n");
  }

  void add_offered() {
    script_.add("\n# Adds the options.\nFUNCTION_offered() {\n  local scope=$scope around\n")
        .add("  while [[ -n $scope ]]; do\n    case $scope in\n");
    for (std::size_t number = 0; number < program_.scopes.size(); ++number) {
      const completed_scope& scope = program_.scopes[number];
      if (scope.offered_options.empty()) continue;
      script_.add("      ").add(std::to_string(number)).add(") candidates+=(");
      for (std::size_t i = 0; i < scope.offered_options.size(); ++i) {
        if (i != 0) script_.add(" ");
        add_candidate(scope.offered_options[i]);
      }
      script_.add(") ;;\n");
    }
    script_.add("    esac\n    FUNCTION_around\n    scope=$around\n  done\n}\n");
  }

  void add_word() {
    script_.add("\n# Reads a command, or an argument.\nFUNCTION_word() {\n  case \"$scope $1\" in\n");
    for (std::size_t number = 0; number < program_.scopes.size(); ++number) {
      for (const auto& [command, inner] : program_.scopes[number].commands) {
        script_.add("    ").add_quoted(key_of(number, command.name));
        script_.add(") scope=").add(std::to_string(inner)).add(" number=0 ;;\n");
      }
    }
    script_.add("    *) number=$((number + 1)) ;;\n  esac\n}\n");
  }

  void add_argument() {
    script_.add("\n# Sets what an argument may be.\nFUNCTION_argument() {\n  case \"$scope $number\" in\n");
    for (std::size_t number = 0; number < program_.scopes.size(); ++number) {
      const completed_scope& scope = program_.scopes[number];
      if (!scope.commands.empty()) add_commands(number, scope);
      for (std::size_t i = 0; i < scope.arguments.size(); ++i) {
        const bool takes_rest = scope.ends_in_list && i + 1 == scope.arguments.size();
        script_.add("    '").add(std::to_string(number)).add(" ");
        script_.add(takes_rest ? "'*) " : std::to_string(i) + "') ");
        add_value(script_, scope.arguments[i]);
        script_.add(" ;;\n");
      }
    }
    script_.add("  esac\n}\n");
  }

  void add_commands(std::size_t number, const completed_scope& scope) {
    script_.add("    '").add(std::to_string(number)).add(" '*) candidates=(");
    for (std::size_t i = 0; i < scope.commands.size(); ++i) {
      if (i != 0) script_.add(" ");
      add_candidate(scope.commands[i].first);
    }
    script_.add(") ;;\n");
  }

  void add_candidate(const offered_name& offered) {
    if (!with_help_) {
      script_.add_quoted(offered.name);
      return;
    }
    std::string text;
    for (const char unit : offered.name) {
      if (unit == ':' || unit == '\\') text += '\\';
      text += unit;
    }
    if (!offered.help.empty()) text += ':' + offered.help;
    script_.add_quoted(text);
  }

  void add_around() {
    script_.add("\n# The command around another one.\nFUNCTION_around() {\n  around=\n  case $scope in\n");
    for (std::size_t number = 1; number < program_.scopes.size(); ++number) {
      script_.add("    ").add(std::to_string(number)).add(") around=");
      script_.add(std::to_string(program_.scopes[number].parent)).add(" ;;\n");
    }
    script_.add("  esac\n}\n");
  }

  const completed_program& program_;
  bool with_help_;
  script_text script_;
};

}  // namespace

std::string bash_script(const completed_program& program) {
  return posix_script(program, false).write("# Completions for bash.\n", bash_main, "\n");
}

std::string zsh_script(const completed_program& program) {
  // The first line has no quotes.
  const std::string head = is_plain_name(program.name) ? "#compdef " + program.name + "\n\n" : "";
  return posix_script(program, true).write(head + "# Completions for zsh.\n", zsh_main, "\nfi\n");
}

}  // namespace ORVA_NAMESPACE::config::_private
