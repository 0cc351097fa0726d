#include "model/power_records.h"
#include "model/thunderbolt_records.h"
#include "scanner/observable_field.h"

#include <gtest/gtest.h>

#include <string>

namespace tamberline {
namespace {

TEST(ObservableField, NotifiesItsObserversOfAChange) {
  ObservableField<int> field(1);
  int seen = 0;
  const Observation observation = field.observe([&] { seen = field.get(); });
  field.set(2);
  EXPECT_EQ(seen, 2);
}

TEST(ObservableField, DoesNotNotifyWhenAComparableValueStaysTheSame) {
  ObservableField<std::optional<std::string>> field;
  int told = 0;
  const Observation observation = field.observe([&] { ++told; });
  field.set(std::nullopt);
  EXPECT_EQ(told, 0);
  field.set("a");
  field.set("a");
  EXPECT_EQ(told, 1);
}

TEST(ObservableField, ComparesRecordsThatHaveAnEquality) {
  ObservableField<std::vector<HPMPort>> field;
  int told = 0;
  const Observation observation = field.observe([&] { ++told; });
  field.set({HPMPort{.portNumber = 1}});
  field.set({HPMPort{.portNumber = 1}});
  EXPECT_EQ(told, 1);
  field.set({HPMPort{.portNumber = 2}});
  EXPECT_EQ(told, 2);
}

TEST(ObservableField, NotifiesOfEveryWriteOfValuesThatCannotBeCompared) {
  ObservableField<std::vector<ThunderboltBus>> field;
  int told = 0;
  const Observation observation = field.observe([&] { ++told; });
  field.set({});
  field.set({});
  EXPECT_EQ(told, 2);
}

TEST(ObservableField, NotifiesOnlyTheObserversOfThatField) {
  ObservableField<int> first;
  ObservableField<int> second;
  int told = 0;
  const Observation observation = second.observe([&] { ++told; });
  first.set(1);
  EXPECT_EQ(told, 0);
}

TEST(ObservableField, StopsNotifyingWhenTheObservationEnds) {
  ObservableField<int> field;
  int told = 0;
  {
    const Observation observation = field.observe([&] { ++told; });
    field.set(1);
  }
  field.set(2);
  EXPECT_EQ(told, 1);
}

TEST(ObservableField, MovesAnObservation) {
  ObservableField<int> field;
  int told = 0;
  Observation kept;
  {
    Observation observation = field.observe([&] { ++told; });
    kept = std::move(observation);
  }
  field.set(1);
  EXPECT_EQ(told, 1);
  const Observation last(std::move(kept));
  field.set(2);
  EXPECT_EQ(told, 2);
}

TEST(ObservableField, AllowsObserversToBeAddedAndRemovedDuringANotification) {
  ObservableField<int> field;
  std::string told;
  Observation later;
  auto first = std::make_unique<Observation>();
  Observation second = field.observe([&] {
    told += "b";
    first.reset();
  });
  *first = field.observe([&] { told += "a"; });
  const Observation third = field.observe([&] {
    told += "c";
    later = field.observe([&] { told += "d"; });
  });
  field.set(1);
  EXPECT_EQ(told, "bcd");
}

TEST(ObservableField, MayBeDestroyedBeforeItsObservation) {
  Observation observation;
  {
    ObservableField<int> field;
    observation = field.observe([] {});
  }
  observation = Observation();
}

TEST(ObservableField, MayBeWrittenByItsObserver) {
  ObservableField<int> field;
  int told = 0;
  const Observation observation = field.observe([&] {
    ++told;
    field.set(10);
  });
  field.set(1);
  EXPECT_EQ(field.get(), 10);
  EXPECT_EQ(told, 2);
}

TEST(ObservableField, RewritingNotifiesOnlyIfValuesCannotBeCompared) {
  struct Incomparable {};
  ObservableField<int> number;
  ObservableField<std::vector<Incomparable>> list;
  int notifications = 0;
  const Observation ofNumber = number.observe([&] { notifications += 1; });
  const Observation ofList = list.observe([&] { notifications += 10; });
  number.rewrite();
  list.rewrite();
  EXPECT_EQ(notifications, 10);
}

} // namespace
} // namespace tamberline
