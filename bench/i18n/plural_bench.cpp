// The plural form for a number, looked up and rendered, compared with ngettext and snprintf.
#include <benchmark/benchmark.h>
#include <libintl.h>
#include <unistd.h>

#include <clocale>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

#include "bench/i18n/mo_file.hpp"
#include "orva/generic/argument.hpp"
#include "orva/i18n/plural.hpp"

namespace {

using namespace ORVA_NAMESPACE;
using i18n_bench::mo_file;
namespace fs = std::filesystem;

/// A folder with both catalogs, which is removed at the end.
class catalog_folder {
 public:
  catalog_folder() : path_(fs::temp_directory_path() / ("orva-bench-" + std::to_string(::getpid()))) {
    fs::create_directories(path_ / "C.UTF-8" / "LC_MESSAGES");
    std::ofstream(path_ / "app.xmc", std::ios::binary)
        << "<?xml version='1.0'?><xmc version='1.1'><catalog name='app' lang='en'>"
           "<msg name='files.one'><arg name='n' type='int'/> file</msg>"
           "<msg name='files.other'><arg name='n' type='int'/> files</msg></catalog></xmc>";
    const std::string header =
        "Content-Type: text/plain; charset=UTF-8\nPlural-Forms: nplurals=2; plural=(n != 1);\n";
    const mo_file compiled(
        {{"", header}, {std::string("%d file\0%d files", 16), std::string("%d file!\0%d files!", 18)}});
    std::ofstream(path_ / "C.UTF-8" / "LC_MESSAGES" / "app.mo", std::ios::binary) << compiled.bytes();
  }
  catalog_folder(const catalog_folder&) = delete;
  catalog_folder& operator=(const catalog_folder&) = delete;
  ~catalog_folder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
  }

  const fs::path& path() const { return path_; }

 private:
  fs::path path_;
};

const catalog_folder& folder() {
  static const catalog_folder instance;
  return instance;
}

void look_up_and_render_plural(benchmark::State& state) {
  i18n::message_catalogs catalogs;
  if (catalogs.load(folder().path() / "app.xmc", "en") != i18n::message_catalogs::no_error) {
    throw std::runtime_error("the catalog cannot be loaded");
  }
  const std::string catalog = "app";
  const std::string name = "files";
  int number = 0;
  for (auto _ : state) {
    number = (number + 1) % 5;
    benchmark::DoNotOptimize(
        i18n::plural(catalogs, catalog, name, number).as_utf8(generic::argument("n", number)));
  }
}
BENCHMARK(look_up_and_render_plural);

void look_up_and_render_ngettext_snprintf(benchmark::State& state) {
  std::setlocale(LC_ALL, "C.UTF-8");
  bindtextdomain("app", folder().path().c_str());
  textdomain("app");
  if (std::string(ngettext("%d file", "%d files", 3)) != "%d files!") {
    throw std::runtime_error("ngettext finds no message");
  }
  int number = 0;
  for (auto _ : state) {
    number = (number + 1) % 5;
    char text[64];
    const int size = std::snprintf(
        text, sizeof text, ngettext("%d file", "%d files", static_cast<unsigned long>(number)), number);
    benchmark::DoNotOptimize(std::string(text, static_cast<std::size_t>(size)));
  }
}
BENCHMARK(look_up_and_render_ngettext_snprintf);

void category_of_number(benchmark::State& state) {
  int number = 0;
  for (auto _ : state) {
    number = (number + 1) % 200;
    benchmark::DoNotOptimize(i18n::plural_category_of("pl_PL", number));
  }
}
BENCHMARK(category_of_number);

}  // namespace
