#include "registry/decoded_list.h"
#include "registry/property_list.h"
#include "support/property_list_text.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>

namespace tamberline {
namespace {

bool decodes(std::string_view bytes) {
  return PropertyList::decode(std::string(bytes)).has_value();
}

struct Bytes {
  const char* what;
  std::string_view bytes;
};

TEST(PropertyList, AcceptsWellFormedLists) {
  constexpr Bytes lists[] = {
      {"no XML declaration", "<plist><dict/></plist>"},
      {"an empty list of values", R"(<plist version="1.0"><array></array></plist>)"},
      {"a declaration", R"(<?xml version="1.0" encoding="UTF-8"?><plist><true/></plist>)"},
      {"white space around", "\n <plist>\n\t<dict>\n</dict> </plist>\n\n"},
      {"a byte order mark", "\xEF\xBB\xBF<plist><dict/></plist>"},
      {"a comment before", "<!-- dump --><plist><dict/></plist>"},
      {"a comment behind", "<plist><dict/></plist><!-- dump -->"},
      {"a comment inside", "<plist><!-- a --><dict><!-- b --></dict><!-- c --></plist>"},
      {"a text at the root", "<plist><string>text</string></plist>"},
      {"an integer at the root", "<plist><integer>5</integer></plist>"},
      {"data at the root", "<plist><data>AQ==</data></plist>"},
      {"a real number", "<plist><real>1.5</real></plist>"},
      {"a date", "<plist><date>2024-01-01T00:00:00Z</date></plist>"},
      {"a comment between key and value",
       "<plist><dict><key>a</key><!-- c --><true/></dict></plist>"},
  };
  for (const auto& [what, bytes] : lists) {
    SCOPED_TRACE(what);
    EXPECT_TRUE(decodes(bytes));
  }
}

TEST(PropertyList, RejectsOtherText) {
  constexpr Bytes texts[] = {
      {"empty output", ""},
      {"white space", " \n"},
      {"no XML", "ioreg: error"},
      {"JSON", R"({"a": 1})"},
      {"a binary list", "bplist00\xD1\x01\x02"},
      {"only a declaration", R"(<?xml version="1.0"?>)"},
      {"only a comment", "<!-- nothing -->"},
      {"another element at the root", "<dict><key>a</key><true/></dict>"},
      {"another name at the root", "<html><dict/></html>"},
      {"the name in upper case", "<PLIST><dict/></PLIST>"},
      {"a list without value", "<plist/>"},
      {"a list with nothing but white space", "<plist> \n</plist>"},
      {"a list with nothing but text", "<plist>text</plist>"},
      {"a list with two values", "<plist><dict/><dict/></plist>"},
      {"two lists", "<plist><dict/></plist><plist><dict/></plist>"},
      {"another element behind", "<plist><dict/></plist><dict/>"},
      {"a letter behind", "<plist><dict/></plist>x"},
      {"a bracket behind", "<plist><dict/></plist>>"},
      {"another element before", "<dict/><plist><dict/></plist>"},
      {"text before", "warning <plist><dict/></plist>"},
      {"text behind", "<plist><dict/></plist> warning"},
      {"text beside the value", "<plist>junk<dict/></plist>"},
      {"a character section behind", "<plist><dict/></plist><![CDATA[x]]>"},
  };
  for (const auto& [what, bytes] : texts) {
    SCOPED_TRACE(what);
    EXPECT_FALSE(decodes(bytes));
  }
}

TEST(PropertyList, RefusesTruncatedAndMismatchedElements) {
  constexpr Bytes texts[] = {
      {"a list that is cut short", "<plist><dict><key>a</key>"},
      {"a tag that is cut short", "<plist><dict/></pli"},
      {"an open list", "<plist><dict/>"},
      {"an open text", "<plist><string>text</plist>"},
      {"elements that cross", "<plist><dict><array></dict></array></plist>"},
      {"a closing tag too many", "<plist><dict/></dict></plist>"},
      {"an open comment", "<plist><dict/><!-- </plist>"},
  };
  for (const auto& [what, bytes] : texts) {
    SCOPED_TRACE(what);
    EXPECT_FALSE(decodes(bytes));
  }
}

TEST(PropertyList, RejectsInvalidValues) {
  constexpr std::string_view values[] = {
      "<number>5</number>",
      "<String>text</String>",
      "<key>a</key>",
      "<string><integer>1</integer></string>",
      "<true><true/></true>",
      "<array>junk</array>",
      "<array><true/>junk</array>",
      "<dict>junk<key>a</key><true/></dict>",
      "<plist><true/></plist>",
      "<array><unknown/></array>",
      "<dict><key>a</key><unknown/></dict>",
      "<array><dict><key>a</key><array><null/></array></dict></array>",
  };
  for (const std::string_view value : values) {
    SCOPED_TRACE(value);
    EXPECT_FALSE(decodes(propertyList(std::string(value))));
  }
}

TEST(PropertyList, RefusesKeysAndValuesThatDoNotPair) {
  constexpr std::string_view dictionaries[] = {
      "<dict><key>a</key></dict>",
      "<dict><key>a</key><true/><key>b</key></dict>",
      "<dict><true/></dict>",
      "<dict><true/><key>a</key></dict>",
      "<dict><key>a</key><key>b</key></dict>",
      "<dict><key>a</key><true/><false/></dict>",
      "<dict><string>a</string><true/></dict>",
      "<array><key>a</key><true/></array>",
  };
  for (const std::string_view dictionary : dictionaries) {
    SCOPED_TRACE(dictionary);
    EXPECT_FALSE(decodes(propertyList(std::string(dictionary))));
  }
}

TEST(PropertyList, RejectsInvalidIntegers) {
  for (const std::string content : {"", " ", "-", "+", "0x", "-0x", "five", "1.5", "1e3", "5 5",
                                    "--5", "+-5", "- 5", "0xg", "ff", "1,000"}) {
    SCOPED_TRACE(content);
    EXPECT_FALSE(decodes(propertyList("<integer>" + content + "</integer>")));
  }
  EXPECT_FALSE(decodes(propertyList("<integer/>")));
}

TEST(PropertyList, RefusesNulBytes) {
  using namespace std::string_view_literals;
  EXPECT_FALSE(decodes("<plist><string>a\0b</string></plist>"sv));
  EXPECT_FALSE(decodes("<plist><dict/></plist>\0"sv));
  EXPECT_FALSE(decodes("<plist><dict/></plist>\0garbage"sv));
  EXPECT_FALSE(decodes("\0<plist><dict/></plist>"sv));
  EXPECT_FALSE(decodes("<\0p\0l\0i\0s\0t\0/\0>\0"sv));
}

TEST(PropertyList, RefusesInvalidUtf8) {
  EXPECT_FALSE(decodes("<plist><string>\xFF</string></plist>"));
  EXPECT_FALSE(decodes("<plist><string>Ger\xE4t</string></plist>"));
  EXPECT_FALSE(decodes("<plist><string>\xED\xA0\x80</string></plist>"));
  EXPECT_FALSE(decodes("<plist><string>\xC0\xAF</string></plist>"));
  EXPECT_FALSE(decodes("<plist><dict/></plist><!-- \xFF -->"));
}

TEST(PropertyList, RejectsReferencesToInvalidCharacters) {
  for (const std::string reference :
       {"&#0;", "&#x0;", "&#xD800;", "&#xDFFF;", "&#55296;", "&#x110000;", "&#xFFFFFFFF;"}) {
    SCOPED_TRACE(reference);
    EXPECT_FALSE(decodes(propertyList("<string>a" + reference + "b</string>")));
  }
}

TEST(PropertyList, RejectsThemEvenAfterWhatLooksLikeAComment) {
  const std::string list = "<string>a&#xD800;b</string></plist>";
  EXPECT_FALSE(decodes("<?instruction <!-- ?><plist>" + list));
  EXPECT_FALSE(decodes("<?instruction <![CDATA[ ?><plist>" + list));
  EXPECT_FALSE(decodes(R"(<!DOCTYPE plist SYSTEM "<!--"><plist>)" + list));
  EXPECT_FALSE(decodes(R"(<plist version="<!--">)" + list));
}

std::string repeated(std::string_view text, int count) {
  std::string result;
  for (int index = 0; index < count; ++index) {
    result += text;
  }
  return result;
}

std::string nestedArrays(int depth) {
  return repeated("<array>", depth) + repeated("</array>", depth);
}

std::string nestedDictionaries(int depth) {
  return repeated("<dict><key>a</key>", depth) + "<true/>" + repeated("</dict>", depth);
}

TEST(PropertyList, AcceptsTheDeepestNesting) {
  EXPECT_TRUE(decodes(propertyList(nestedArrays(PropertyList::maxNesting))));
  EXPECT_TRUE(decodes(propertyList(nestedDictionaries(PropertyList::maxNesting))));
}

TEST(PropertyList, RefusesDeeperNesting) {
  for (const int depth : {PropertyList::maxNesting + 1, 100'000}) {
    SCOPED_TRACE(depth);
    EXPECT_FALSE(decodes(propertyList(nestedArrays(depth))));
    EXPECT_FALSE(decodes(propertyList(nestedDictionaries(depth))));
  }
}

TEST(PropertyList, RefusesDeepNestingThatIsCutShort) {
  EXPECT_FALSE(decodes("<plist>" + repeated("<array>", 100'000)));
  EXPECT_FALSE(decodes(repeated("<plist>", 100'000)));
}

TEST(PropertyListAcceptance, RefusesMoreTagsThanAnyRegistryHas) {
  constexpr int around = 4; // for the list and the array
  const auto listOfTags = [](int count) {
    return "<plist><array>" + repeated("<true/>", count - around) + "</array></plist>";
  };
  constexpr auto most = static_cast<int>(PropertyList::maxTags);
  EXPECT_TRUE(decodes(listOfTags(most)));
  EXPECT_FALSE(decodes(listOfTags(most + 1)));
}

TEST(PropertyListAcceptance, RefusesALongerListThanAnyRegistryGives) {
  std::string list = "<plist><true/></plist>";
  list.resize(PropertyList::maxListBytes, ' ');
  EXPECT_TRUE(decodes(list));
  EXPECT_FALSE(decodes(list + " "));
}

TEST(PropertyList, CountsNestingAndNotNeighbours) {
  EXPECT_TRUE(decodes(propertyList("<array>" + repeated("<array/>", 10'000) + "</array>")));
}

TEST(PropertyList, RejectsItsOwnEntities) {
  EXPECT_FALSE(decodes(R"(<!DOCTYPE plist [<!ENTITY a "aaaaaaaaaa"><!ENTITY b "&a;&a;&a;&a;&a;">]>)"
                       "<plist><string>&b;</string></plist>"));
}

TEST(PropertyList, KeepsItsValuesWhenMoved) {
  PropertyList list = decodedList("<dict><key>a</key><string>text</string></dict>");
  const PropertyListValue value = list.root().member("a");
  const PropertyList moved = std::move(list);
  EXPECT_EQ(value.text(), "text");
  PropertyList assigned = decodedList("<true/>");
  assigned = decodedList("<string>other</string>");
  EXPECT_EQ(assigned.root().text(), "other");
  EXPECT_EQ(moved.root().member("a").text(), "text");
}

} // namespace
} // namespace tamberline
