#pragma once

#include "answers/answer_list.h"
#include "answers/device_roles.h"
#include "answers/usb_links.h"

#include <cstddef>
#include <map>
#include <utility>
#include <vector>

namespace tamberline {

/// Collects what slows USB devices, and makes one answer of all devices that the same hub slows.
class USBFindings {
public:
  /// `bottleneck` is that of the path to a device with this role. Nothing is added if it is not
  /// worth an answer.
  void add(const USBPath& path, const Bottleneck& bottleneck, DeviceRole role);
  /// The port at `bus` slows the device at the end of the path.
  void addSlowPort(const USBPath& path, const TreeNode& bus);

  void addTo(AnswerList& answers) const;

private:
  struct Finding {
    AnswerKind kind;
    AnswerWeight weight;
    LimitingPart part;
    const TreeNode* limit;
    double actualGbps;
    double possibleGbps;
    std::vector<const TreeNode*> slowed;
  };
  using Key = std::pair<const TreeNode*, AnswerKind>;

  void insert(const Finding& finding);
  bool isExplainedByHub(const Finding& finding) const;

  std::vector<Finding> findings_;
  std::map<Key, std::size_t> indices_;
};

} // namespace tamberline
