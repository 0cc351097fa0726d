#include "app/symbols_warning.h"

#include "i18n/loc.h"
#include "symbols/symbol_image.h"

#include <cstdio>
#include <string>

namespace tamberline {

void warnWithoutSymbols(const char* program) {
  if (!canDrawSymbols()) {
    std::fprintf(stderr, "%s: %s\n", program, std::string(Loc::symbolsMissing()).c_str());
  }
}

} // namespace tamberline
