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
  std::vector<std::string> mountPoints = {}; // any bytes; empty: holds no file system
  std::string inside = {};                   // the encrypted device whose content this is
  std::string sharing = {};                  // the block device whose file system this is, too
};

/// A disk service with made-up drives (udisks2_mock.py) on the test's own bus. Say what there is,
/// then start it.
class MockedDisks {
public:
  void addDrive(const char* name, QJsonObject properties = {});
  void addBlock(const char* name, const MockedBlock& block);

  /// A method ("sdb1.Unmount") fails.
  void letFail(const char* method, const char* error, const char* text);
  /// A method ("Unmount") answers nobody before it was called so often; 0 is never.
  void letGather(const char* method, int calls);
  void start();
  void stop() { service_.reset(); }

  /// What was called on drives and disks, in order, a line each: "sdb1.Unmount {}, may ask", where
  /// the braces hold the options.
  static std::string calls();

  /// Gives a property ("sdb1.MountPoints" of a "Filesystem") a wrong value, or none, or its own
  /// back.
  static void makeOdd(const QString& interface, const QString& property, const QString& kind);
  /// Gives the question for all objects a wrong answer.
  static void makeListOdd(const QString& kind);

private:
  void set(const char* part, const char* name, const QJsonValue& value);

  QJsonObject parameters_;
  std::unique_ptr<ChildProgram> service_;
};

} // namespace tamberline
