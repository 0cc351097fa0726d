#include "platform/as_ordinary_person.h"
#include "platform/posix/descriptor.h"
#include "platform/posix/posix_volume_files.h"
#include "platform/process_resources.h"
#include "storage/benchmark.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <atomic>
#include <fcntl.h>
#include <iterator>
#include <memory>
#include <optional>
#include <span>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/un.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace tamberline {
namespace {

namespace fs = std::filesystem;

std::string contentOf(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

bool isError(const BenchmarkResult& result, BenchmarkError error) {
  return std::holds_alternative<BenchmarkError>(result) &&
         std::get<BenchmarkError>(result) == error;
}

const std::string name(Benchmark::fileName);

/// The file created in a folder; fails the test if it was not.
std::unique_ptr<VolumeFile> fileMadeIn(VolumeFolder& folder) {
  return std::get<std::unique_ptr<VolumeFile>>(folder.create(name));
}

/// The properties of a name, read without following or opening it.
struct Look {
  mode_t mode = 0;
  ino_t number = 0;
  nlink_t names = 0;
  off_t size = 0;
  std::string linkTarget;

  bool operator==(const Look&) const = default;
};

Look lookAt(const fs::path& path) {
  struct stat status = {};
  EXPECT_EQ(lstat(path.c_str(), &status), 0) << path;
  return {status.st_mode, status.st_ino, status.st_nlink, status.st_size,
          fs::is_symlink(path) ? fs::read_symlink(path).string() : ""};
}

/// A folder that stands for a volume, next to another user's file.
class PosixVolumeFilesTest : public testing::Test {
protected:
  PosixVolumeFilesTest() {
    fs::create_directory(volume_);
    fs::permissions(folder_.path(), fs::perms::all);
    fs::permissions(volume_, fs::perms::all);
    folder_.save("somebody's file", "somebody's content");
  }

  std::string mountPoint() const { return volume_.string(); }
  fs::path file() const { return volume_ / Benchmark::fileName; }
  std::unique_ptr<VolumeFolder> openVolume() const {
    return PosixVolumeFiles().openFolder(mountPoint());
  }

  /// The entry with the name must not change, and neither must the other user's file.
  void expectToBeLeftAlone() {
    const Look before = lookAt(file());
    EXPECT_TRUE(isError(benchmark_.writeSync(mountPoint(), 1), BenchmarkError::notWritable));
    EXPECT_TRUE(isError(benchmark_.readSync(mountPoint()), BenchmarkError::ioError));
    benchmark_.cleanup(mountPoint());
    EXPECT_EQ(lookAt(file()), before);
    EXPECT_EQ(contentOf(somebodysFile_), "somebody's content");
  }

  const TemporaryFolder folder_;
  const fs::path volume_ = folder_.path() / "volume";
  const fs::path somebodysFile_ = folder_.path() / "somebody's file";
  Benchmark benchmark_{std::make_shared<PosixVolumeFiles>()};
};

// --- names that are taken ---

TEST_F(PosixVolumeFilesTest, LeavesASymbolicLinkAndItsTargetAlone) {
  fs::create_symlink(somebodysFile_, file());
  expectToBeLeftAlone();
}

TEST_F(PosixVolumeFilesTest, MakesNoTargetForADanglingSymbolicLink) {
  fs::create_symlink(folder_.path() / "missing", file());
  expectToBeLeftAlone();
  EXPECT_FALSE(fs::exists(folder_.path() / "missing"));
}

TEST_F(PosixVolumeFilesTest, LeavesASymbolicLinkToItselfAlone) {
  fs::create_symlink(Benchmark::fileName, file());
  expectToBeLeftAlone();
}

TEST_F(PosixVolumeFilesTest, LeavesFoldersAlone) {
  fs::create_directory(file());
  expectToBeLeftAlone();
  folder_.save(fs::relative(file(), folder_.path()) / "inside", "content");
  expectToBeLeftAlone();
  EXPECT_EQ(contentOf(file() / "inside"), "content");
}

TEST_F(PosixVolumeFilesTest, DoesNotWaitAtAPipeWithoutAReader) {
  ASSERT_EQ(mkfifo(file().c_str(), 0600), 0);
  expectToBeLeftAlone();
}

TEST_F(PosixVolumeFilesTest, SendsNothingToTheReaderOfAPipe) {
  ASSERT_EQ(mkfifo(file().c_str(), 0600), 0);
  const Descriptor reader(open(file().c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  ASSERT_TRUE(reader.isOpen());
  expectToBeLeftAlone();
  char byte = 0;
  EXPECT_EQ(read(reader.number(), &byte, 1), 0);
}

TEST_F(PosixVolumeFilesTest, LeavesSocketsAlone) {
  const Descriptor parent(open(volume_.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  const std::string shortPath =
      "/proc/self/fd/" + std::to_string(parent.number()) + "/" + std::string(Benchmark::fileName);
  sockaddr_un address = {.sun_family = AF_UNIX, .sun_path = {}};
  ASSERT_LT(shortPath.copy(address.sun_path, sizeof(address.sun_path) - 1),
            sizeof(address.sun_path) - 1);
  const Descriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
  ASSERT_EQ(bind(socket.number(), reinterpret_cast<sockaddr*>(&address), sizeof(address)), 0);
  expectToBeLeftAlone();
}

TEST_F(PosixVolumeFilesTest, LeavesDevicesAlone) {
  constexpr unsigned memoryDevices = 1;
  constexpr unsigned nullDevice = 3;
  if (mknod(file().c_str(), S_IFCHR | 0600, makedev(memoryDevices, nullDevice)) != 0) {
    GTEST_SKIP() << "devices cannot be made here";
  }
  expectToBeLeftAlone();
}

TEST_F(PosixVolumeFilesTest, LeavesAFileThatHasAnotherNameTooAlone) {
  fs::create_hard_link(somebodysFile_, file());
  expectToBeLeftAlone();
}

TEST_F(PosixVolumeFilesTest, NeverWritesToAnEntryThatTakesTheNameAtTheLastMoment) {
  const fs::path link = folder_.path() / "link";
  std::atomic<bool> isOver = false;
  std::thread somebody([&] {
    while (!isOver) {
      fs::create_symlink(somebodysFile_, link);
      fs::rename(link, file());
      folder_.save("file", "");
      fs::rename(folder_.path() / "file", file());
      fs::create_hard_link(somebodysFile_, link);
      fs::rename(link, file());
      fs::remove(file());
    }
  });
  const std::unique_ptr<VolumeFolder> volume = openVolume();
  constexpr int attempts = 10'000;
  const std::vector<std::byte> bytes(1);
  int createdCount = 0;
  for (int attempt = 0; attempt < attempts; ++attempt) {
    const VolumeFolder::Created created = volume->create(name);
    const auto* opened = std::get_if<std::unique_ptr<VolumeFile>>(&created);
    createdCount += opened != nullptr && (*opened)->write(bytes) == 1 ? 1 : 0;
  }
  isOver = true;
  somebody.join();
  EXPECT_GT(createdCount, 0);
  EXPECT_EQ(contentOf(somebodysFile_), "somebody's content");
}

// --- files of earlier runs ---

TEST_F(PosixVolumeFilesTest, ReplacesAFileLeftByAnEarlierRunAndRemovesIt) {
  folder_.save("volume/" + std::string(Benchmark::fileName), std::string(3'000'000, 'x'));
  EXPECT_TRUE(std::holds_alternative<double>(benchmark_.writeSync(mountPoint(), 1)));
  EXPECT_EQ(fs::file_size(file()), 1'000'000U);
  benchmark_.cleanup(mountPoint());
  EXPECT_TRUE(fs::is_empty(volume_));
}

TEST_F(PosixVolumeFilesTest, ReplacesAReadOnlyFileLeftByAnEarlierRun) {
  folder_.save("volume/" + std::string(Benchmark::fileName), "left");
  fs::permissions(file(), fs::perms{0444});
  const AsOrdinaryPerson scope;
  if (!scope.isPossible()) {
    GTEST_SKIP() << "nobody is an ordinary person here";
  }
  EXPECT_TRUE(std::holds_alternative<double>(benchmark_.writeSync(mountPoint(), 1)));
  EXPECT_EQ(fs::file_size(file()), 1'000'000U);
}

TEST_F(PosixVolumeFilesTest, CannotWriteToAnotherUsersVolume) {
  fs::permissions(volume_, fs::perms{0555});
  const AsOrdinaryPerson scope;
  if (!scope.isPossible()) {
    GTEST_SKIP() << "nobody is an ordinary person here";
  }
  EXPECT_TRUE(isError(benchmark_.writeSync(mountPoint(), 1), BenchmarkError::noPermission));
  EXPECT_TRUE(fs::is_empty(volume_));
}

// --- mount points that are not volumes ---

/// Makes the folder the working directory until the scope ends.
class WorkingIn {
public:
  explicit WorkingIn(const fs::path& folder) { fs::current_path(folder); }
  WorkingIn(const WorkingIn&) = delete;
  WorkingIn& operator=(const WorkingIn&) = delete;
  ~WorkingIn() { fs::current_path(before_); }

private:
  const fs::path before_ = fs::current_path();
};

TEST_F(PosixVolumeFilesTest, RejectsMountPointsThatAreRelativeOrContainANulByte) {
  const WorkingIn scope(volume_);
  fs::create_directory("inner");
  const std::string zero(1, '\0');
  for (const std::string& notOne :
       {std::string("."), std::string("inner"), std::string("./inner"), std::string(".."), zero,
        mountPoint() + zero, mountPoint() + zero + "/inner"}) {
    SCOPED_TRACE(notOne);
    EXPECT_TRUE(isError(benchmark_.writeSync(notOne, 1), BenchmarkError::notWritable));
    EXPECT_TRUE(isError(benchmark_.readSync(notOne), BenchmarkError::ioError));
    benchmark_.cleanup(notOne);
  }
  EXPECT_TRUE(fs::is_empty("inner"));
  fs::remove("inner");
  EXPECT_TRUE(fs::is_empty("."));
}

TEST_F(PosixVolumeFilesTest, RemovesNothingThroughARelativeMountPoint) {
  const WorkingIn scope(volume_);
  folder_.save("volume/" + std::string(Benchmark::fileName), "left");
  for (const std::string notOne : {".", "./", "../volume"}) {
    benchmark_.cleanup(notOne);
    EXPECT_EQ(contentOf(file()), "left");
  }
}

TEST_F(PosixVolumeFilesTest, RejectsAnEmptyMountPoint) {
  const fs::path rootFile = fs::path("/") / Benchmark::fileName;
  ASSERT_FALSE(fs::exists(fs::symlink_status(rootFile)));
  const WorkingIn scope(volume_);
  EXPECT_TRUE(isError(benchmark_.writeSync("", 1), BenchmarkError::notWritable));
  EXPECT_FALSE(fs::exists(fs::symlink_status(rootFile)));
  benchmark_.cleanup("");
  EXPECT_TRUE(fs::is_empty(volume_));
}

TEST_F(PosixVolumeFilesTest, RejectsAnythingButFolders) {
  for (const fs::path& notOne : {folder_.path() / "missing", somebodysFile_}) {
    SCOPED_TRACE(notOne);
    EXPECT_TRUE(isError(benchmark_.writeSync(notOne, 1), BenchmarkError::notWritable));
    EXPECT_TRUE(isError(benchmark_.readSync(notOne), BenchmarkError::ioError));
    benchmark_.cleanup(notOne);
  }
  EXPECT_EQ(contentOf(somebodysFile_), "somebody's content");
}

// --- the files themselves ---

TEST_F(PosixVolumeFilesTest, CreatesFilesThatOnlyTheOwnerMayWriteAndNoChildInherits) {
  const mode_t maskBefore = umask(0);
  const auto before = openDescriptors();
  const std::unique_ptr<VolumeFolder> volume = openVolume();
  const std::unique_ptr<VolumeFile> created = fileMadeIn(*volume);
  umask(maskBefore);
  EXPECT_EQ(lookAt(file()).mode & 07777U, 0644U);
  int newCount = 0;
  for (const auto& [number, target] : openDescriptors()) {
    if (!before.contains(number)) {
      ++newCount;
      EXPECT_EQ(fcntl(std::stoi(number), F_GETFD) & FD_CLOEXEC, FD_CLOEXEC) << target;
    }
  }
  EXPECT_EQ(newCount, 3); // the folder, the file, and the descriptor that holds its number
}

TEST_F(PosixVolumeFilesTest, ReadsTheBytesThatWereWrittenAtAnySizeAndAddress) {
  const std::unique_ptr<VolumeFolder> volume = openVolume();
  const std::string content = "some bytes that fill no block";
  const auto bytes = std::as_bytes(std::span(content));
  ASSERT_EQ(fileMadeIn(*volume)->write(bytes), static_cast<std::int64_t>(bytes.size()));
  const std::unique_ptr<VolumeFile> opened = volume->open(name);
  ASSERT_TRUE(opened);
  std::string buffer(100, ' ');
  ASSERT_EQ(opened->read(std::as_writable_bytes(std::span(buffer)).subspan(1)),
            static_cast<std::int64_t>(bytes.size()));
  EXPECT_EQ(buffer.substr(1, content.size()), content);
  EXPECT_EQ(opened->read(std::as_writable_bytes(std::span(buffer))), 0);
}

TEST_F(PosixVolumeFilesTest, ReadsNoOtherFileThanTheOneThatItMade) {
  const std::unique_ptr<VolumeFolder> volume = openVolume();
  EXPECT_FALSE(volume->open(name));
  fileMadeIn(*volume);
  EXPECT_TRUE(volume->open(name));
  folder_.save("volume/other", "another file");
  fs::rename(volume_ / "other", file());
  EXPECT_FALSE(volume->open(name));
}

TEST_F(PosixVolumeFilesTest, ReportsTheFreeSpace) {
  EXPECT_GT(openVolume()->freeBytes(), 0U);
  EXPECT_FALSE(PosixVolumeFiles().openFolder(folder_.path() / "missing"));
}

// --- changes of the mount point ---

TEST_F(PosixVolumeFilesTest, RemovesItsFileWhereverTheMountPointWasMovedTo) {
  ASSERT_TRUE(std::holds_alternative<double>(benchmark_.writeSync(mountPoint(), 1)));
  const fs::path moved = folder_.path() / "moved";
  fs::rename(volume_, moved);
  fs::create_directory(volume_);
  std::ofstream(file()) << "somebody's";
  EXPECT_TRUE(std::holds_alternative<double>(benchmark_.readSync(mountPoint())));
  benchmark_.cleanup(mountPoint());
  EXPECT_TRUE(fs::is_empty(moved));
  EXPECT_EQ(contentOf(file()), "somebody's");
}

TEST_F(PosixVolumeFilesTest, RemovesItsFileAtTheEndOfTheProgramWhereverItsFolderIs) {
  ASSERT_TRUE(std::holds_alternative<double>(benchmark_.writeSync(mountPoint(), 1)));
  const fs::path moved = folder_.path() / "moved";
  fs::rename(volume_, moved);
  benchmark_.stop();
  EXPECT_TRUE(fs::is_empty(moved));
  fs::rename(moved, volume_);
}

TEST_F(PosixVolumeFilesTest, DoesNotFollowASymbolicLinkToTheVolume) {
  const fs::path link = folder_.path() / "link";
  fs::create_directory_symlink(volume_, link);
  EXPECT_TRUE(isError(benchmark_.writeSync(link, 1), BenchmarkError::notWritable));
  EXPECT_TRUE(fs::is_empty(volume_));
}

TEST_F(PosixVolumeFilesTest, DoesNotTreatAnOrdinaryFolderAsAVolume) {
  EXPECT_EQ(openVolume()->identity().text, "");
  EXPECT_NE(PosixVolumeFiles().openFolder("/proc")->identity().text, "");
}

} // namespace
} // namespace tamberline
