// save_large_machine DIR COUNT: writes the saved reports of a machine with COUNT USB devices.

#include "large_machine.h"
#include "platform/saved/saved_reports.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fputs("usage: save_large_machine DIR COUNT\n", stderr);
    return 2;
  }
  const std::filesystem::path folder = argv[1];
  std::filesystem::create_directories(folder);
  for (const auto& [question, content] :
       tamberline::makeLargeMachine(std::strtoul(argv[2], nullptr, 10))) {
    const std::string fileName = tamberline::savedFileName(question);
    std::ofstream file(folder / fileName, std::ios::binary);
    file << content;
    if (!file.flush()) {
      std::fprintf(stderr, "save_large_machine: cannot write %s\n", fileName.c_str());
      return 1;
    }
  }
  return 0;
}
