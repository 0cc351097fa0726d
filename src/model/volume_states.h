// The state of a mounted volume's test and ejection; the scanner keeps these by mount point.
#pragma once

#include <string>
#include <variant>

namespace tamberline {

/// Where a volume's benchmark stands.
struct BenchmarkPhase {
  struct Idle {
    friend bool operator==(const Idle&, const Idle&) = default;
  };
  /// `phase` is the text to show.
  struct Running {
    std::string phase;
    friend bool operator==(const Running&, const Running&) = default;
  };
  /// Both in decimal megabytes per second.
  struct Done {
    double writeMBps = 0;
    double readMBps = 0;
    friend bool operator==(const Done&, const Done&) = default;
  };
  struct Failed {
    std::string message;
    friend bool operator==(const Failed&, const Failed&) = default;
  };

  std::variant<Idle, Running, Done, Failed> state;

  bool isRunning() const { return std::holds_alternative<Running>(state); }

  friend bool operator==(const BenchmarkPhase&, const BenchmarkPhase&) = default;
};

/// The progress of a volume's ejection; no state means that none was requested.
struct EjectState {
  struct Ejecting {
    friend bool operator==(const Ejecting&, const Ejecting&) = default;
  };
  struct Failed {
    std::string message;
    friend bool operator==(const Failed&, const Failed&) = default;
  };

  std::variant<Ejecting, Failed> state;

  friend bool operator==(const EjectState&, const EjectState&) = default;
};

} // namespace tamberline
