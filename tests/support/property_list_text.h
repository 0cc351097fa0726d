#pragma once

#include <string>

namespace tamberline {

/// `content` as the value of a property list.
inline std::string propertyList(const std::string& content) {
  return R"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE plist PUBLIC "-//Apple//DTD PLIST 1.0//EN" "http://www.apple.com/DTDs/PropertyList-1.0.dtd">
<plist version="1.0">)" +
         content + "</plist>\n";
}

} // namespace tamberline
