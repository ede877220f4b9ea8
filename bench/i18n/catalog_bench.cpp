// Catalogs compared with their alternatives: an XML parser with a map, and gettext with printf.
#include <benchmark/benchmark.h>
#include <libintl.h>
#include <unistd.h>

#include <algorithm>
#include <clocale>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <map>
#include <pugixml.hpp>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/i18n/mo_file.hpp"
#include "orva/i18n/message_catalogs.hpp"

namespace {

namespace fs = std::filesystem;
using i18n_bench::mo_file;
using ORVA_NAMESPACE::generic::varg_list;
using ORVA_NAMESPACE::i18n::message_catalogs;
using ORVA_NAMESPACE::strings::ustring8;

constexpr unsigned message_count = 20000;

std::string name_of(unsigned i) {
  char name[64];
  std::snprintf(name, sizeof name, "settings.page.item_%05u_label", i * 7919 % message_count);
  return name;
}

std::string msg_element(unsigned i) {
  return "    <msg name=\"" + name_of(i) + "\" meta=\"label on page " + std::to_string(i % 40) +
         "\">The file <arg name=\"file\"/> could not be opened: <arg name=\"count\" type=\"int\"/> attempts "
         "were made "
         "before giving up</msg>\n";
}

/// The catalog as a file, which is removed at the end.
class catalog_file {
 public:
  catalog_file() : directory_(fs::temp_directory_path() / ("orva-bench-" + std::to_string(::getpid()))) {
    fs::create_directories(directory_);
    std::ofstream stream(path(), std::ios::binary);
    stream << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<xmc version=\"1.1\">\n  <catalog name=\"app\" "
              "lang=\"en\">\n";
    for (unsigned i = 0; i < message_count; ++i) stream << msg_element(i);
    stream << "  </catalog>\n</xmc>\n";
  }
  catalog_file(const catalog_file&) = delete;
  catalog_file& operator=(const catalog_file&) = delete;
  ~catalog_file() {
    std::error_code ignored;
    fs::remove_all(directory_, ignored);
  }

  const fs::path& directory() const { return directory_; }
  std::string path() const { return (directory_ / "app.xmc").string(); }

 private:
  fs::path directory_;
};

const catalog_file& file() {
  static const catalog_file instance;
  return instance;
}

void set_bytes(benchmark::State& state) {
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(fs::file_size(file().path())));
}

/// Drops what was loaded without measuring it: a program does so once, at its end.
template <typename Drop>
void without_time(benchmark::State& state, Drop drop) {
  state.PauseTiming();
  drop();
  state.ResumeTiming();
}

void load_message_catalogs(benchmark::State& state) {
  const ustring8 path = file().path();
  for (auto _ : state) {
    message_catalogs catalogs;
    if (catalogs.load(path, "en") != message_catalogs::no_error) throw std::runtime_error("not loaded");
    without_time(state, [&] { catalogs.erase(); });
  }
  set_bytes(state);
}
BENCHMARK(load_message_catalogs)->Unit(benchmark::kMillisecond);

std::string text_of(const pugi::xml_node& message) {
  std::string text;
  for (const pugi::xml_node& piece : message.children()) {
    if (piece.type() == pugi::node_element) {
      text.append("{").append(piece.attribute("name").value()).append("}");
    } else {
      text += piece.value();
    }
  }
  return text;
}

std::map<std::string, std::string> texts_of(const std::string& path) {
  pugi::xml_document document;
  if (!document.load_file(path.c_str())) throw std::runtime_error("not loaded");
  std::map<std::string, std::string> texts;
  for (const pugi::xml_node& catalog : document.child("xmc").children("catalog")) {
    for (const pugi::xml_node& message : catalog.children("msg")) {
      texts.emplace(message.attribute("name").value(), text_of(message));
    }
  }
  return texts;
}

void load_pugixml_into_map(benchmark::State& state) {
  const std::string path = file().path();
  for (auto _ : state) {
    std::map<std::string, std::string> texts = texts_of(path);
    without_time(state, [&] { texts.clear(); });
  }
  set_bytes(state);
}
BENCHMARK(load_pugixml_into_map)->Unit(benchmark::kMillisecond);

/// The names of all messages, in an order that is bad for caches. The argument of a benchmark is the number
/// of names that it looks up in turns: a few, like a window that is redrawn, or all.
const std::vector<std::string>& names() {
  static const std::vector<std::string> all = [] {
    std::vector<std::string> result;
    for (unsigned i = 0; i < message_count; ++i) result.push_back(name_of(i * 104729 % message_count));
    return result;
  }();
  return all;
}

class turns {
 public:
  explicit turns(const benchmark::State& state) : count_(static_cast<std::size_t>(state.range(0))) {}
  std::size_t operator()() { return next_ = next_ + 1 < count_ ? next_ + 1 : 0; }

 private:
  std::size_t count_;
  std::size_t next_ = 0;
};

message_catalogs loaded_catalogs() {
  message_catalogs catalogs;
  if (catalogs.load(file().path(), "en") != message_catalogs::no_error)
    throw std::runtime_error("not loaded");
  return catalogs;
}

void look_up_and_render_message(benchmark::State& state) {
  const message_catalogs catalogs = loaded_catalogs();
  const std::vector<ustring8> keys(names().begin(), names().end());
  const ustring8 catalog = "app";
  turns next(state);
  for (auto _ : state) {
    varg_list args;
    args.push_back("file", "report.txt");
    args.push_back("count", 3);
    benchmark::DoNotOptimize(catalogs.message(catalog, keys[next()]).as_utf8(args));
  }
}
BENCHMARK(look_up_and_render_message)->Arg(16)->Arg(message_count);

void look_up_message(benchmark::State& state) {
  const message_catalogs catalogs = loaded_catalogs();
  const std::vector<ustring8> keys(names().begin(), names().end());
  const ustring8 catalog = "app";
  turns next(state);
  for (auto _ : state) {
    benchmark::DoNotOptimize(&catalogs.message(catalog, keys[next()]));
  }
}
BENCHMARK(look_up_message)->Arg(16)->Arg(message_count);

/// Sets `gettext` up to return the messages of the catalog.
void install_gettext() {
  const fs::path folder = file().directory() / "C.UTF-8" / "LC_MESSAGES";
  fs::create_directories(folder);
  std::vector<std::pair<std::string, std::string>> entries = {
      {"", "Content-Type: text/plain; charset=UTF-8\n"}};
  for (const std::string& name : names()) {
    entries.emplace_back(name, "The file %s could not be opened: %d attempts were made before giving up");
  }
  std::ofstream(folder / "app.mo", std::ios::binary) << mo_file(entries).bytes();
  std::setlocale(LC_ALL, "C.UTF-8");
  bindtextdomain("app", file().directory().c_str());
  textdomain("app");
  if (names()[0] == gettext(names()[0].c_str())) throw std::runtime_error("gettext finds no message");
}

void look_up_and_render_gettext_snprintf(benchmark::State& state) {
  install_gettext();
  turns next(state);
  for (auto _ : state) {
    char text[256];
    const int size = std::snprintf(text, sizeof text, gettext(names()[next()].c_str()), "report.txt", 3);
    benchmark::DoNotOptimize(std::string(text, static_cast<std::size_t>(size)));
  }
}
BENCHMARK(look_up_and_render_gettext_snprintf)->Arg(16)->Arg(message_count);

void look_up_gettext(benchmark::State& state) {
  install_gettext();
  turns next(state);
  for (auto _ : state) {
    benchmark::DoNotOptimize(gettext(names()[next()].c_str()));
  }
}
BENCHMARK(look_up_gettext)->Arg(16)->Arg(message_count);

}  // namespace
