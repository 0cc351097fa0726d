#include "platform/private_bus.h"

#include <QCoreApplication>
#include <gtest/gtest.h>

/// Buses and child programs need an application object.
int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  tamberline::PrivateBus::becomeSystemBus();
  const QCoreApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
