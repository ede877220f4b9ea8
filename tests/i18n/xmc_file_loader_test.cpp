#include "orva/i18n/xmc_file_loader.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>

#include "tests/i18n/xmc_reading.hpp"
#include "tests/support/temporary_directory.hpp"

namespace {

using namespace orva_test;
using ORVA_NAMESPACE::parser::xml_token_stream;

TEST(xmc_file_loader, documentation_example) {
  const reading result = read(
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
      "<xmc version=\"1.1\">\n"
      "  <catalog name=\"app\" lang=\"de_DE\">\n"
      "    <msg name=\"disk_free\" meta=\"shown in the status bar\">Frei: <arg name=\"n\" type=\"mem\" "
      "precision=\"1\"/> <arg name=\"n\" type=\"mem_unit\" precision=\"1\"/></msg>\n"
      "  </catalog>\n"
      "</xmc>\n",
      "de_DE");
  EXPECT_EQ(result.error.type(), load_error::no_error);
  EXPECT_EQ(result.stored, 1u);
  const message_t& message = result.message("disk_free");
  EXPECT_EQ(pieces(message), "T[Frei: ]P[n|precision|1]T[ ]P[n|precision|1]");
  EXPECT_EQ(message.name(), "disk_free");
  EXPECT_EQ(message.meta(), "shown in the status bar");
  EXPECT_EQ(message._orginal_locale(), "de_DE");
  EXPECT_EQ((message.begin() + 1)->type(), message_item::memory);
  EXPECT_EQ((message.begin() + 3)->type(), message_item::memory_unit);
}

TEST(xmc_file_loader, reports_where_a_document_is_wrong) {
  const struct {
    const char* construct;
    ustring8 text;
    int type;
    const char* words;
  } rows[] = {
      {"empty file", "", 4, "Valid XML header not found\n at line: \"0\"\n in file: \"test.xmc\""},
      {"no header", "<xmc version=\"1.1\"/>", 4,
       "Valid XML header not found\n at line: \"0\"\n in file: \"test.xmc\""},
      {"header only", "<?xml?>", 4, "No root element was found\n at line: \"0\"\n in file: \"test.xmc\""},
      {"end tag missing", "<?xml?><xmc version=\"1.1\">", 4,
       "Unexpected end of file during XML parsing\n at line: \"0\"\n in file: \"test.xmc\""},
      {"second root", "<?xml?><xmc version=\"1.1\"></xmc><xmc/>", 4,
       "Data found after root element\n in file: \"test.xmc\""},
      {"character reference of two bytes", xmc("&#8364;"), 14,
       "Unexpected parse error happen!\n in file: \"test.xmc\""},
      {"comment only", "<?xml?><!-- nothing -->", 14,
       "Unexpected parse error happen!\n in file: \"test.xmc\""},
      {"text only", "<?xml?>nothing", 14, "Unexpected parse error happen!\n in file: \"test.xmc\""},
      {"other root", "<?xml?><xml/>", 7,
       "Not XMC file, root element is not XMC but \"xml\"\n in file: \"test.xmc\""},
      {"root in capitals", "<?xml?><XMC version=\"1.1\"/>", 7,
       "Not XMC file, root element is not XMC but \"XMC\"\n in file: \"test.xmc\""},
      {"version 2.0", "<?xml?><xmc version=\"2.0\"/>", 8,
       "XMC version \"2.0\" is not supported\n in file: \"test.xmc\""},
      {"version 1.10", "<?xml?><xmc version=\"1.10\"/>", 8,
       "XMC version \"1.10\" is not supported\n in file: \"test.xmc\""},
      {"empty version", "<?xml?><xmc version=\"\"/>", 8,
       "XMC version \"\" is not supported\n in file: \"test.xmc\""},
      {"no version", "<?xml?><xmc/>", 5, "Invalid attibute \"\"\n in file: \"test.xmc\""},
      {"other attribute", "<?xml?><xmc lang=\"de\"/>", 5,
       "Invalid attibute \"lang\"\n in file: \"test.xmc\""},
      {"attribute before the version", "<?xml?><xmc a=\"b\" version=\"1.1\"/>", 5,
       "Invalid attibute \"a\"\n in file: \"test.xmc\""},
      {"attribute after the version", "<?xml?><xmc version=\"1.1\" a=\"b\"/>", 5,
       "Invalid attibute \"a\"\n in file: \"test.xmc\""},
      {"no catalog", xmc(""), 1, "No catalog was loaded in file: \"test.xmc\""},
      {"no wanted catalog", xmc(app("fr", "")), 1, "No catalog was loaded in file: \"test.xmc\""},
      {"other element", xmc("<msg/>"), 6, "Invalid element \"msg\"\n in file: \"test.xmc\""},
      {"attribute of an end tag", "<?xml?><xmc version=\"1.1\"><catalog lang=\"fr\"></catalog a=\"b\"></xmc>",
       6, "Invalid element \"a\"\n in file: \"test.xmc\""},
      {"other attribute of a catalog", xmc("<catalog name=\"app\" land=\"de\"/>"), 5,
       "Invalid attibute \"land\"\n in catalog element: \"app\"\n in file: \"test.xmc\""},
      {"other attribute before the catalog's name", xmc("<catalog land=\"de\" name=\"app\"/>"), 5,
       "Invalid attibute \"land\"\n in catalog element: \"\"\n in file: \"test.xmc\""},
      {"other element in a catalog", xmc(app("de", "<message/>")), 13,
       "Expected catalog end tag not found for catalog \"app\"\n in catalog element: \"app\"\n in file: "
       "\"test.xmc\""},
      {"catalog in a catalog", xmc(app("de", app("de", ""))), 13,
       "Expected catalog end tag not found for catalog \"app\"\n in catalog element: \"app\"\n in file: "
       "\"test.xmc\""},
      {"other attribute of a message", xmc(app("de", "<msg name=\"m\" id=\"1\"/>")), 5,
       "Invalid attibute \"id\"\n in message element: \"m\"\n in catalog element: \"app\"\n in file: "
       "\"test.xmc\""},
      {"other element in a message", xmc(app("de", "<msg name=\"m\">a <i>b</i></msg>")), 6,
       "Invalid element \"i\"\n in message element: \"m\"\n in catalog element: \"app\"\n in file: "
       "\"test.xmc\""},
      {"message in a message", xmc(app("de", "<msg name=\"m\"><msg/></msg>")), 6,
       "Invalid element \"msg\"\n in message element: \"m\"\n in catalog element: \"app\"\n in file: "
       "\"test.xmc\""},
      {"attribute of an end tag in a message", xmc(app("de", "<msg name=\"m\"><br></br x=\"1\"></msg>")), 6,
       "Invalid element \"x\"\n in message element: \"m\"\n in catalog element: \"app\"\n in file: "
       "\"test.xmc\""},
      {"content in a line break", xmc(app("de", "<msg name=\"m\"><br>x</br></msg>")), 9,
       "Expected BR end tag not found\n in message element: \"m\"\n in catalog element: \"app\"\n in file: "
       "\"test.xmc\""},
      {"blank in a line break", xmc(app("de", "<msg name=\"m\"><br> </br></msg>")), 9,
       "Expected BR end tag not found\n in message element: \"m\"\n in catalog element: \"app\"\n in file: "
       "\"test.xmc\""},
      {"attribute of a line break", xmc(app("de", "<msg name=\"m\"><br x=\"1\"/></msg>")), 9,
       "Expected BR end tag not found\n in message element: \"m\"\n in catalog element: \"app\"\n in file: "
       "\"test.xmc\""},
      {"content in a placeholder", xmc(app("de", "<msg name=\"m\"><arg name=\"n\">x</arg></msg>")), 11,
       "Expected arg (argument) end tag not found for argument \"n\"\n in message element: \"m\"\n in "
       "catalog "
       "element: \"app\"\n in file: \"test.xmc\""},
      {"element in a placeholder",
       xmc(app("de", "<msg name=\"m\"><argument name=\"n\"><br/></argument></msg>")), 11,
       "Expected arg (argument) end tag not found for argument \"n\"\n in message element: \"m\"\n in "
       "catalog "
       "element: \"app\"\n in file: \"test.xmc\""},
      {"include without a file", xmc("<include/>"), 5, "Invalid attibute \"file\"\n in file: \"test.xmc\""},
      {"include of nothing", xmc("<include file=\"\"/>"), 5,
       "Invalid attibute \"file\"\n in file: \"test.xmc\""},
      {"other attribute of an include", xmc("<include name=\"a\"/>"), 5,
       "Invalid attibute \"name\"\n in file: \"test.xmc\""},
      {"include of a missing file", xmc("<include file=\"/no/such/file.xmc\"/>"), 3,
       "File \"/no/such/file.xmc\" was not found on disk\n in file: \"test.xmc\""},
  };
  for (const auto& row : rows) {
    const reading result = read(row.text);
    EXPECT_EQ(result.error.type(), row.type) << row.construct;
    EXPECT_EQ(words(result.error), row.words) << row.construct;
  }
}

TEST(xmc_file_loader, takes_both_versions) {
  for (const char* version : {"1.0", "1.1"}) {
    const reading result = read(ustring8("<?xml?><xmc version='") + version + "'>" +
                                app("de", "<msg name='m'>x</msg>") + "</xmc>");
    EXPECT_EQ(result.error.type(), load_error::no_error) << version;
    EXPECT_EQ(result.stored, 1u) << version;
  }
}

TEST(xmc_file_loader, skips_comments_space_and_text_between_elements) {
  const reading result = read(
      "<?xml?> text <!-- a --> <xmc version='1.1'><!-- b --> text <catalog name='app' lang='de'><!-- c "
      "-->\n\n text "
      "<msg name='m'><!-- d -->x</msg><!-- e -->  text  </catalog><!-- f --> text  </xmc> text <!-- g -->");
  EXPECT_EQ(words(result.error), "No Error");
  EXPECT_EQ(pieces(result.message("m")), "T[x]");
}

TEST(xmc_file_loader, takes_a_comment_right_after_a_start_tag) {
  const reading result = read(
      "<?xml?><xmc version='1.1'><!-- a --><!-- b --><catalog name='app' lang='de'><!-- c --><msg "
      "name='m'><!-- d "
      "--><br><!-- e --></br><arg name='n'><!-- f --></arg></msg></catalog></xmc>");
  EXPECT_EQ(words(result.error), "No Error");
  EXPECT_EQ(pieces(result.message("m")), "T[\n]P[n]");
}

TEST(xmc_file_loader, ignores_text_after_the_root_element) {
  EXPECT_EQ(read(xmc(app("de", "")) + "</xmc>").error.type(), load_error::xml_parse_error);
  EXPECT_EQ(words(read(xmc(app("de", "")) + " text").error), "No Error");
}

TEST(xmc_file_loader, skips_an_unwanted_catalog_without_looking_at_its_messages) {
  const struct {
    const char* construct;
    ustring8 catalog;
  } rows[] = {
      {"invalid element", app("fr", "<foo><bar a=\"b\"/></foo>")},
      {"invalid attribute of a message", app("fr", "<msg id=\"1\"/>")},
      {"catalog within", app("fr", app("de", "<msg name=\"m\">y</msg>") + "<foo/>")},
      {"no language", "<catalog name=\"app\"><foo/></catalog>"},
      {"empty element", "<catalog name=\"app\" lang=\"fr\"/>"},
  };
  for (const auto& row : rows) {
    const reading result = read(xmc(row.catalog + app("de", "<msg name=\"m\">x</msg>")));
    EXPECT_EQ(words(result.error), "No Error") << row.construct;
    EXPECT_EQ(pieces(result.message("m")), "T[x]") << row.construct;
  }
}

TEST(xmc_file_loader, still_checks_the_attributes_of_an_unwanted_catalog) {
  EXPECT_EQ(read(xmc("<catalog lang='fr' size='1'/>")).error.type(), load_error::invalid_attribute);
}

TEST(xmc_file_loader, counts_a_wanted_catalog_without_messages_as_read) {
  const reading result = read(xmc(app("de", "")));
  EXPECT_EQ(result.error.type(), load_error::no_error);
  EXPECT_EQ(result.stored, 0u);
  ASSERT_EQ(result.catalogs.count("app"), 1u);
  EXPECT_EQ(result.catalogs.at("app")->size(), 0u);
  EXPECT_EQ(result.catalogs.at("app")->name(), "app");
}

TEST(xmc_file_loader, keeps_the_most_specific_language_whichever_comes_first) {
  const ustring8 german = app("de", "<msg name=\"m\">ja</msg>");
  const ustring8 english = app("en", "<msg name=\"m\">yes</msg><msg name=\"only_en\">y</msg>");
  for (const ustring8& content : {german + english, english + german}) {
    const reading result = read(xmc(content));
    EXPECT_EQ(result.message("m").as_utf8(), "ja");
    EXPECT_EQ(result.message("m")._orginal_locale(), "de");
    EXPECT_EQ(result.message("only_en").as_utf8(), "y");
    EXPECT_EQ(result.stored, 2u);
  }
}

TEST(xmc_file_loader, first_of_equals_stays_within_a_load) {
  EXPECT_EQ(read(xmc(app("de", "<msg name='m'>1</msg><msg name='m'>2</msg>"))).message("m").as_utf8(), "1");
  EXPECT_EQ(read(xmc(app("de", "<msg name='m'>1</msg>") + app("de", "<msg name='m'>2</msg>")))
                .message("m")
                .as_utf8(),
            "1");
  // Two spellings of one language have the same weight.
  const ustring8 two = app("de-DE", "<msg name='m'>1</msg>") + app("de_DE", "<msg name='m'>2</msg>");
  EXPECT_EQ(read(xmc(two), "de_DE").message("m").as_utf8(), "1");
}

TEST(xmc_file_loader, keeps_the_language_as_the_file_spells_it) {
  EXPECT_EQ(read(xmc(app("de-DE", "<msg name='m'>1</msg>")), "de_DE").message("m")._orginal_locale(),
            "de-DE");
}

TEST(xmc_file_loader, keeps_what_was_read_before_an_error) {
  const reading result = read(xmc(app("de", "<msg name='a'>1</msg><msg name='b'>2</msg><foo/>")));
  EXPECT_EQ(result.error.type(), load_error::catalog_end_missing);
  EXPECT_EQ(result.stored, 2u);
}

TEST(xmc_file_loader, reset_forgets_what_was_read_but_not_the_languages) {
  xmc_file_loader loader;
  loader.handle_language("de");
  EXPECT_EQ(loader.parse_string(xmc(app("de", "<msg name='m'>1</msg>")), "a").type(), load_error::no_error);
  // Catalogs of an earlier text count: only a loader without any catalog reports an error.
  EXPECT_EQ(loader.parse_string(xmc(""), "b").type(), load_error::no_error);
  loader.reset();
  EXPECT_EQ(loader.parse_string(xmc(""), "b").type(), load_error::no_catalog);
  EXPECT_TRUE(loader.is_lang_id_good("de"));
  xmc_file_loader::catalog_map catalogs;
  EXPECT_EQ(loader.combine_data(catalogs), 0u);
  EXPECT_TRUE(catalogs.empty());
}

TEST(xmc_file_loader, set_message_follows_the_rule_of_a_load) {
  xmc_file_loader loader;
  loader.handle_language("de");
  const auto message = [](const char* text, const char* locale) {
    return message_t("m", {message_item(text)}, "", locale);
  };
  loader.set_message(message("1", "en"), "app");
  loader.set_message(message("2", "en"), "app");
  xmc_file_loader::catalog_map catalogs;
  EXPECT_EQ(loader.combine_data(catalogs), 1u);
  EXPECT_EQ(catalogs.at("app")->message("m").as_utf8(), "1");
  loader.set_message(message("3", "de"), "app");
  loader.set_message(message("4", "en"), "app");
  EXPECT_EQ(loader.combine_data(catalogs), 1u);
  EXPECT_EQ(catalogs.at("app")->message("m").as_utf8(), "3");
}

TEST(xmc_file_loader, restricts_a_load_to_one_catalog) {
  xmc_file_loader loader;
  EXPECT_FALSE(loader.is_cat_id_set());
  EXPECT_TRUE(loader.is_catalog_matched("any"));
  EXPECT_EQ(loader.parse("/no/such/file.xmc", "de", "app").type(), load_error::file_not_found);
  EXPECT_TRUE(loader.is_cat_id_set());
  EXPECT_TRUE(loader.is_catalog_matched("app"));
  EXPECT_FALSE(loader.is_catalog_matched("APP"));
  EXPECT_FALSE(loader.is_catalog_matched(""));
  const ustring8 other = "<catalog name='other' lang='de'><foo/></catalog>";
  EXPECT_EQ(loader.parse_string(xmc(other), "a").type(), load_error::no_catalog);
  EXPECT_EQ(loader.parse_string(xmc(other + app("de", "<msg name='m'>1</msg>")), "a").type(),
            load_error::no_error);
  xmc_file_loader::catalog_map catalogs;
  EXPECT_EQ(loader.combine_data(catalogs), 1u);
  EXPECT_EQ(catalogs.count("other"), 0u);
}

TEST(xmc_file_loader, finds_no_catalog_before_a_language_was_set) {
  const temporary_directory directory;
  const ustring8 text =
      xmc(app("en", "<msg name='m'>1</msg>") + app(".", "<msg name='m'>2</msg>") + app("", ""));
  const std::string file = directory.write("a.xmc", text);
  xmc_file_loader loader;
  EXPECT_EQ(loader.parse_string(text, "a").type(), load_error::no_catalog);
  EXPECT_EQ(loader.parse_file(file).type(), load_error::no_catalog);
  EXPECT_EQ(loader.parse(file).type(), load_error::no_error);
  EXPECT_EQ(loader.get_locale_weight("en"), 2u);
}

TEST(xmc_file_loader, load_without_a_catalog_name_keeps_the_one_before) {
  const temporary_directory directory;
  const std::string file =
      directory.write("a.xmc", xmc("<catalog name='other' lang='de'/>" + app("de", "<msg name='m'>1</msg>")));
  xmc_file_loader loader;
  EXPECT_EQ(loader.parse(file, "de", "other").type(), load_error::no_error);
  loader.reset();
  EXPECT_EQ(loader.parse(file, "de").type(), load_error::no_error);
  EXPECT_TRUE(loader.is_catalog_matched("other"));
  EXPECT_FALSE(loader.is_catalog_matched("app"));
  xmc_file_loader::catalog_map catalogs;
  EXPECT_EQ(loader.combine_data(catalogs), 0u);
  EXPECT_EQ(catalogs.count("app"), 0u);
  EXPECT_EQ(loader.parse(file, "de", "").type(), load_error::no_error);
  EXPECT_FALSE(loader.is_cat_id_set());
}

TEST(xmc_file_loader, refuses_an_empty_language_before_looking_at_the_file) {
  xmc_file_loader loader;
  EXPECT_EQ(words(loader.parse("/no/such/file.xmc", "")), "Default locale lookup not supported yet");
  EXPECT_EQ(loader.parse("/no/such/file.xmc", "", "app").type(), load_error::no_default_locale);
  EXPECT_FALSE(loader.is_cat_id_set());
}

/// A loader with public functions for the elements.
class open_loader : public xmc_file_loader {
 public:
  using token = xmc_file_loader::token;
  using xmc_file_loader::parse_catalog;
  using xmc_file_loader::parse_ignorable;
  using xmc_file_loader::parse_include;
  using xmc_file_loader::parse_message;
  using xmc_file_loader::parse_message_arg;
  using xmc_file_loader::parse_message_type;
  using xmc_file_loader::parse_xmc_header;
};

TEST(xmc_file_loader, knows_the_type_words) {
  const struct {
    const char* word;
    message_item::type_t type;
  } rows[] = {
      {"string", message_item::string},
      {"value", message_item::text},
      {"number", message_item::number},
      {"int", message_item::integer},
      {"double", message_item::real},
      {"time", message_item::time},
      {"date", message_item::date},
      {"memory", message_item::memory},
      {"mem", message_item::memory},
      {"memory_unit", message_item::memory_unit},
      {"mem_unit", message_item::memory_unit},
      {"metric", message_item::metric},
      {"metric_unit", message_item::metric_unit},
      {"duration", message_item::duration},
      {"", message_item::string},
      {"integer", message_item::string},
      {"Date", message_item::string},
      {"memo", message_item::string},
      {"mem ", message_item::string},
      {"text", message_item::string},
  };
  const open_loader loader;
  for (const auto& row : rows) EXPECT_EQ(loader.parse_message_type(row.word), row.type) << row.word;
}

TEST(xmc_file_loader, survives_tokens_that_end_anywhere) {
  const ustring8 text =
      xmc("<!-- c -->" + app("de", "<msg name='m' meta='x'>a  <br/><arg name='n' type='int'/></msg>") +
          app("fr", "<msg/>"));
  xml_token_stream whole;
  ASSERT_EQ(whole.parse(text).type, ORVA_NAMESPACE::parser::xml_parser::parse_error::no_error);
  for (ORVA_NAMESPACE::types::uint32 first = 0; first < whole.size(); ++first) {
    for (ORVA_NAMESPACE::types::uint32 last = first + 1; last <= whole.size(); ++last) {
      const auto run = [&](auto&& read_element) {
        xml_token_stream tokens = whole;
        open_loader loader;
        loader.handle_language("de");
        auto it = std::next(tokens.begin(), first);
        try {
          read_element(loader, it, std::next(tokens.begin(), last));
        } catch (const load_error& error) {
          EXPECT_NE(error.type(), load_error::no_error);
        }
      };
      run([](open_loader& loader, auto it, auto end) { loader.parse_xmc_header(it, end); });
      run([](open_loader& loader, auto it, auto end) { loader.parse_catalog(it, end); });
      run([](open_loader& loader, auto it, auto end) { loader.parse_include(it, end); });
      run([](open_loader& loader, auto it, auto end) { loader.parse_message(it, end); });
      run([](open_loader& loader, auto it, auto end) { loader.parse_message_arg(it, end); });
      run([](open_loader& loader, auto it, auto end) { loader.parse_ignorable(it, end); });
    }
  }
}

TEST(xmc_file_loader, running_out_of_tokens_is_unexpected) {
  xml_token_stream tokens;
  open_loader loader;
  auto it = tokens.begin();
  try {
    loader.parse_xmc_header(it, tokens.end());
    FAIL() << "no error";
  } catch (const load_error& error) {
    EXPECT_EQ(error.type(), load_error::unexpected_parse_error);
    EXPECT_EQ(words(error), "Unexpected parse error happen!");
  }
}

TEST(xmc_file_loader, other_end_tag_in_a_message_is_reported) {
  using token = open_loader::token;
  xml_token_stream tokens;
  ASSERT_EQ(tokens.parse(xmc("<msg name='m'>x</msg>")).type,
            ORVA_NAMESPACE::parser::xml_parser::parse_error::no_error);
  auto it = std::find(tokens.begin(), tokens.end(), token(token::element_start, "msg"));
  *std::find(it, tokens.end(), token(token::element_end, "msg")) = token(token::element_end, "catalog");
  open_loader loader;
  try {
    loader.parse_message(it, tokens.end());
    FAIL() << "no error";
  } catch (const load_error& error) {
    EXPECT_EQ(words(error),
              "Expected msg (message) end tag not found for message \"m\"\n in message element: \"m\"");
  }
}

}  // namespace
