#pragma once

#include <gtest/gtest.h>

#include <sys/types.h>
#include <unistd.h>

namespace tamberline {

/// Drops root's privileges until the scope ends; does nothing for other users.
class AsOrdinaryPerson {
public:
  AsOrdinaryPerson() = default;
  AsOrdinaryPerson(const AsOrdinaryPerson&) = delete;
  AsOrdinaryPerson& operator=(const AsOrdinaryPerson&) = delete;
  ~AsOrdinaryPerson() { EXPECT_TRUE(!wasRoot_ || seteuid(0) == 0); }

  /// False in a namespace that has no users but root.
  bool isPossible() const { return isPossible_; }

private:
  static constexpr uid_t nobody = 65534;
  const bool wasRoot_ = geteuid() == 0;
  const bool isPossible_ = !wasRoot_ || seteuid(nobody) == 0;
};

} // namespace tamberline
