/// Any bytes as the texts of a catalog: they stay texts in help, completions, manual page and sample file.
/// What is around them is the same as with the English texts.
#include <cstddef>
#include <cstdint>
#include <functional>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include "fuzz/config/fuzz_input.hpp"
#include "fuzz/require.hpp"
#include "orva/config/completion_script.hpp"
#include "orva/config/help_text.hpp"
#include "orva/config/man_page.hpp"
#include "orva/config/sample_file.hpp"
#include "tests/config/declared_programs.hpp"

namespace {

using namespace orva_fuzz;
using namespace ORVA_NAMESPACE::config;
using ORVA_NAMESPACE::strings::ustring8;

/// A text of the input for each name; zero bytes separate them.
text_lookup lookup_in(std::string_view input) {
  return [input](std::string_view name, std::string_view) {
    const std::size_t begin = std::hash<std::string_view>()(name) % (input.size() + 1);
    const std::string_view text = input.substr(begin);
    return ustring8(text.substr(0, text.find('\0')));
  };
}

void require_visible(std::string_view page) {
  require(page.ends_with('\n'));
  for (const char unit : page) {
    const auto byte = static_cast<unsigned char>(unit);
    require(byte >= 0x20 || byte == '\n');
    require(byte != 0x7F && byte != 0xFF);
  }
}

/// A script without what its quotes hold. A quote in a text is written '\'' by bash and zsh, \' by fish.
std::string without_quoted(std::string_view script, bool is_fish) {
  std::string rest;
  bool is_quoted = false;
  for (std::size_t i = 0; i < script.size(); ++i) {
    if (is_quoted && is_fish && script[i] == '\\') {
      ++i;
    } else if (is_quoted && !is_fish && script.substr(i).starts_with("'\\''")) {
      i += 3;
    } else if (script[i] == '\'') {
      is_quoted = !is_quoted;
      rest += '\'';
    } else if (!is_quoted) {
      rest += script[i];
    }
  }
  require(!is_quoted);
  return rest;
}

/// The keys and sections of a sample.
std::string without_comments(std::string_view sample) {
  std::string rest;
  while (!sample.empty()) {
    const std::string_view line = sample.substr(0, sample.find('\n') + 1);
    sample.remove_prefix(line.size());
    if (!line.starts_with("# ")) {
      rest += line;
    } else {
      require(line.find('"') == line.npos);
    }
  }
  return rest;
}

void require_roff_escape(std::string_view escape) {
  constexpr std::string_view known[] = {"\\&",   "\\:",   "\\-",   "\\ ",   "\\%",   "\\fB",  "\\fI", "\\fR",
                                        "\\(rs", "\\(aq", "\\(ga", "\\(ha", "\\(ti", "\\(dq", "\\[u"};
  for (const std::string_view each : known) {
    if (escape.starts_with(each)) return;
  }
  require(false);
}

void require_roff(std::string_view page) {
  constexpr std::string_view requests = ".TH.nh.ad.SH.SS.PP.TP";
  while (!page.empty()) {
    const std::string_view line = page.substr(0, page.find('\n'));
    page.remove_prefix(line.size() + 1);
    require(!line.empty() && line[0] != '\'' && line[0] != ' ');
    if (line[0] == '.') require(line.size() >= 3 && requests.find(line.substr(0, 3)) != requests.npos);
    for (std::size_t i = 0; i < line.size(); ++i) {
      require(line[i] >= ' ' && line[i] <= '~');
      if (line[i] == '\\') require_roff_escape(line.substr(i));
    }
  }
}

constexpr completion_shell shells[] = {completion_shell::bash, completion_shell::zsh, completion_shell::fish};

/// A declaration, and what is around its texts.
struct declared_pages {
  explicit declared_pages(declaration given, const char* command)
      : declared(std::move(given)), command(command) {
    for (const completion_shell shell : shells) scripts.push_back(script_around_texts(shell, {}));
    sample = without_comments(sample_file(declared));
  }

  std::string script_around_texts(completion_shell shell, const text_lookup& texts) const {
    return without_quoted(completion_script(declared, shell, texts), shell == completion_shell::fish);
  }

  declaration declared;
  const char* command;
  std::vector<std::string> scripts;
  std::string sample;
};

void write_all(const declared_pages& pages, std::string_view input) {
  const declaration& declared = pages.declared;
  const text_lookup texts = lookup_in(input);
  for (std::size_t i = 0; i < std::size(shells); ++i) {
    require(pages.script_around_texts(shells[i], texts) == pages.scripts[i]);
  }
  for (const std::size_t width : {std::size_t{0}, std::size_t{40}, std::size_t{100}}) {
    require_visible(help_text(declared, {.width = width, .command = pages.command, .texts = texts}));
  }
  require_roff(man_page(declared, {.texts = texts}));
  const std::string sample = sample_file(declared, texts);
  require_visible(sample);
  require(without_comments(sample) == pages.sample);
}

/// Each of the many texts can be nearly as long as the input.
constexpr std::size_t longest_texts = 512;

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > longest_texts) return 0;
  static const declared_pages viewer(orva_test::declared_viewer(), "");
  static const declared_pages tool(orva_test::declared_tool(), "remote.add");
  const std::string_view input = text_of(data, size);
  write_all(viewer, input);
  write_all(tool, input);
  return 0;
}
