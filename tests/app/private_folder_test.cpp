#include "app/private_folder.h"
#include "platform/desktop.h"
#include "support/temporary_folder.h"

#include <QFileInfo>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <unistd.h>

namespace tamberline {
namespace {

namespace fs = std::filesystem;

class PrivateFolder : public testing::Test {
protected:
  QString parent() const { return QString::fromStdString(temporary.path().string()); }
  static fs::path pathOf(const QString& folder) { return folder.toStdString(); }

  TemporaryFolder temporary;
};

TEST_F(PrivateFolder, IsCreatedForTheOwnerOnly) {
  const fs::path folder = pathOf(privateFolderIn(parent()));
  EXPECT_EQ(folder.parent_path(), temporary.path());
  EXPECT_EQ(fs::status(folder).permissions(), fs::perms::owner_all);
}

TEST_F(PrivateFolder, IsUsedAgainAndClosedToOthers) {
  const QString folder = privateFolderIn(parent());
  fs::permissions(pathOf(folder), fs::perms::all);
  EXPECT_EQ(privateFolderIn(parent()), folder);
  EXPECT_EQ(fs::status(pathOf(folder)).permissions(), fs::perms::owner_all);
}

TEST_F(PrivateFolder, IsNoLinkToAnotherFolder) {
  const fs::path folder = pathOf(privateFolderIn(parent()));
  fs::remove(folder);
  fs::create_directory(temporary.path() / "elsewhere");
  fs::create_directory_symlink(temporary.path() / "elsewhere", folder);
  EXPECT_EQ(privateFolderIn(parent()), QString());
}

TEST_F(PrivateFolder, IsNoFile) {
  const fs::path folder = pathOf(privateFolderIn(parent()));
  fs::remove(folder);
  temporary.save(folder.filename().string(), "");
  EXPECT_EQ(privateFolderIn(parent()), QString());
}

TEST_F(PrivateFolder, IsUnavailableIfTheParentIsMissing) {
  EXPECT_EQ(privateFolderIn(parent() + "/missing"), QString());
}

/// Sets an environment variable, and restores it when the scope ends.
class EnvironmentScope {
public:
  EnvironmentScope(const char* name, const std::string& value)
      : name_(name), value_(qgetenv(name)), wasSet_(qEnvironmentVariableIsSet(name)) {
    qputenv(name, QByteArray::fromStdString(value));
  }
  EnvironmentScope(const EnvironmentScope&) = delete;
  EnvironmentScope& operator=(const EnvironmentScope&) = delete;
  ~EnvironmentScope() {
    if (wasSet_) {
      qputenv(name_, value_);
    } else {
      qunsetenv(name_);
    }
  }

private:
  const char* name_;
  QByteArray value_;
  bool wasSet_;
};

/// A folder that belongs to another user.
std::string homeOfSomebodyElse(const TemporaryFolder& temporary) {
  constexpr uid_t somebodyElse = 54321;
  return chown(temporary.path().c_str(), somebodyElse, static_cast<gid_t>(-1)) == 0
             ? temporary.path().string()
             : "/";
}

TEST_F(PrivateFolder, BelongsToTheUserOfTheProcessWhoeverOwnsTheHomeFolder) {
  const TemporaryFolder home;
  const EnvironmentScope environment("HOME", homeOfSomebodyElse(home));
  const std::string expected = "tamberline-" + std::to_string(geteuid());
  EXPECT_EQ(pathOf(privateFolderIn(parent())).filename(), expected);
}

TEST(RuntimeFolder, IsTheOneOfTheSystem) {
  const TemporaryFolder temporary;
  fs::permissions(temporary.path(), fs::perms::owner_all);
  const EnvironmentScope runtime("XDG_RUNTIME_DIR", temporary.path().string());
  EXPECT_EQ(runtimeFolder(systemRuntimeFolder()).toStdString(), temporary.path().string());
}

TEST(RuntimeFolder, IsAmongTheTemporaryFilesWithoutOneOfTheSystem) {
  const TemporaryFolder temporary;
  const EnvironmentScope runtime("XDG_RUNTIME_DIR", "/dev/null");
  const EnvironmentScope temporaryFiles("TMPDIR", temporary.path().string());
  EXPECT_EQ(fs::path(runtimeFolder(systemRuntimeFolder()).toStdString()).parent_path(),
            temporary.path());
}

} // namespace
} // namespace tamberline
