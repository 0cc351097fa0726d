#include "platform/as_ordinary_person.h"
#include "platform/mounted_volume.h"
#include "platform/posix/descriptor.h"
#include "platform/posix/posix_volume_files.h"
#include "platform/process_resources.h"
#include "storage/benchmark.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fcntl.h>
#include <fstream>
#include <functional>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace tamberline {
namespace {

constexpr std::uint64_t bytesPerMB = 1'000'000;

std::filesystem::path fileOn(const std::filesystem::path& volume) {
  return volume / Benchmark::fileName;
}

std::shared_ptr<VolumeFiles> realFiles() {
  return std::make_shared<PosixVolumeFiles>();
}

bool isError(const BenchmarkResult& result, BenchmarkError error) {
  return std::holds_alternative<BenchmarkError>(result) &&
         std::get<BenchmarkError>(result) == error;
}

bool isSpeed(const BenchmarkResult& result) {
  return std::holds_alternative<double>(result) && std::get<double>(result) > 0;
}

std::vector<std::string> namesIn(const std::filesystem::path& folder) {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    names.push_back(entry.path().filename());
  }
  std::sort(names.begin(), names.end());
  return names;
}

/// Free bytes of a volume: for ordinary users, and including those reserved for the system.
struct Room {
  std::uint64_t ordinary = 0;
  std::uint64_t withReserve = 0;
};

Room roomOf(const std::string& mountPoint) {
  struct statvfs status = {};
  EXPECT_EQ(statvfs(mountPoint.c_str(), &status), 0);
  return {status.f_bavail * status.f_frsize, status.f_bfree * status.f_frsize};
}

void occupy(const std::string& mountPoint, std::uint64_t bytes) {
  const Descriptor file(
      open((mountPoint + "/other").c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600));
  ASSERT_EQ(posix_fallocate(file.number(), 0, static_cast<off_t>(bytes)), 0);
}

class BenchmarkOnVolume : public testing::Test {
protected:
  /// If the machine cannot do that, skips the test; the test must return then.
  void mount(const VolumeSetting& setting) {
    try {
      volume_.emplace(setting);
    } catch (const VolumeUnavailable& reason) {
      GTEST_SKIP() << reason.what();
    }
  }

  std::string mountPoint() const { return volume_->mountPoint(); }
  std::filesystem::path file() const { return fileOn(mountPoint()); }

  /// A speed test whose clock performs an action when writing or reading starts and ends.
  Benchmark whoseClockDoes(std::function<void()> action) {
    return Benchmark(realFiles(), {.now = [action = std::move(action)] {
                       action();
                       return std::chrono::steady_clock::now();
                     }});
  }

  std::optional<MountedVolume> volume_;
  Benchmark benchmark_{realFiles()};
};

struct FileSystem {
  std::string testName;
  VolumeSetting setting;
  bool isNothingButCache = false;
  /// Whether writing goes directly to the medium, without the cache.
  bool writesPastCache = false;
  /// Whether the calling thread transfers the bytes, so that the system counts them for it.
  bool isCounted = true;
  bool isServedByProgram = false;
};

void PrintTo(const FileSystem& fileSystem, std::ostream* stream) {
  *stream << fileSystem.testName;
}

const std::vector<FileSystem> fileSystems = {
    {.testName = "Tmpfs",
     .setting = {.fileSystem = "tmpfs"},
     .isNothingButCache = true,
     .isCounted = false},
    {.testName = "Ext4", .setting = {.fileSystem = "ext4"}, .writesPastCache = true},
    {.testName = "Ext4WithJournalOfData",
     .setting = {.fileSystem = "ext4", .mountOptions = "data=journal"}},
    {.testName = "Xfs", .setting = {.fileSystem = "xfs"}, .writesPastCache = true},
    {.testName = "Btrfs", .setting = {.fileSystem = "btrfs"}, .writesPastCache = true},
    {.testName = "BtrfsThatCompresses",
     .setting = {.fileSystem = "btrfs", .mountOptions = "compress-force=zstd"}},
    {.testName = "Vfat", .setting = {.fileSystem = "vfat"}},
    {.testName = "Exfat", .setting = {.fileSystem = "exfat"}},
    {.testName = "ExfatDriverThatIsAProgram",
     .setting = {.fileSystem = "exfat-fuse"},
     .isCounted = false,
     .isServedByProgram = true},
    {.testName = "NtfsDriverThatIsAProgram",
     .setting = {.fileSystem = "ntfs-3g"},
     .isCounted = false,
     .isServedByProgram = true},
};

auto fileSystemsThat(bool (*predicate)(const FileSystem&)) {
  std::vector<FileSystem> found;
  std::copy_if(fileSystems.begin(), fileSystems.end(), std::back_inserter(found), predicate);
  return testing::ValuesIn(found);
}

std::string testName(const testing::TestParamInfo<FileSystem>& parameter) {
  return parameter.param.testName;
}

class BenchmarkOnFileSystem : public BenchmarkOnVolume,
                              public testing::WithParamInterface<FileSystem> {
protected:
  void SetUp() override { mount(GetParam().setting); }
};

class BenchmarkBesideCache : public BenchmarkOnFileSystem {};
class BenchmarkPastCache : public BenchmarkOnFileSystem {};
class BenchmarkOnMedium : public BenchmarkOnFileSystem {};
class BenchmarkOnServedFiles : public BenchmarkOnFileSystem {
protected:
  /// The total number of bytes read from the volume's device.
  std::uint64_t bytesReadFromDevice() const {
    std::ifstream counts("/sys/block/" + volume_->device().substr(5) + "/stat");
    std::uint64_t reads = 0;
    std::uint64_t merged = 0;
    std::uint64_t sectors = 0;
    EXPECT_TRUE(counts >> reads >> merged >> sectors);
    return sectors * 512;
  }
};

INSTANTIATE_TEST_SUITE_P(FileSystems, BenchmarkOnFileSystem, testing::ValuesIn(fileSystems),
                         testName);
INSTANTIATE_TEST_SUITE_P(FileSystems, BenchmarkBesideCache,
                         fileSystemsThat([](const FileSystem& one) {
                           return !one.isNothingButCache;
                         }),
                         testName);
INSTANTIATE_TEST_SUITE_P(FileSystems, BenchmarkPastCache,
                         fileSystemsThat([](const FileSystem& one) { return one.writesPastCache; }),
                         testName);
INSTANTIATE_TEST_SUITE_P(FileSystems, BenchmarkOnMedium,
                         fileSystemsThat([](const FileSystem& one) { return one.isCounted; }),
                         testName);

INSTANTIATE_TEST_SUITE_P(FileSystems, BenchmarkOnServedFiles,
                         fileSystemsThat([](const FileSystem& one) {
                           return one.isServedByProgram;
                         }),
                         testName);

TEST_P(BenchmarkOnFileSystem, WritesAndReadsAFileOfTheSizeThatWasAskedForAndLeavesNothing) {
  const std::vector<std::string> namesBefore = namesIn(mountPoint());
  const auto descriptorsBefore = openDescriptors();
  for (const std::int64_t sizeMB : {1, 9, 17}) {
    SCOPED_TRACE(sizeMB);
    EXPECT_TRUE(isSpeed(benchmark_.writeSync(mountPoint(), sizeMB)));
    EXPECT_EQ(std::filesystem::file_size(file()), static_cast<std::uint64_t>(sizeMB) * bytesPerMB);
    EXPECT_TRUE(isSpeed(benchmark_.readSync(mountPoint())));
    benchmark_.cleanup(mountPoint());
    EXPECT_EQ(namesIn(mountPoint()), namesBefore);
    EXPECT_EQ(openDescriptors(), descriptorsBefore);
  }
}

TEST_P(BenchmarkOnFileSystem, ReadsAgainWhatItRead) {
  ASSERT_TRUE(isSpeed(benchmark_.writeSync(mountPoint(), 1)));
  EXPECT_TRUE(isSpeed(benchmark_.readSync(mountPoint())));
  EXPECT_TRUE(isSpeed(benchmark_.readSync(mountPoint())));
}

TEST_P(BenchmarkOnFileSystem, ReplacesAFileLeftByAnEarlierRun) {
  std::ofstream(file()) << std::string(3'000'000, 'x');
  EXPECT_TRUE(isSpeed(benchmark_.writeSync(mountPoint(), 1)));
  EXPECT_EQ(std::filesystem::file_size(file()), bytesPerMB);
  benchmark_.cleanup(mountPoint());
  EXPECT_FALSE(std::filesystem::exists(file()));
}

TEST_P(BenchmarkBesideCache, FindsNoPagesOfTheFileThereWhenReadingStarts) {
  std::uint64_t cachedWhenReadingBegins = 1;
  int looks = 0; // at the start and end of writing and of reading
  Benchmark looking = whoseClockDoes([&] {
    if (++looks == 3) {
      cachedWhenReadingBegins = cachedBytes(file());
    }
  });
  // A program that reads the file fills the cache again, however the file was written.
  ASSERT_TRUE(isSpeed(looking.writeSync(mountPoint(), 17)));
  std::ifstream(file()).ignore(17 * bytesPerMB);
  ASSERT_GT(cachedBytes(file()), 0U);
  EXPECT_TRUE(isSpeed(looking.readSync(mountPoint())));
  EXPECT_EQ(cachedWhenReadingBegins, 0U);
}

/// A size that is a multiple of every file system's block size, like that of the real test.
constexpr std::int64_t wholeBlocksMB = 64;

/// btrfs writes a chunk through the cache if the kernel has reclaimed a page of the source memory,
/// and then drops only pages that are unused at that moment.
constexpr std::uint64_t hardlyAnything = wholeBlocksMB * bytesPerMB / 100;

TEST_P(BenchmarkPastCache, LeavesHardlyAnyPagesThereAfterWriting) {
  ASSERT_TRUE(isSpeed(benchmark_.writeSync(mountPoint(), wholeBlocksMB)));
  EXPECT_LE(cachedBytes(file()), hardlyAnything);
}

TEST_P(BenchmarkPastCache, LeavesHardlyAnyPagesThereAfterReading) {
  ASSERT_TRUE(isSpeed(benchmark_.writeSync(mountPoint(), wholeBlocksMB)));
  ASSERT_TRUE(isSpeed(benchmark_.readSync(mountPoint())));
  EXPECT_LE(cachedBytes(file()), hardlyAnything);
}

TEST_P(BenchmarkOnMedium, TransfersEveryByteToItAndFromIt) {
  const std::optional<MediumTraffic> before = mediumTraffic();
  if (!before) {
    GTEST_SKIP() << "this system does not count what its threads move";
  }
  ASSERT_TRUE(isSpeed(benchmark_.writeSync(mountPoint(), 17)));
  const MediumTraffic written = mediumTraffic().value();
  EXPECT_GE(written.writtenBytes - before->writtenBytes, 17 * bytesPerMB);
  ASSERT_TRUE(isSpeed(benchmark_.readSync(mountPoint())));
  EXPECT_GE(mediumTraffic()->readBytes - written.readBytes, 17 * bytesPerMB);
}

TEST_P(BenchmarkOnServedFiles, ReadsEveryByteFromTheDeviceItself) {
  ASSERT_TRUE(isSpeed(benchmark_.writeSync(mountPoint(), 64)));
  const std::uint64_t before = bytesReadFromDevice();
  ASSERT_TRUE(isSpeed(benchmark_.readSync(mountPoint())));
  EXPECT_GE(bytesReadFromDevice() - before, 64 * bytesPerMB);
}

/// A mapping of a device's content, so that the system cannot drop its pages.
class RememberedDevice {
public:
  explicit RememberedDevice(const std::string& path) {
    const Descriptor device(open(path.c_str(), O_RDONLY | O_CLOEXEC));
    size_ = static_cast<std::size_t>(lseek(device.number(), 0, SEEK_END));
    start_ = mmap(nullptr, size_, PROT_READ, MAP_SHARED | MAP_POPULATE, device.number(), 0);
    EXPECT_NE(start_, MAP_FAILED);
  }
  RememberedDevice(const RememberedDevice&) = delete;
  RememberedDevice& operator=(const RememberedDevice&) = delete;
  ~RememberedDevice() { munmap(start_, size_); }

private:
  std::size_t size_ = 0;
  void* start_ = nullptr;
};

TEST_P(BenchmarkOnServedFiles, GivesNoSpeedForCachedData) {
  ASSERT_TRUE(isSpeed(benchmark_.writeSync(mountPoint(), 64)));
  const RememberedDevice remembered(volume_->device());
  EXPECT_TRUE(isError(benchmark_.readSync(mountPoint()), BenchmarkError::notMeasurable));
}

TEST_P(BenchmarkOnServedFiles, WritesNothingIfTheUserMayNotDropTheCache) {
  mount({.fileSystem = GetParam().setting.fileSystem,
         .mountOptions = "allow_other,umask=0,uid=65534"});
  const AsOrdinaryPerson scope;
  if (IsSkipped() || !scope.isPossible() || euidaccess(mountPoint().c_str(), W_OK) != 0) {
    GTEST_SKIP() << "nobody is an ordinary person here";
  }
  if (euidaccess(volume_->device().c_str(), R_OK) == 0) {
    GTEST_SKIP() << "everybody may read devices here";
  }
  const std::vector<std::string> namesBefore = namesIn(mountPoint());
  EXPECT_TRUE(isError(benchmark_.writeSync(mountPoint(), 1), BenchmarkError::notMeasurable));
  EXPECT_EQ(namesIn(mountPoint()), namesBefore);
}

// --- identity of the volume ---

TEST_F(BenchmarkOnVolume, DistinguishesAVolumeFromItsReplacementAndFromNone) {
  for (const std::string fileSystem : {"tmpfs", "ext4", "btrfs"}) {
    SCOPED_TRACE(fileSystem);
    mount({.fileSystem = fileSystem});
    if (IsSkipped()) {
      return;
    }
    const std::string place = mountPoint();
    const VolumeIdentity first = realFiles()->openFolder(place)->identity();
    EXPECT_TRUE(realFiles()->openFolder(place)->identity().isSameVolumeAs(first));
    EXPECT_TRUE(isSpeed(benchmark_.writeSync(place, 1, {.volume = first})));
    benchmark_.cleanup(place);
    volume_->replace();
    ASSERT_EQ(mountPoint(), place);
    EXPECT_TRUE(
        isError(benchmark_.writeSync(place, 1, {.volume = first}), BenchmarkError::volumeChanged));
    volume_->detach();
    EXPECT_EQ(realFiles()->openFolder(place)->identity().text, "");
    EXPECT_TRUE(
        isError(benchmark_.writeSync(place, 1, {.volume = first}), BenchmarkError::volumeChanged));
    EXPECT_TRUE(namesIn(place).empty());
  }
}

TEST_F(BenchmarkOnVolume, RejectsAVolumeMountedOverItsOwn) {
  mount({.fileSystem = "ext4"});
  if (IsSkipped()) {
    return;
  }
  const VolumeIdentity below = realFiles()->openFolder(mountPoint())->identity();
  volume_->mountOver();
  EXPECT_TRUE(isError(benchmark_.writeSync(mountPoint(), 1, {.volume = below}),
                      BenchmarkError::volumeChanged));
  EXPECT_TRUE(namesIn(mountPoint()).empty());
}

TEST_F(BenchmarkOnVolume, KnowsTheDeviceOfAVolume) {
  mount({.fileSystem = "ext4"});
  if (IsSkipped()) {
    return;
  }
  struct stat device = {};
  ASSERT_EQ(stat(volume_->device().c_str(), &device), 0);
  EXPECT_EQ(realFiles()->openFolder(mountPoint())->identity().deviceNumber, device.st_rdev);
}

// --- free space ---

constexpr std::uint64_t bytesForDefaultSize = 384 * bytesPerMB;

VolumeSetting memoryOf(std::uint64_t bytes) {
  return {.mountOptions = "size=" + std::to_string(bytes)};
}

void expectNoSpace(Benchmark& benchmark, const std::string& mountPoint) {
  const std::vector<std::string> namesBefore = namesIn(mountPoint);
  EXPECT_TRUE(
      isError(benchmark.writeSync(mountPoint, benchmark.sizeMB()), BenchmarkError::noSpace));
  EXPECT_EQ(namesIn(mountPoint), namesBefore);
}

TEST_F(BenchmarkOnVolume, TakesAVolumeWithJustEnoughRoom) {
  mount(memoryOf(bytesForDefaultSize));
  if (IsSkipped()) {
    return;
  }
  EXPECT_TRUE(isSpeed(benchmark_.writeSync(mountPoint(), benchmark_.sizeMB())));
  EXPECT_EQ(std::filesystem::file_size(file()), 256 * bytesPerMB);
  EXPECT_TRUE(isSpeed(benchmark_.readSync(mountPoint())));
}

TEST_F(BenchmarkOnVolume, WritesNothingWhereAPageIsMissing) {
  const auto page = static_cast<std::uint64_t>(sysconf(_SC_PAGESIZE));
  mount(memoryOf((bytesForDefaultSize - 1) / page * page));
  if (!IsSkipped()) {
    expectNoSpace(benchmark_, mountPoint());
  }
}

TEST_F(BenchmarkOnVolume, WritesNothingWhereThreeHundredMegabytesAreFree) {
  mount(memoryOf(300 * bytesPerMB));
  if (!IsSkipped()) {
    expectNoSpace(benchmark_, mountPoint());
  }
}

TEST_F(BenchmarkOnVolume, WritesNothingOnAFullVolume) {
  mount(memoryOf(bytesPerMB));
  if (IsSkipped()) {
    return;
  }
  std::ofstream(mountPoint() + "/everything") << std::string(2 * bytesPerMB, 'x');
  ASSERT_EQ(roomOf(mountPoint()).ordinary, 0U);
  expectNoSpace(benchmark_, mountPoint());
}

TEST_F(BenchmarkOnVolume, LeavesAloneWhatIsReservedForTheSystem) {
  mount({.fileSystem = "ext4"});
  if (IsSkipped()) {
    return;
  }
  occupy(mountPoint(), roomOf(mountPoint()).ordinary - 370 * bytesPerMB);
  ASSERT_GT(roomOf(mountPoint()).withReserve, bytesForDefaultSize);
  ASSERT_LT(roomOf(mountPoint()).ordinary, bytesForDefaultSize);
  expectNoSpace(benchmark_, mountPoint());
}

/// The real folder of a volume that does not report its free space.
class SilentFolder final : public VolumeFolder {
public:
  explicit SilentFolder(std::unique_ptr<VolumeFolder> folder) : folder_(std::move(folder)) {}

  VolumeIdentity identity() const override { return folder_->identity(); }
  std::optional<std::uint64_t> freeBytes() const override { return std::nullopt; }
  bool canReadMedium() const override { return folder_->canReadMedium(); }
  Created create(const std::string& name) override { return folder_->create(name); }
  std::unique_ptr<VolumeFile> open(const std::string& name) override { return folder_->open(name); }
  void remove(const std::string& name) override { folder_->remove(name); }

private:
  std::unique_ptr<VolumeFolder> folder_;
};

class FilesOfSilentVolumes final : public VolumeFiles {
public:
  std::unique_ptr<VolumeFolder> openFolder(const std::string& mountPoint) override {
    return std::make_unique<SilentFolder>(PosixVolumeFiles().openFolder(mountPoint));
  }
};

TEST_F(BenchmarkOnVolume, GivesTheRoomBackOfAVolumeThatIsFullSoonerThanExpected) {
  mount(memoryOf(20 * bytesPerMB));
  if (IsSkipped()) {
    return;
  }
  const std::uint64_t roomBefore = roomOf(mountPoint()).ordinary;
  Benchmark benchmark(std::make_shared<FilesOfSilentVolumes>());
  EXPECT_TRUE(isError(benchmark.writeSync(mountPoint(), 64), BenchmarkError::noSpace));
  EXPECT_EQ(roomOf(mountPoint()).ordinary, 0U);
  benchmark.cleanup(mountPoint());
  EXPECT_EQ(roomOf(mountPoint()).ordinary, roomBefore);
}

// --- other kinds of volumes ---

TEST_F(BenchmarkOnVolume, AcceptsAVolumeThatDoesNotReportItsFreeSpace) {
  mount({.fileSystem = "ramfs"});
  if (IsSkipped()) {
    return;
  }
  EXPECT_TRUE(isSpeed(benchmark_.writeSync(mountPoint(), 1)));
  EXPECT_TRUE(isSpeed(benchmark_.readSync(mountPoint())));
}

TEST_F(BenchmarkOnVolume, CannotWriteToAReadOnlyVolume) {
  for (const std::string fileSystem : {"tmpfs", "ext4"}) {
    SCOPED_TRACE(fileSystem);
    mount({.fileSystem = fileSystem});
    if (IsSkipped()) {
      return;
    }
    const std::vector<std::string> namesBefore = namesIn(mountPoint());
    volume_->makeReadOnly();
    EXPECT_TRUE(isError(benchmark_.writeSync(mountPoint(), 1), BenchmarkError::notWritable));
    EXPECT_TRUE(isError(benchmark_.readSync(mountPoint()), BenchmarkError::ioError));
    benchmark_.cleanup(mountPoint());
    EXPECT_EQ(namesIn(mountPoint()), namesBefore);
  }
}

TEST_F(BenchmarkOnVolume, TakesEveryNameThatAVolumeCanHave) {
  for (const std::string name : {"two  blanks ", "\"quoted\" 'twice' `and` $HOME", "-rf",
                                 "Größe ö 測試 \xff", "a\nb\t*?[x]"}) {
    SCOPED_TRACE(name);
    mount({.name = name});
    if (IsSkipped()) {
      return;
    }
    EXPECT_TRUE(isSpeed(benchmark_.writeSync(mountPoint(), 1)));
    EXPECT_EQ(namesIn(mountPoint()), std::vector<std::string>{std::string(Benchmark::fileName)});
    EXPECT_TRUE(isSpeed(benchmark_.readSync(mountPoint())));
    benchmark_.cleanup(mountPoint());
    EXPECT_TRUE(namesIn(mountPoint()).empty());
  }
}

// --- changes during a test ---

TEST_F(BenchmarkOnVolume, RemovesItsFileFromAVolumeThatIsNoLongerMounted) {
  mount({.fileSystem = "tmpfs"});
  if (IsSkipped()) {
    return;
  }
  const Descriptor volume(open(mountPoint().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  const std::string stillOpen = "/proc/self/fd/" + std::to_string(volume.number());
  ASSERT_TRUE(isSpeed(benchmark_.writeSync(mountPoint(), 1)));
  volume_->detach();
  EXPECT_EQ(namesIn(stillOpen).size(), 1U);
  EXPECT_TRUE(isSpeed(benchmark_.readSync(mountPoint())));
  benchmark_.cleanup(mountPoint());
  EXPECT_TRUE(namesIn(stillOpen).empty());
  EXPECT_TRUE(namesIn(mountPoint()).empty());
}

TEST_F(BenchmarkOnVolume, FailsWhenTheDriveIsPulledBeforeReading) {
  mount({.fileSystem = "ext4"});
  if (IsSkipped()) {
    return;
  }
  const auto descriptorsBefore = openDescriptors();
  ASSERT_TRUE(isSpeed(benchmark_.writeSync(mountPoint(), 1)));
  volume_->pullDrive();
  EXPECT_TRUE(isError(benchmark_.readSync(mountPoint()), BenchmarkError::ioError));
  benchmark_.cleanup(mountPoint());
  EXPECT_EQ(openDescriptors(), descriptorsBefore);
}

TEST_F(BenchmarkOnVolume, FailsWhenTheDriveIsPulledAsWritingBegins) {
  mount({.fileSystem = "xfs"});
  if (IsSkipped()) {
    return;
  }
  Benchmark benchmark = whoseClockDoes([this] { volume_->pullDrive(); });
  EXPECT_TRUE(isError(benchmark.writeSync(mountPoint(), 1), BenchmarkError::ioError));
  benchmark.cleanup(mountPoint());
}

TEST_F(BenchmarkOnVolume, FailsWhenTheMediumCannotBeRead) {
  mount({.fileSystem = "ext4"});
  if (IsSkipped()) {
    return;
  }
  ASSERT_TRUE(isSpeed(benchmark_.writeSync(mountPoint(), 9)));
  volume_->loseMediumContent();
  EXPECT_TRUE(isError(benchmark_.readSync(mountPoint()), BenchmarkError::ioError));
}

TEST_F(BenchmarkOnVolume, FailsWhenTheMediumAcceptsLessThanItReports) {
  mount({.fileSystem = "ext4", .mediumBytes = 40 * bytesPerMB});
  if (IsSkipped()) {
    return;
  }
  EXPECT_TRUE(isError(benchmark_.writeSync(mountPoint(), 64), BenchmarkError::noSpace));
}

TEST_F(BenchmarkOnVolume, ReadsTheRestOfAFileThatAnotherProgramTruncates) {
  mount({.fileSystem = "tmpfs"});
  if (IsSkipped()) {
    return;
  }
  ASSERT_TRUE(isSpeed(benchmark_.writeSync(mountPoint(), 17)));
  std::filesystem::resize_file(file(), 9'000'001);
  EXPECT_TRUE(isSpeed(benchmark_.readSync(mountPoint())));
}

TEST_F(BenchmarkOnVolume, GivesNoSpeedForAFileThatAnotherProgramEmptied) {
  mount({.fileSystem = "tmpfs"});
  if (IsSkipped()) {
    return;
  }
  ASSERT_TRUE(isSpeed(benchmark_.writeSync(mountPoint(), 1)));
  std::filesystem::resize_file(file(), 0);
  EXPECT_FALSE(isSpeed(benchmark_.readSync(mountPoint())));
}

TEST_F(BenchmarkOnVolume, CannotReadAFileThatAnotherProgramRemoved) {
  mount({.fileSystem = "tmpfs"});
  if (IsSkipped()) {
    return;
  }
  ASSERT_TRUE(isSpeed(benchmark_.writeSync(mountPoint(), 1)));
  std::filesystem::remove(file());
  EXPECT_TRUE(isError(benchmark_.readSync(mountPoint()), BenchmarkError::ioError));
}

TEST_F(BenchmarkOnVolume, RemovesTheFileWhenTheProgramEnds) {
  mount({.fileSystem = "ext4"});
  if (IsSkipped()) {
    return;
  }
  const std::vector<std::string> namesBefore = namesIn(mountPoint());
  ASSERT_TRUE(isSpeed(benchmark_.writeSync(mountPoint(), 1)));
  benchmark_.stop();
  EXPECT_EQ(namesIn(mountPoint()), namesBefore);
}

// --- many tests ---

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool allocatorKeepsMemory = true;
#elif defined(__has_feature)
constexpr bool allocatorKeepsMemory =
    __has_feature(address_sanitizer) || __has_feature(thread_sanitizer);
#else
constexpr bool allocatorKeepsMemory = false;
#endif

/// 200 in two halves; sanitizers are slow, and a few tests are enough for them.
constexpr int halfOfTheTests = allocatorKeepsMemory ? 25 : 100;

void runWholeTests(int count, const std::string& mountPoint) {
  for (int run = 0; run < count; ++run) {
    Benchmark benchmark(realFiles());
    ASSERT_TRUE(isSpeed(benchmark.writeSync(mountPoint, 1)));
    ASSERT_TRUE(isSpeed(benchmark.readSync(mountPoint)));
    benchmark.cleanup(mountPoint);
  }
}

TEST_F(BenchmarkOnVolume, LeavesNothingBehindAfterManyTests) {
  mount({.fileSystem = "tmpfs"});
  if (IsSkipped()) {
    return;
  }
  const auto descriptorsBefore = openDescriptors();
  ASSERT_NO_FATAL_FAILURE(runWholeTests(halfOfTheTests, mountPoint()));
  const std::uint64_t residentAfterFirstHalf = residentBytes();
  ASSERT_NO_FATAL_FAILURE(runWholeTests(halfOfTheTests, mountPoint()));
  EXPECT_TRUE(namesIn(mountPoint()).empty());
  EXPECT_EQ(openDescriptors(), descriptorsBefore);
  if (!allocatorKeepsMemory) {
    constexpr std::uint64_t aTenthOfAChunk = Benchmark::chunkBytes / 10;
    EXPECT_LE(residentBytes(), residentAfterFirstHalf + aTenthOfAChunk);
  }
}

} // namespace
} // namespace tamberline
