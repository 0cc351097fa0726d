#include "registry/xml_references.h"

#include <gtest/gtest.h>

#include <string_view>

namespace tamberline {
namespace {

TEST(XmlReferences, AreKnown) {
  constexpr std::string_view texts[] = {
      "",
      "no reference",
      "&amp;&lt;&gt;&quot;&apos;",
      "&#65;&#x41;&#xE4;&#x1F50C;",
      "&#9;&#10;&#13;",
      "&#xD7FF;&#xE000;&#xFFFD;&#x10000;&#x10FFFF;",
      "<!-- Q&A &nothing; --><a/>",
      "<![CDATA[Q&A &#0;]]><a/>",
      "<!-- open to the end &x",
  };
  for (const std::string_view text : texts) {
    SCOPED_TRACE(text);
    EXPECT_TRUE(hasOnlyKnownReferences(text));
  }
}

TEST(XmlReferences, AreRefused) {
  constexpr std::string_view texts[] = {
      "Q&A",
      "&",
      "&;",
      "&amp",
      "&AMP;",
      "&nbsp;",
      "&#;",
      "&#x;",
      "&#0;",
      "&#8;",
      "&#xD800;",
      "&#xDFFF;",
      "&#xFFFE;",
      "&#x110000;",
      "&#-1;",
      "&#99999999999999999999;",
      "<![CDATA[x]]>&b;",
      "<!-- x -->&b;",
      "<a>&amp;&b;</a>",
  };
  for (const std::string_view text : texts) {
    SCOPED_TRACE(text);
    EXPECT_FALSE(hasOnlyKnownReferences(text));
  }
}

} // namespace
} // namespace tamberline
