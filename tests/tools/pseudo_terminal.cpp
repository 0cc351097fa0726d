#include "pseudo_terminal.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <fcntl.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

namespace tamberline {
namespace {

Descriptor openReader() {
  Descriptor reader(posix_openpt(O_RDWR | O_NOCTTY));
  EXPECT_TRUE(reader.isOpen());
  EXPECT_EQ(grantpt(reader.number()), 0);
  EXPECT_EQ(unlockpt(reader.number()), 0);
  fcntl(reader.number(), F_SETFL, O_NONBLOCK);
  return reader;
}

/// Line breaks are passed on unchanged.
void leaveOutputAlone(int terminal) {
  termios settings{};
  EXPECT_EQ(tcgetattr(terminal, &settings), 0);
  settings.c_oflag &= ~static_cast<tcflag_t>(OPOST);
  EXPECT_EQ(tcsetattr(terminal, TCSANOW, &settings), 0);
}

} // namespace

PseudoTerminal::PseudoTerminal(unsigned short columns)
    : reader_(openReader()), path_(ptsname(reader_.number())),
      writer_(::open(path_.c_str(), O_RDWR | O_NOCTTY)) {
  winsize size{};
  size.ws_col = columns;
  size.ws_row = 24;
  EXPECT_EQ(ioctl(writer_.number(), TIOCSWINSZ, &size), 0);
  leaveOutputAlone(writer_.number());
}

std::string PseudoTerminal::takeOutput() {
  std::string output;
  std::array<char, 4096> buffer{};
  ssize_t count = 0;
  while ((count = read(reader_.number(), buffer.data(), buffer.size())) > 0) {
    output.append(buffer.data(), static_cast<std::size_t>(count));
  }
  return output;
}

} // namespace tamberline
