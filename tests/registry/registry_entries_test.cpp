#include "registry/decoded_list.h"
#include "registry/registry_entries.h"

#include <gtest/gtest.h>

#include <string>

namespace tamberline {
namespace {

/// The names of the visited entries, in order.
std::string visited(const std::string& content) {
  const PropertyList list = decodedList(content);
  std::string names;
  visitRegistryEntries(list.root(), [&](PropertyListValue entry) {
    names += entry.member("name").text().value_or("-") + " ";
  });
  return names;
}

std::string entry(const std::string& name, const std::string& children = "") {
  return "<dict><key>name</key><string>" + name +
         "</string><key>IORegistryEntryChildren</key><array>" + children + "</array></dict>";
}

TEST(RegistryEntries, AreVisitedBeforeTheirChildrenDepthFirst) {
  EXPECT_EQ(visited(entry("root", entry("a", entry("a1") + entry("a2")) + entry("b"))),
            "root a a1 a2 b ");
}

TEST(RegistryEntries, MayBeInAnArrayAtTheTop) {
  EXPECT_EQ(visited("<array>" + entry("a", entry("a1")) + entry("b") + "</array>"), "a a1 b ");
}

TEST(RegistryEntries, MayBeInNestedArrays) {
  EXPECT_EQ(visited("<array><array>" + entry("a") + "</array>" + entry("b") + "</array>"), "a b ");
  EXPECT_EQ(visited(entry("root", "<array>" + entry("a") + "</array>")), "root a ");
}

TEST(RegistryEntries, WithoutANameAreVisitedToo) {
  EXPECT_EQ(
      visited("<dict><key>IORegistryEntryChildren</key><array>" + entry("a") + "</array></dict>"),
      "- a ");
}

TEST(RegistryEntries, AreNotLookedForUnderOtherKeys) {
  EXPECT_EQ(visited("<dict><key>Other</key><array>" + entry("a") + "</array><key>Inner</key>" +
                    entry("b") + "</dict>"),
            "- ");
}

TEST(RegistryEntries, AreNoneUnderChildrenThatAreNoArray) {
  EXPECT_EQ(visited("<dict><key>IORegistryEntryChildren</key>" + entry("a") + "</dict>"), "- ");
  EXPECT_EQ(visited("<dict><key>IORegistryEntryChildren</key><string>a</string></dict>"), "- ");
}

TEST(RegistryEntries, AreNoneInOtherValues) {
  EXPECT_EQ(visited("<string>a</string>"), "");
  EXPECT_EQ(visited("<array><string>a</string><integer>1</integer><true/></array>"), "");
  EXPECT_EQ(visited("<array/>"), "");
}

} // namespace
} // namespace tamberline
