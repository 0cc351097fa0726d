#pragma once

#include "inspect/document.h"
#include "support/fake_machine.h"
#include "support/hand_driven_queue.h"

#include <nlohmann/json.hpp>

#include <memory>
#include <string>

namespace tamberline {

using Document = nlohmann::ordered_json;

/// A scanner whose machine answers what a test tells them to; empty reports until then.
struct Scan {
  Scan();

  /// The document after one scan, with time for the second attempt if a report fails.
  Document run();

  std::shared_ptr<FakeMachine> machine = std::make_shared<FakeMachine>();
  std::shared_ptr<HandDrivenQueue> queue = std::make_shared<HandDrivenQueue>();
  std::shared_ptr<PortScanner> scanner;
};

/// Four ports. Port 1 has a dock with an add-on bus and a hub on it, port 2 a disk, port 3 an
/// adapter, port 4 a device that only draws power.
void answerWithDesk(FakeMachine& machine);
Document deskDocument();

/// An adapter on MagSafe and an add-on bus that does not come from a dock.
Document cornerDocument();

/// The part of a document at a JSON pointer such as "/panel/cards/0".
Document at(const Document& document, const std::string& pointer);

/// The names of an object's members, in order.
std::string keysOf(const Document& object);

/// A document as text, one member per line. It shows the members, their order, and whether a number
/// is an integer.
std::string jsonText(const Document& document);

/// The same for a document that is written by hand.
std::string normalized(const std::string& json);

} // namespace tamberline
