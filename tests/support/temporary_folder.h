#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>

namespace tamberline {

/// An empty folder for the running test, with a blank and a non-ASCII letter in its name.
class TemporaryFolder {
public:
  TemporaryFolder() {
    const testing::TestInfo* test = testing::UnitTest::GetInstance()->current_test_info();
    path_ = std::filesystem::path(testing::TempDir()) /
            ("tamberline ü " + std::to_string(getpid()) + " " + test->test_suite_name() + "." +
             test->name());
    std::filesystem::remove_all(path_);
    std::filesystem::create_directories(path_);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder() { std::filesystem::remove_all(path_); }

  const std::filesystem::path& path() const { return path_; }

  void save(const std::string& fileName, const std::string& content) const {
    std::ofstream(path_ / fileName, std::ios::binary) << content;
  }

private:
  std::filesystem::path path_;
};

} // namespace tamberline
