#include "platform/linux/sysfs/read/attribute_files.h"
#include "platform/linux/sysfs/read/plain_text.h"
#include "platform/linux/sysfs/sysfs_tree.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace tamberline::sysfs {
namespace {

using namespace std::string_literals;

TEST(PlainText, KeepsWhatEveryReportCanHold) {
  const struct {
    std::string bytes;
    std::string expected;
  } table[] = {
      {"Marble Stick\n", "Marble Stick"},
      {"  Küste 海  ", "Küste 海"},
      {"a\x1b[31m\tb\x7f", "a [31m b"},
      {"a\0b"s, "a b"},
      {"caf\xe9!", "caf\uFFFD!"},
      {"\xff\xfe", "\uFFFD\uFFFD"},
      {"x\uFFFEy\uFFFFz", "x\uFFFDy\uFFFDz"},
      {"\u0085next", "next"},
      {"\n\n", ""},
      {"", ""},
  };
  for (const auto& row : table) {
    EXPECT_EQ(plainText(row.bytes), row.expected);
  }
}

TEST(PlainText, UndoesTheEscapesOfLabelsAndMountPoints) {
  EXPECT_EQ(withoutHexEscapes(R"(Field\x20Notes\x5c)"), R"(Field Notes\)");
  EXPECT_EQ(withoutHexEscapes(R"(\x2 \xzz \x4)"), R"(\x2 \xzz \x4)");
  EXPECT_EQ(withoutHexEscapes(R"(\x-1)"), R"(\x-1)");
  EXPECT_EQ(withoutOctalEscapes(R"(/media/a\040b\134c\012)"), "/media/a b\\c\n");
  EXPECT_EQ(withoutOctalEscapes(R"(\777 \09 \04)"), R"(\777 \09 \04)");
}

TEST(AttributeFiles, AreReadAsTextNumberOrChoice) {
  const SysfsTree tree;
  tree.attributes("device", {{"text", " Fen "},
                             {"empty", ""},
                             {"current", "500mA"},
                             {"negative", "-12"},
                             {"word", "many"},
                             {"huge", "99999999999999999999"},
                             {"roles", "source [sink]"},
                             {"one", "[source]"},
                             {"plain", "dual"},
                             {"none", "source sink"},
                             {"turned", "]source["}});
  const auto file = [&](const char* name) { return tree.sysfs() / "device" / name; };
  EXPECT_EQ(readText(file("text")), "Fen");
  EXPECT_EQ(readText(file("empty")), std::nullopt);
  EXPECT_EQ(readText(file("missing")), std::nullopt);
  EXPECT_EQ(readNumber(file("current")), 500);
  EXPECT_EQ(readNumber(file("negative")), -12);
  EXPECT_EQ(readNumber(file("word")), std::nullopt);
  EXPECT_EQ(readNumber(file("huge")), std::nullopt);
  EXPECT_EQ(readNumber(file("missing")), std::nullopt);
  EXPECT_EQ(readChoice(file("roles")), "sink");
  EXPECT_EQ(readChoice(file("one")), "source");
  EXPECT_EQ(readChoice(file("plain")), "dual");
  EXPECT_EQ(readChoice(file("none")), "");
  EXPECT_EQ(readChoice(file("turned")), "]source[");
}

TEST(AttributeFiles, AreReadUpToAPage) {
  const SysfsTree tree;
  tree.attribute("long", std::string(1'000'000, 'x'));
  EXPECT_EQ(readTextOrNothing(tree.sysfs() / "long").size(), maxAttributeBytes);
}

TEST(AttributeFiles, ThatAreNotFilesAreEmpty) {
  const SysfsTree tree;
  tree.attribute("folder/entry", "");
  tree.link("loop", "loop");
  ASSERT_EQ(mkfifo((tree.sysfs() / "pipe").c_str(), 0600), 0);
  for (const char* name : {"folder", "loop", "pipe", "missing"}) {
    SCOPED_TRACE(name);
    EXPECT_EQ(readText(tree.sysfs() / name), std::nullopt);
  }
  EXPECT_EQ(namesIn(tree.sysfs() / "pipe"), std::vector<std::string>());
  EXPECT_EQ(namesIn(tree.sysfs() / "missing"), std::vector<std::string>());
  EXPECT_EQ(linkedName(tree.sysfs() / "folder"), std::nullopt);
  EXPECT_EQ(linkedName(tree.sysfs() / "loop"), "loop");
}

} // namespace
} // namespace tamberline::sysfs
