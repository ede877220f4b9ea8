// The texts and conversions of load results.
#include <gtest/gtest.h>

#include <sstream>
#include <utility>

#include "orva/i18n/message_catalogs.hpp"

namespace {

using ORVA_NAMESPACE::i18n::message_catalogs;
using ORVA_NAMESPACE::i18n::_private::load_error;
using result_type = message_catalogs::result_type;

TEST(message_catalogs_result, has_the_text_of_its_code) {
  const struct {
    int code;
    const char* text;
  } rows[] = {
      {0, "message_catalogs::result_type - No Error"},
      {1, "message_catalogs::result_type - No catalog was loaded in file: \"x\""},
      {2, "unknown, or unhandle case happened! str data=x"},
      {3, "message_catalogs::result_type - File \"x\" was not found on disk"},
      {4, "message_catalogs::result_type - Directory \"x\" was not found on disk"},
      {5, "message_catalogs::result_type - Entity (file or directory) \"x\" was not found on disk"},
      {6, "unknown, or unhandle case happened! str data=x"},
      {7, "unknown, or unhandle case happened! str data=x"},
      {8, "unknown, or unhandle case happened! str data=x"},
      {9, "unknown, or unhandle case happened! str data=x"},
      {-1, "unknown, or unhandle case happened! str data=x"},
  };
  for (const auto& row : rows) {
    const result_type result(static_cast<message_catalogs::error_type>(row.code), "x");
    EXPECT_EQ(result.type(), row.code);
    EXPECT_EQ(result.message(), row.text);
  }
}

TEST(message_catalogs_result, puts_a_heading_over_a_load_error) {
  const char* const invalid = "message_catalogs::result_type - XMC file is not valid\n";
  const struct {
    int type;
    int code;
    const char* heading;
  } rows[] = {
      {0, 0, "message_catalogs::result_type - No Error\n"},
      {1, 1, "message_catalogs::result_type - No catalog was loaded\n"},
      {2, 2, "message_catalogs::result_type - Default locale lookup not supported yet\n"},
      {3, 3, "message_catalogs::result_type - File was not found on disk\n"},
      {4, 6, "message_catalogs::result_type - XML parse error, XML file not well formed\n"},
      {5, 7, invalid},
      {6, 7, invalid},
      {7, 7, invalid},
      {8, 7, invalid},
      {9, 7, invalid},
      {10, 7, invalid},
      {11, 7, invalid},
      {12, 7, invalid},
      {13, 7, invalid},
      {14, 8, "message_catalogs::result_type - Unexpected error happened during loading\n"},
      {15, 8, "message_catalogs::result_type - Unhandled case\n"},
      {-1, 8, "message_catalogs::result_type - Unhandled case\n"},
  };
  for (const auto& row : rows) {
    const load_error error(static_cast<load_error::error_type>(row.type), "x");
    const result_type result = error;
    EXPECT_EQ(result.type(), row.code) << row.type;
    EXPECT_EQ(result.message(), row.heading + error.message()) << row.type;
  }
}

TEST(message_catalogs_result, codes_are_numbered_as_callers_know_them) {
  EXPECT_EQ(message_catalogs::no_error, 0);
  EXPECT_EQ(message_catalogs::no_catalog, 1);
  EXPECT_EQ(message_catalogs::no_default_locale, 2);
  EXPECT_EQ(message_catalogs::file_not_found, 3);
  EXPECT_EQ(message_catalogs::directory_not_found, 4);
  EXPECT_EQ(message_catalogs::entity_not_found, 5);
  EXPECT_EQ(message_catalogs::xml_parse_error, 6);
  EXPECT_EQ(message_catalogs::xmc_invalid, 7);
  EXPECT_EQ(message_catalogs::unexpected_error, 8);
}

TEST(message_catalogs_result, prints_exactly_its_message) {
  const result_type result(message_catalogs::entity_not_found, "x");
  std::ostringstream stream;
  stream << result;
  EXPECT_EQ(stream.str(), result.message());
}

TEST(message_catalogs_result, is_its_code) {
  const result_type result(message_catalogs::entity_not_found, "x");
  const message_catalogs::error_type code = result;
  EXPECT_EQ(code, message_catalogs::entity_not_found);
  EXPECT_TRUE(result == message_catalogs::entity_not_found);
}

template <typename Result>
concept has_truth = requires(Result result) {
  result ? 1 : 0;
};
template <typename Result>
concept has_negation = requires(Result result) {
  !result;
};

// A condition on a result would be true for a failure. It does not compile.
static_assert(!std::is_constructible_v<bool, result_type>);
static_assert(!std::is_constructible_v<bool, const result_type&>);
static_assert(!has_truth<result_type> && !has_negation<result_type>);
static_assert(std::is_convertible_v<result_type, message_catalogs::error_type>);
static_assert(std::is_convertible_v<result_type, int>);

TEST(message_catalogs_result, is_compared_and_converted_as_its_code) {
  const result_type result(message_catalogs::file_not_found, "x");
  EXPECT_TRUE(result == message_catalogs::file_not_found);
  EXPECT_TRUE(result != message_catalogs::no_error);
  EXPECT_TRUE(message_catalogs::no_error != result);
  EXPECT_TRUE(result == 3);
  EXPECT_TRUE(result == result_type(message_catalogs::file_not_found, "y"));
  const int number = result;
  EXPECT_EQ(number, 3);
  switch (result) {
    case message_catalogs::file_not_found:
      break;
    default:
      ADD_FAILURE() << result;
  }
}

TEST(message_catalogs_result, copies_and_moves) {
  result_type first(message_catalogs::entity_not_found, "x");
  const result_type copy = first;
  const result_type moved = std::move(first);
  EXPECT_EQ(copy.message(), moved.message());
  EXPECT_EQ(moved.type(), message_catalogs::entity_not_found);
}

}  // namespace
