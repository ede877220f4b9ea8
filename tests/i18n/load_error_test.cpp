#include "orva/i18n/load_error.hpp"

#include <gtest/gtest.h>

#include "orva/i18n/xmc_file_loader.hpp"

namespace {

using ORVA_NAMESPACE::i18n::_private::load_error;
using ORVA_NAMESPACE::i18n::_private::xmc_file_loader;
using ORVA_NAMESPACE::parser::xml_parser;

TEST(load_error, has_the_text_of_its_type) {
  const struct {
    int type;
    const char* text;
  } rows[] = {
      {0, "xmc_file_loader::load_error - No Error"},
      {1, "xmc_file_loader::load_error - No catalog was loaded in file: \"x\""},
      {2, "xmc_file_loader::load_error - Default locale lookup not supported yet"},
      {3, "xmc_file_loader::load_error - File \"x\" was not found on disk"},
      {4, "unknown, or unhandle case happened! str data=x"},
      {5, "xmc_file_loader::load_error - Invalid attibute \"x\""},
      {6, "xmc_file_loader::load_error - Invalid element \"x\""},
      {7, "xmc_file_loader::load_error - Not XMC file, root element is not XMC but \"x\""},
      {8, "xmc_file_loader::load_error - XMC version \"x\" is not supported"},
      {9, "xmc_file_loader::load_error - Expected BR end tag not found"},
      {10, "xmc_file_loader::load_error - Expected msg (message) end tag not found for message \"x\""},
      {11, "xmc_file_loader::load_error - Expected arg (argument) end tag not found for argument \"x\""},
      {12, "xmc_file_loader::load_error - Expected \"include\" end tag not found"},
      {13, "xmc_file_loader::load_error - Expected catalog end tag not found for catalog \"x\""},
      {14, "xmc_file_loader::load_error - Unexpected parse error happen!"},
      {15, "unknown, or unhandle case happened! str data=x"},
      {-1, "unknown, or unhandle case happened! str data=x"},
  };
  for (const auto& row : rows) {
    const load_error error(static_cast<load_error::error_type>(row.type), "x");
    EXPECT_EQ(error.type(), row.type);
    EXPECT_EQ(error.message(), row.text);
  }
}

TEST(load_error, types_are_numbered_as_callers_know_them) {
  EXPECT_EQ(load_error::no_error, 0);
  EXPECT_EQ(load_error::no_catalog, 1);
  EXPECT_EQ(load_error::no_default_locale, 2);
  EXPECT_EQ(load_error::file_not_found, 3);
  EXPECT_EQ(load_error::xml_parse_error, 4);
  EXPECT_EQ(load_error::invalid_attribute, 5);
  EXPECT_EQ(load_error::invalid_element, 6);
  EXPECT_EQ(load_error::not_xmc_file, 7);
  EXPECT_EQ(load_error::unsupported_version, 8);
  EXPECT_EQ(load_error::br_end_missing, 9);
  EXPECT_EQ(load_error::msg_end_missing, 10);
  EXPECT_EQ(load_error::arg_end_missing, 11);
  EXPECT_EQ(load_error::include_end_missing, 12);
  EXPECT_EQ(load_error::catalog_end_missing, 13);
  EXPECT_EQ(load_error::unexpected_parse_error, 14);
  EXPECT_EQ(xmc_file_loader::invalid_element, load_error::invalid_element);
}

TEST(load_error, is_no_error_by_default) {
  EXPECT_EQ(load_error().type(), load_error::no_error);
  EXPECT_EQ(load_error().message(), "xmc_file_loader::load_error - No Error");
}

TEST(load_error, reports_a_parse_error_with_its_line_except_for_the_last_two) {
  const struct {
    int type;
    const char* text;
  } rows[] = {
      {1, "xmc_file_loader::load_error - Unexpected end of file during XML parsing\n at line: \"7\""},
      {2, "xmc_file_loader::load_error - Mismatched end element \"d\" was found\n at line: \"7\""},
      {3, "xmc_file_loader::load_error - No root element was found\n at line: \"7\""},
      {4, "xmc_file_loader::load_error - Valid XML header not found\n at line: \"7\""},
      {5, "xmc_file_loader::load_error - Unexpected character \"d\" found while parsing\n at line: \"7\""},
      {6, "xmc_file_loader::load_error - Missing \" while parsing attribute \"d\"\n at line: \"7\""},
      {7, "xmc_file_loader::load_error - Unknown enity being parsed\n at line: \"7\""},
      {8, "xmc_file_loader::load_error - Missing = sign for attribute \"d\"\n at line: \"7\""},
      {9, "xmc_file_loader::load_error - attribute \"d\" is being redefined\n at line: \"7\""},
      {10, "xmc_file_loader::load_error - Data found after root element"},
      {11, "xmc_file_loader::load_error - Unknown Parse error"},
      {0, "xmc_file_loader::load_error - Unknown Parse error"},
  };
  for (const auto& row : rows) {
    xml_parser::parse_error cause;
    cause.type = static_cast<decltype(cause.type)>(row.type);
    cause.line = 7;
    cause.data = "d";
    const load_error error(load_error::xml_parse_error, cause);
    EXPECT_EQ(error.type(), load_error::xml_parse_error);
    EXPECT_EQ(error.message(), row.text);
  }
}

TEST(load_error, writes_lines_as_unsigned_numbers) {
  xml_parser::parse_error cause;
  cause.type = xml_parser::parse_error::bad_header;
  cause.line = 0xFFFFFFFF;
  EXPECT_EQ(load_error(load_error::xml_parse_error, cause).message(),
            "xmc_file_loader::load_error - Valid XML header not found\n at line: \"4294967295\"");
}

TEST(load_error, gathers_a_line_for_each_element_around_the_failure) {
  load_error error(load_error::invalid_element, "i");
  error.append_error_stack(load_error::in_message, "disk_free");
  error.append_error_stack(load_error::in_catalog, "app");
  error.append_error_stack(load_error::in_file, "de.xmc");
  EXPECT_EQ(error.type(), load_error::invalid_element);
  EXPECT_EQ(
      error.message(),
      "xmc_file_loader::load_error - Invalid element \"i\"\n in message element: \"disk_free\"\n in catalog "
      "element: \"app\"\n in file: \"de.xmc\"");
}

TEST(load_error, adds_another_line_for_an_unknown_place) {
  for (const int where : {0, 4, -1}) {
    load_error error;
    error.append_error_stack(static_cast<load_error::append_type>(where), "x");
    EXPECT_EQ(error.message(),
              "xmc_file_loader::load_error - No Error\n unknown, or unhandle case happened! str data=x");
  }
}

}  // namespace
