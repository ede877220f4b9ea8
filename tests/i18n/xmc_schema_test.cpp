// The schemas of XMC files: what they accept and refuse, by programs that read schemas as editors do.
#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "orva/i18n/message_catalogs.hpp"
#include "tests/support/child_process.hpp"
#include "tests/support/temporary_directory.hpp"

namespace {

namespace fs = std::filesystem;
using ORVA_NAMESPACE::i18n::message_catalogs;

struct validator {
  std::string program;
  std::string arguments;
  std::string refusal;  // what it writes after the name of a file that it refuses
};

const validator validators[] = {
    {"/usr/bin/xmllint", "--noout --nowarning --schema " XMC_SCHEMAS "/xmc.xsd", " fails to validate"},
    {"/usr/bin/jing", "-c " XMC_SCHEMAS "/xmc.rnc", ":1:"},
};

class xmc_schema : public testing::TestWithParam<std::size_t> {
 protected:
  void SetUp() override {
    if (!fs::exists(tool().program)) GTEST_SKIP() << tool().program << " is not installed";
  }

  const validator& tool() const { return validators[GetParam()]; }

  bool accepts(const std::vector<std::string>& files) const { return run(files).code == 0; }
  std::string output_for(const std::vector<std::string>& files) const { return run(files).output; }

  std::string write(std::string_view text) {
    return directory_.write(std::to_string(++count_) + ".xmc", std::string(text));
  }

  std::string with_catalog(std::string_view content) {
    return write("<xmc version='1.1'><catalog name='app' lang='en'>" + std::string(content) +
                 "</catalog></xmc>");
  }

  orva_test::child_result run(const std::vector<std::string>& files) const {
    std::string command = tool().program + ' ' + tool().arguments;
    for (const std::string& file : files) command += " '" + file + "'";
    return orva_test::run_child("/bin/sh", {"sh", "-c", command + " 2>&1"}, {"PATH=/usr/bin:/bin"});
  }

  orva_test::temporary_directory directory_;
  int count_ = 0;
};

TEST_P(xmc_schema, accepts_the_catalogs_of_the_project) {
  std::vector<std::string> files;
  for (const char* const folder : {"examples", "programs", "orva"}) {
    for (const auto& entry : fs::recursive_directory_iterator(fs::path(PROJECT_SOURCES) / folder)) {
      const std::string ending = entry.path().extension();
      if (ending == ".xmc" || ending == ".part") files.push_back(entry.path());
    }
  }
  EXPECT_GT(files.size(), 9U);
  EXPECT_TRUE(accepts(files));
}

TEST_P(xmc_schema, accepts_all_that_a_file_can_have) {
  EXPECT_TRUE(accepts({
      write("<xmc version='1.0'/>"),
      write("<?xml version='1.0'?><!-- a --><xmc version='1.1'><include file='more.part'/><catalog name='' "
            "lang='.'/><!-- b --><catalog name='app' lang='sr_Latn-RS'/></xmc>"),
      with_catalog(
          "<msg name='a' meta='a note'>text<br/> <arg name='n'/><!-- c --><argument name='m'/></msg>"),
      with_catalog("<msg name='a'><arg name='n' type='int' base='spaced_dec' fieldsize='-4'/></msg>"),
      with_catalog(
          "<msg name='a'><arg name='n' type='mem' precision='1' base_unit='KB' target_unit='GB'/></msg>"),
      with_catalog(
          "<msg name='a'><arg name='n' type='metric_unit' base_unit='mc' short_form='false'/></msg>"),
  }));
}

TEST_P(xmc_schema, refuses_each_mistake) {
  const std::vector<std::string> mistakes = {
      write("<xmc/>"),
      write("<xmc version='2.0'/>"),
      write("<xmc version='1.1' lang='en'/>"),
      write("<xmc version='1.1'><include/></xmc>"),
      write("<xmc version='1.1'><include file=''/></xmc>"),
      write("<xmc version='1.1'><msg name='a'/></xmc>"),
      write("<xmc version='1.1'><catalog name='app'/></xmc>"),
      write("<xmc version='1.1'><catalog lang='en'/></xmc>"),
      write("<xmc version='1.1'><catalog name='app' lang='english language'/></xmc>"),
      write("<xmc version='1.1'>text</xmc>"),
      with_catalog("text"),
      with_catalog("<msg>a</msg>"),
      with_catalog("<msg name=''>a</msg>"),
      with_catalog("<msg name='a' note='b'/>"),
      with_catalog("<message name='a'/>"),
      with_catalog("<msg name='a'><b>c</b></msg>"),
      with_catalog("<msg name='a'><br>c</br></msg>"),
      with_catalog("<msg name='a'><arg/></msg>"),
      with_catalog("<msg name='a'><arg name='n'>c</arg></msg>"),
      with_catalog("<msg name='a'><arg name='n' type='integer'/></msg>"),
      with_catalog("<msg name='a'><arg name='n' type='date'/></msg>"),
      with_catalog("<msg name='a'><arg name='n' presicion='1'/></msg>"),
      with_catalog("<msg name='a'><arg name='n' precision='-1'/></msg>"),
      with_catalog("<msg name='a'><arg name='n' base='roman'/></msg>"),
      with_catalog("<msg name='a'><arg name='n' target_unit='GiB'/></msg>"),
      with_catalog("<msg name='a'><arg name='n' short_form='yes'/></msg>"),
  };
  const std::string output = output_for(mistakes);
  for (const std::string& file : mistakes) EXPECT_NE(output.find(file + tool().refusal), output.npos) << file;
}

/// The line by which a file names its schema, in place of the declaration of XML.
TEST_P(xmc_schema, file_that_names_its_schema_is_loaded) {
  const std::string file = write(
      "<?xml-model href=\"/usr/share/orva/xmc.xsd\" schematypens=\"http://www.w3.org/2001/XMLSchema\"?>\n"
      "<xmc version=\"1.1\"><catalog name=\"app\" lang=\"en\"><msg "
      "name=\"quit\">Quit</msg></catalog></xmc>\n");
  EXPECT_TRUE(accepts({file}));
  message_catalogs catalogs;
  EXPECT_EQ(catalogs.load(file, "en"), message_catalogs::no_error);
  EXPECT_EQ(catalogs.message("app", "quit").as_utf8(), "Quit");
}

INSTANTIATE_TEST_SUITE_P(validators, xmc_schema, testing::Values(0U, 1U),
                         [](const auto& test) { return test.param == 0 ? "xmllint" : "jing"; });

}  // namespace
