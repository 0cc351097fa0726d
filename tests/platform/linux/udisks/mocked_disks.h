#pragma once

#include "platform/child_program.h"

#include <QJsonObject>
#include <QString>

#include <memory>
#include <string>
#include <vector>

namespace tamberline {

struct MockedBlock {
  std::string drive = {}; // empty: none
  int deviceNumber = 0;
  std::vector<std::string> mountPoints = {}; // any bytes; empty: it has no file system
  std::string inside = {};                   // the encrypted device whose content this is
  std::string sharing = {};                  // the block device that has the same file system
};

/// A disk service with fictional drives (udisks2_mock.py) on the test's own bus. Set the drives,
/// then start it.
class MockedDisks {
public:
  void addDrive(const char* name, QJsonObject properties = {});
  void addBlock(const char* name, const MockedBlock& block);

  /// Makes a method ("sdb1.Unmount") fail.
  void letFail(const char* method, const char* error, const char* text);
  /// Makes a method ("Unmount") answer only after this many calls; 0 is never.
  void letGather(const char* method, int calls);
  void start();
  void stop() { service_.reset(); }

  /// The calls on drives and disks, in order, one per line: "sdb1.Unmount {}, may ask", with the
  /// options in braces.
  static std::string calls();

  /// Gives a property ("sdb1.MountPoints" of a "Filesystem") a wrong value or none, or restores it.
  static void makeOdd(const QString& interface, const QString& property, const QString& kind);
  /// Makes the answer to the request for all objects wrong.
  static void makeListOdd(const QString& kind);

private:
  void set(const char* part, const char* name, const QJsonValue& value);

  QJsonObject parameters_;
  std::unique_ptr<ChildProgram> service_;
};

} // namespace tamberline
