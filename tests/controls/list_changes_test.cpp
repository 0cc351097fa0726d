#include "controls/list_changes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <random>
#include <string>
#include <vector>

namespace tamberline {
namespace {

using Keys = std::vector<std::string>;

/// One key for each letter.
Keys keysOf(const std::string& letters) {
  Keys keys;
  for (const char letter : letters) {
    keys.emplace_back(1, letter);
  }
  return keys;
}

std::string textOf(const std::vector<ListChange>& changes) {
  std::string text;
  for (const ListChange& change : changes) {
    text += text.empty() ? "" : ", ";
    switch (change.kind) {
    case ListChange::Kind::remove:
      text += "remove ";
      break;
    case ListChange::Kind::insert:
      text += "insert ";
      break;
    case ListChange::Kind::move:
      text += "move ";
      break;
    }
    text += std::to_string(change.count) + " at " + std::to_string(change.first);
    if (change.kind == ListChange::Kind::move) {
      text += " to " + std::to_string(change.to);
    }
  }
  return text;
}

/// Applies the changes like a view of the list. Everything inserted must be in the new list, and
/// everything else in the old one.
Keys applied(const std::vector<ListChange>& changes, Keys list, const Keys& after) {
  const auto at = [](auto begin, std::size_t offset) {
    return begin + static_cast<std::ptrdiff_t>(offset);
  };
  for (const ListChange& change : changes) {
    const auto first = at(list.begin(), change.first);
    switch (change.kind) {
    case ListChange::Kind::remove:
      EXPECT_LE(change.first + change.count, list.size());
      list.erase(first, at(first, change.count));
      break;
    case ListChange::Kind::move:
      EXPECT_LT(change.to, change.first);
      EXPECT_LE(change.first + change.count, list.size());
      std::rotate(at(list.begin(), change.to), first, at(first, change.count));
      break;
    case ListChange::Kind::insert:
      EXPECT_EQ(change.to, change.first);
      EXPECT_LE(change.first, list.size());
      EXPECT_LE(change.to + change.count, after.size());
      list.insert(first, at(after.begin(), change.to), at(after.begin(), change.to + change.count));
      break;
    }
    EXPECT_GT(change.count, 0U);
  }
  return list;
}

TEST(ListChanges, AreTheFewestInSimpleCases) {
  const struct {
    const char* before;
    const char* after;
    const char* changes;
  } rows[] = {
      {"", "", ""},
      {"abc", "abc", ""},
      {"aabba", "aabba", ""},
      {"", "abc", "insert 3 at 0"},
      {"abc", "", "remove 3 at 0"},
      {"abc", "xabc", "insert 1 at 0"},
      {"abc", "abxyc", "insert 2 at 2"},
      {"abc", "abcx", "insert 1 at 3"},
      {"abc", "xaybz", "remove 1 at 2, insert 1 at 0, insert 1 at 2, insert 1 at 4"},
      {"abcde", "abe", "remove 2 at 2"},
      {"abcde", "bd", "remove 1 at 4, remove 1 at 2, remove 1 at 0"},
      {"abc", "axc", "remove 1 at 1, insert 1 at 1"},
      {"abcdef", "defabc", "move 3 at 3 to 0"},
      {"abcdef", "bcdefa", "move 5 at 1 to 0"},
      {"abcdef", "fabcde", "move 1 at 5 to 0"},
      {"abcdef", "afbcde", "move 1 at 5 to 1"},
      {"abcdef", "adebcf", "move 2 at 3 to 1"},
      {"abcd", "dcba", "move 1 at 3 to 0, move 1 at 3 to 1, move 1 at 3 to 2"},
      {"abcdef", "efxad", "remove 2 at 1, move 2 at 2 to 0, insert 1 at 2"},
      {"aa", "aaa", "insert 1 at 2"},
      {"aaa", "a", "remove 2 at 1"},
      {"aba", "aab", "move 1 at 2 to 1"},
      {"ab", "cd", "remove 2 at 0, insert 2 at 0"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(testing::Message() << row.before << " to " << row.after);
    const std::vector<ListChange> changes = listChanges(keysOf(row.before), keysOf(row.after));
    EXPECT_EQ(textOf(changes), row.changes);
    EXPECT_EQ(applied(changes, keysOf(row.before), keysOf(row.after)), keysOf(row.after));
  }
}

TEST(ListChanges, LeadFromAnyListToAnyOther) {
  std::mt19937 random(20'240); // NOLINT: the same pairs in every run
  const auto upTo = [&](std::size_t most) {
    return std::uniform_int_distribution<std::size_t>(0, most)(random);
  };
  for (int pair = 0; pair < 1000; ++pair) {
    const std::size_t alphabet = 1 + upTo(60);
    const auto randomKeys = [&] {
      Keys keys(upTo(40));
      std::generate(keys.begin(), keys.end(), [&] { return std::to_string(upTo(alphabet)); });
      return keys;
    };
    const Keys before = randomKeys();
    const Keys after = randomKeys();
    ASSERT_EQ(applied(listChanges(before, after), before, after), after) << "pair " << pair;
    ASSERT_TRUE(listChanges(after, after).empty());
  }
}

TEST(ListChanges, LeadToAnyOrder) {
  std::mt19937 random(7); // NOLINT: the same orders in every run
  const Keys before = keysOf("abcdefghijklmnopqrstuvwxyz");
  for (int order = 0; order < 100; ++order) {
    Keys after = before;
    std::shuffle(after.begin(), after.end(), random);
    const std::vector<ListChange> changes = listChanges(before, after);
    ASSERT_EQ(applied(changes, before, after), after);
    ASSERT_TRUE(std::all_of(changes.begin(), changes.end(), [](const ListChange& change) {
      return change.kind == ListChange::Kind::move;
    })) << "what is in both lists stays";
  }
}

Keys numbers(std::size_t count) {
  Keys keys;
  for (std::size_t number = 0; number < count; ++number) {
    keys.push_back(std::to_string(number));
  }
  return keys;
}

TEST(ListChanges, StartOverWhenTheOrderIsAnother) {
  const Keys before = numbers(5000);
  const Keys after(before.rbegin(), before.rend());
  EXPECT_EQ(textOf(listChanges(before, after)), "remove 5000 at 0, insert 5000 at 0");
}

TEST(ListChanges, DoNotStartOverForOneMoveInALongList) {
  const Keys before = numbers(5000);
  Keys after = before;
  std::rotate(after.begin(), after.begin() + 1, after.end());
  EXPECT_EQ(textOf(listChanges(before, after)), "move 4999 at 1 to 0");
}

} // namespace
} // namespace tamberline
