#include "answers/speed_oracle.h"

#include <algorithm>
#include <array>

namespace tamberline {
namespace {

constexpr std::array speeds = {0.48, 5.0, 10.0, 20.0};

constexpr std::size_t maxLinks = 4;
using Speeds = std::array<double, maxLinks>;

/// What each cable and each device can do. The links follow from it.
struct Case {
  double portGbps = 0;
  std::size_t size = 0;
  Speeds cables = {};
  Speeds nodes = {};

  Speeds links() const {
    Speeds gbps = {};
    double above = portGbps;
    for (std::size_t link = 0; link < size; ++link) {
      gbps[link] = std::min({above, cables[link], nodes[link]});
      if (link > 0 && gbps[link - 1] <= 0.48) {
        gbps[link] = 0.48; // a hub has no USB 3 for others if it has none itself
      }
      above = nodes[link];
    }
    return gbps;
  }

  double speedOfDevice() const {
    const Speeds gbps = links();
    return *std::min_element(gbps.begin(), gbps.begin() + size);
  }

  double& operator[](const Suspect& suspect) {
    return (suspect.isCable ? cables : nodes).at(suspect.link);
  }
};

bool fits(double ability, const SeenLink& seen) {
  return ability >= seen.provenGbps.value_or(0) && ability <= seen.limitGbps.value_or(ability);
}

class Judge {
public:
  Judge(double portGbps, const std::vector<SeenLink>& path) : path_(path) {
    case_.portGbps = portGbps;
    case_.size = path.size();
  }

  Verdict verdict() {
    verdict_.canDoMore = true;
    tryNodesFrom(0);
    return verdict_;
  }

private:
  void tryNodesFrom(std::size_t link) {
    if (link == path_.size()) {
      tryCablesFrom(0);
      return;
    }
    for (const double ability : speeds) {
      if (ability >= path_[link].gbps && fits(ability, path_[link])) {
        case_.nodes[link] = ability;
        tryNodesFrom(link + 1);
      }
    }
  }

  void tryCablesFrom(std::size_t link) {
    if (link == path_.size()) {
      judgeCase();
      return;
    }
    for (const double ability : speeds) {
      case_.cables[link] = ability;
      if (case_.links()[link] == path_[link].gbps) { // what is behind it does not matter here
        tryCablesFrom(link + 1);
      }
    }
  }

  void judgeCase() {
    const Speeds links = case_.links();
    const double before = case_.speedOfDevice();
    verdict_.canDoMore = verdict_.canDoMore && case_.nodes.at(case_.size - 1) > before;
    for (std::size_t link = 0; link < path_.size(); ++link) {
      for (const bool isCable : {false, true}) {
        const Suspect suspect{link, isCable};
        Case better = case_;
        better[suspect] = speeds.back();
        if (better.speedOfDevice() > before) {
          verdict_.suspects.insert(suspect);
        }
        if (case_[suspect] == links[link]) {
          verdict_.holders.insert(suspect);
        }
      }
    }
  }

  const std::vector<SeenLink>& path_;
  Case case_;
  Verdict verdict_;
};

} // namespace

Verdict judge(double portGbps, const std::vector<SeenLink>& path) {
  return Judge(portGbps, path).verdict();
}

} // namespace tamberline
