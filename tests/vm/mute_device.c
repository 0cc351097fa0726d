/* Plugs a device that never answers into the first port of the kernel's virtual USB controller: the
   other end of its connection is open, but nothing reads from it. Runs until it is killed. */
#include <stdio.h>
#include <sys/socket.h>
#include <unistd.h>

int main(void) {
  const int high_speed = 3;
  const int device = 65538;
  int ends[2];
  FILE *attach = fopen("/sys/devices/platform/vhci_hcd.0/attach", "w");
  if (attach == NULL || socketpair(AF_UNIX, SOCK_STREAM, 0, ends) != 0) {
    perror("mute-device");
    return 1;
  }
  if (fprintf(attach, "0 %d %d %d", ends[0], device, high_speed) < 0 || fclose(attach) != 0) {
    perror("mute-device");
    return 1;
  }
  for (;;) {
    pause();
  }
}
