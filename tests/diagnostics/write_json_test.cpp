#include <gtest/gtest.h>

#include <limits>
#include <sstream>

#include "orva/diagnostics/write.hpp"
#include "orva/types/nil.hpp"

namespace {

using namespace orva::diagnostics;
using orva::generic::argument;
using orva::generic::varg_list;

std::string json_of(const finding& found) {
  std::ostringstream stream;
  write_json(stream, found);
  return stream.str();
}

TEST(write_json, documentation_example) {
  const finding found{severity::error, "xml.missing_equals", "a.xml", {3, 12}, {{"name", "width"}}};
  EXPECT_EQ(json_of(found),
            R"({"severity":"error","code":"xml.missing_equals","file":"a.xml","line":3,"column":12,)"
            R"("text":"The attribute width has no = after its name.","arguments":{"name":"width"}})"
            "\n");
}

TEST(write_json, writes_a_line_with_what_a_finding_has) {
  const finding found{
      severity::error, "app.own", "a.txt", {3, 14}, varg_list(argument("text", "Wrong."), argument("n", 7))};
  EXPECT_EQ(json_of(found),
            R"({"severity":"error","code":"app.own","file":"a.txt","line":3,"column":14,"text":"Wrong.",)"
            R"("arguments":{"text":"Wrong.","n":7}})"
            "\n");
}

TEST(write_json, leaves_out_what_a_finding_does_not_have) {
  EXPECT_EQ(json_of({severity::note, "app.own", {}, {}, {}}),
            R"({"severity":"note","code":"app.own","text":"app.own","arguments":{}})"
            "\n");
}

TEST(write_json, writes_values_in_the_types_of_json) {
  varg_list arguments(argument("a", true), argument("b", -5), argument("c", 0.1), argument("d", "x"));
  arguments.push_back("e", orva::types::nil);
  arguments.push_back("f", std::numeric_limits<double>::infinity());
  arguments.push_back(argument("positional"));
  EXPECT_EQ(
      json_of({severity::note, "c", {}, {}, arguments}),
      R"({"severity":"note","code":"c","text":"c","arguments":{"a":true,"b":-5,"c":0.1,"d":"x","e":null,"f":"inf"}})"
      "\n");
}

TEST(write_json, escapes_texts) {
  const finding found{severity::note, "c", "a\"\\\n\x01\x7F\xC2\x9B\xC3\xA4\xFFz", {}, {}};
  EXPECT_EQ(json_of(found),
            "{\"severity\":\"note\",\"code\":\"c\",\"file\":"
            "\"a\\\"\\\\\\u000a\\u0001\\u007f\\u009b\xC3\xA4\xEF\xBF\xBDz\","
            "\"text\":\"c\",\"arguments\":{}}\n");
}

TEST(write_json, ends_a_report_with_the_number_of_findings_not_kept) {
  report findings(1);
  findings.add({severity::error, "c", {}, {}, {}});
  findings.add({severity::error, "c", {}, {}, {}});
  std::ostringstream stream;
  write_json(stream, findings);
  EXPECT_EQ(
      stream.str(),
      R"({"severity":"error","code":"c","text":"c","arguments":{}})"
      "\n"
      R"({"severity":"note","code":"diagnostics.not_kept","text":"Findings that are not shown: 1.","arguments":{"count":1}})"
      "\n");
}

}  // namespace
