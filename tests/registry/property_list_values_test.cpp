#include "base/utf8.h"
#include "registry/decoded_list.h"
#include "support/process_locale_scope.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tamberline {
namespace {

using Data = std::vector<unsigned char>;

std::optional<std::string> textIn(const std::string& element) {
  return decodedList(element).root().text();
}

std::optional<std::int64_t> integerIn(const std::string& element) {
  return decodedList(element).root().integer();
}

std::optional<Data> dataIn(const std::string& content) {
  return decodedList("<data>" + content + "</data>").root().data();
}

struct Element {
  const char* element;
  std::string_view text;
};

TEST(PropertyListText, IsTheContentOfTheElement) {
  constexpr Element elements[] = {
      {"<string>port-usb-c@1</string>", "port-usb-c@1"},
      {"<string></string>", ""},
      {"<string/>", ""},
      {"<string>  two  blanks </string>", "  two  blanks "},
      {"<string> </string>", " "},
      {"<string>\n\t</string>", "\n\t"},
      {"<string>Gerät “磁気”</string>", "Gerät “磁気”"},
      {"<string>&lt;a&gt; &amp; &quot;b&quot; &apos;c&apos;</string>", "<a> & \"b\" 'c'"},
      {"<string>&amp;lt;</string>", "&lt;"},
      {"<string>&#65;&#x42;&#8230;</string>", "AB…"},
      {"<string><![CDATA[<a> & b]]></string>", "<a> & b"},
      {"<string>a<![CDATA[ <b> ]]>c</string>", "a <b> c"},
      {"<string>a<!-- comment -->b</string>", "ab"},
      {"<string><!-- comment --></string>", ""},
      {"<string>a <!-- one -->b<!-- two --> c</string>", "a b c"},
  };
  for (const auto& [element, text] : elements) {
    SCOPED_TRACE(element);
    EXPECT_EQ(textIn(element), text);
  }
}

struct Number {
  const char* content;
  std::int64_t value;
};

TEST(PropertyListInteger, IsNegativeIfItNeedsThe64thBitAndIsTakenAsWrapped) {
  const auto wrappedIn = [](const std::string& content) {
    return decodedList("<integer>" + content + "</integer>").root().wrappedInteger();
  };
  EXPECT_EQ(wrappedIn("18446744073709551615"), -1);
  EXPECT_EQ(wrappedIn("0xFFFFFFFFFFFFFFFF"), -1);
  EXPECT_EQ(wrappedIn("9223372036854775808"), std::numeric_limits<std::int64_t>::min());
  EXPECT_EQ(wrappedIn("9223372036854775807"), std::numeric_limits<std::int64_t>::max());
  EXPECT_EQ(wrappedIn("-1"), -1);
  EXPECT_EQ(wrappedIn(" +7 "), 7);
  EXPECT_EQ(wrappedIn("18446744073709551616"), std::nullopt);
  EXPECT_EQ(wrappedIn("-18446744073709551615"), std::nullopt);
  EXPECT_EQ(decodedList("<string>5</string>").root().wrappedInteger(), std::nullopt);
}

TEST(PropertyListInteger, IsDecimalOrHexadecimalWithAnOptionalSign) {
  constexpr Number numbers[] = {
      {"0", 0},
      {"5", 5},
      {"-1", -1},
      {"+7", 7},
      {"007", 7},
      {"-0", 0},
      {" 5\n", 5},
      {"0x1F", 0x1F},
      {"0X1f", 0x1F},
      {"-0x10", -16},
      {"+0x10", 16},
      {"4280287232", 4280287232},
      {"9223372036854775807", std::numeric_limits<std::int64_t>::max()},
      {"-9223372036854775808", std::numeric_limits<std::int64_t>::min()},
      {"0x7fffffffffffffff", std::numeric_limits<std::int64_t>::max()},
      {"-0x8000000000000000", std::numeric_limits<std::int64_t>::min()},
      {"00000000000000000000000000000005", 5},
      {"1<!-- comment -->2", 12},
  };
  for (const auto& [content, value] : numbers) {
    SCOPED_TRACE(content);
    EXPECT_EQ(integerIn("<integer>" + std::string(content) + "</integer>"), value);
  }
}

TEST(PropertyListInteger, IsAbsentBeyondSixtyFourSignedBits) {
  for (const std::string content :
       {"9223372036854775808", "18446744073709551615", "18446744073709551616",
        "-9223372036854775809", "0x8000000000000000", "0xffffffffffffffff", "-0x8000000000000001",
        "99999999999999999999999999999999"}) {
    SCOPED_TRACE(content);
    EXPECT_EQ(integerIn("<integer>" + content + "</integer>"), std::nullopt);
  }
}

TEST(PropertyListInteger, BeyondSixtyFourBitsLeavesItsNeighboursReadable) {
  const PropertyList list = decodedList("<array><integer>99999999999999999999</integer>"
                                        "<integer>5</integer></array>");
  EXPECT_EQ(list.root().elements().at(0).integer(), std::nullopt);
  EXPECT_EQ(list.root().elements().at(1).integer(), 5);
}

TEST(PropertyListBoolean, IsTrueOrFalse) {
  EXPECT_EQ(decodedList("<true/>").root().boolean(), true);
  EXPECT_EQ(decodedList("<false/>").root().boolean(), false);
  EXPECT_EQ(decodedList("<true></true>").root().boolean(), true);
}

TEST(PropertyListData, IsDecodedFromBase64) {
  EXPECT_EQ(dataIn("AQIDBA=="), (Data{1, 2, 3, 4}));
  EXPECT_EQ(dataIn("AQID"), (Data{1, 2, 3}));
  EXPECT_EQ(dataIn("AQI="), (Data{1, 2}));
  EXPECT_EQ(dataIn("AQ=="), (Data{1}));
  EXPECT_EQ(dataIn("AQ"), (Data{1}));
  EXPECT_EQ(dataIn("+/+/"), (Data{0xFB, 0xFF, 0xBF}));
  EXPECT_EQ(dataIn("AAAAAAAA/////w=="), (Data{0, 0, 0, 0, 0, 0, 0xFF, 0xFF, 0xFF, 0xFF}));
  EXPECT_EQ(dataIn(""), Data{});
  EXPECT_EQ(dataIn(" \n\t"), Data{});
}

TEST(PropertyListData, MayBeBrokenIntoLines) {
  EXPECT_EQ(dataIn("\n\t\tAQID\n\t\tBA==\n\t\t"), (Data{1, 2, 3, 4}));
  EXPECT_EQ(dataIn("A Q\r\nI D"), (Data{1, 2, 3}));
  EXPECT_EQ(dataIn("AQ<!-- comment -->ID"), (Data{1, 2, 3}));
}

TEST(PropertyListData, IsAbsentWithInvalidDigits) {
  for (const char* content : {"A*ID", "AQ-D", "AQ_D", "AQID.", "Ä", "0x01,"}) {
    SCOPED_TRACE(content);
    EXPECT_EQ(dataIn(content), std::nullopt);
  }
}

TEST(PropertyListDictionary, FindsValuesByTheirKeys) {
  const PropertyList list = decodedList("<dict><key>a</key><integer>1</integer>"
                                        "<key>b c</key><string>text</string>"
                                        "<key>&lt;d&gt;</key><true/>"
                                        "<key><![CDATA[&e]]></key><false/>"
                                        "<key></key><integer>2</integer>"
                                        "<key>f<!-- comment -->g</key><integer>3</integer>"
                                        "</dict>");
  EXPECT_EQ(list.root().member("a").integer(), 1);
  EXPECT_EQ(list.root().member("b c").text(), "text");
  EXPECT_EQ(list.root().member("<d>").boolean(), true);
  EXPECT_EQ(list.root().member("&e").boolean(), false);
  EXPECT_EQ(list.root().member("").integer(), 2);
  EXPECT_EQ(list.root().member("fg").integer(), 3);
}

TEST(PropertyListDictionary, HasNoOtherKeys) {
  const PropertyList list = decodedList("<dict><key>PortNumber</key><integer>1</integer>"
                                        "<key>inner</key><dict><key>deep</key><true/></dict>"
                                        "</dict>");
  for (const std::string_view key :
       {"portnumber", "Port", "PortNumber ", "PortNumber1", "", "1", "deep"}) {
    SCOPED_TRACE(key);
    EXPECT_EQ(list.root().member(key).integer(), std::nullopt);
    EXPECT_EQ(list.root().member(key).boolean(), std::nullopt);
  }
}

TEST(PropertyListDictionary, TakesTheLastOfEqualKeys) {
  const PropertyList list = decodedList("<dict><key>a</key><integer>1</integer>"
                                        "<key>b</key><integer>2</integer>"
                                        "<key>a</key><string>last</string></dict>");
  EXPECT_EQ(list.root().member("a").text(), "last");
  EXPECT_EQ(list.root().member("a").integer(), std::nullopt);
  EXPECT_EQ(list.root().member("b").integer(), 2);
}

TEST(PropertyListArray, HasItsElementsInOrder) {
  const PropertyList list = decodedList("<array><integer>3</integer> <!-- comment -->\n"
                                        "<string>a</string><array/><integer>1</integer></array>");
  const auto elements = list.root().elements();
  ASSERT_EQ(elements.size(), 4U);
  EXPECT_EQ(elements[0].integer(), 3);
  EXPECT_EQ(elements[1].text(), "a");
  EXPECT_TRUE(elements[2].isArray());
  EXPECT_TRUE(elements[2].elements().empty());
  EXPECT_EQ(elements[3].integer(), 1);
}

/// The types for which a value returns something, in a fixed order.
std::string answersOf(PropertyListValue value) {
  std::string answers;
  answers += value.isDictionary() ? "dictionary " : "";
  answers += value.isArray() ? "array " : "";
  answers += value.text() ? "text " : "";
  answers += value.integer() ? "integer " : "";
  answers += value.boolean() ? "boolean " : "";
  answers += value.data() ? "data " : "";
  answers += value.elements().empty() ? "" : "elements ";
  const PropertyListValue member = value.member("a");
  answers += member.isDictionary() || member.integer() ? "member " : "";
  return answers;
}

TEST(PropertyListValue, AnswersOnlyQuestionsOfItsType) {
  constexpr Element elements[] = {
      {"<string>5</string>", "text "},
      {"<string>true</string>", "text "},
      {"<integer>1</integer>", "integer "},
      {"<integer>0</integer>", "integer "},
      {"<true/>", "boolean "},
      {"<false/>", "boolean "},
      {"<data>AQ==</data>", "data "},
      {"<real>1</real>", ""},
      {"<date>2024-01-01T00:00:00Z</date>", ""},
      {"<array><integer>1</integer></array>", "array elements "},
      {"<array/>", "array "},
      {"<dict><key>a</key><integer>1</integer></dict>", "dictionary member "},
      {"<dict/>", "dictionary "},
  };
  for (const auto& [element, answers] : elements) {
    SCOPED_TRACE(element);
    EXPECT_EQ(answersOf(decodedList(element).root()), answers);
  }
}

TEST(PropertyListValue, OfNoTypeAnswersNothing) {
  EXPECT_EQ(answersOf(PropertyListValue()), "");
  EXPECT_EQ(answersOf(decodedList("<dict/>").root().member("missing").member("deeper")), "");
}

TEST(PropertyListValue, IsTheSameUnderALocaleWithADecimalComma) {
  const ProcessLocaleScope scope("de_DE.UTF-8");
  if (!scope.isSet()) {
    GTEST_SKIP() << "this system has no German locale";
  }
  const PropertyList list = decodedList("<array><integer>1234567</integer><real>1.5</real>"
                                        "<data>AQI=</data></array>");
  const auto elements = list.root().elements();
  EXPECT_EQ(elements.at(0).integer(), 1234567);
  EXPECT_EQ(answersOf(elements.at(1)), "");
  EXPECT_EQ(elements.at(2).data(), (Data{1, 2}));
}

} // namespace
} // namespace tamberline
