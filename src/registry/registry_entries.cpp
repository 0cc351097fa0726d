#include "registry/registry_entries.h"

namespace tamberline {

void visitRegistryEntries(PropertyListValue value,
                          const std::function<void(PropertyListValue entry)>& visit) {
  PropertyListValue nested = value;
  if (value.isDictionary()) {
    visit(value);
    nested = value.member("IORegistryEntryChildren");
  }
  for (const PropertyListValue element : nested.elements()) {
    visitRegistryEntries(element, visit);
  }
}

} // namespace tamberline
