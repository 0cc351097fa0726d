#include "platform/linux/desktop/tray_menu.h"

#include <QDBusMetaType>
#include <QMetaMethod>
#include <gtest/gtest.h>

namespace tamberline {
namespace {

class TrayMenuTest : public testing::Test {
protected:
  TrayMenu menu{{{"Open", [this] { ++opened; }}, {"Quit", [this] { ++quitted; }}}};
  int opened = 0;
  int quitted = 0;
};

TEST_F(TrayMenuTest, HasOneLevel) {
  TrayMenuLayout layout;
  menu.GetLayout(0, 1, {}, layout);
  EXPECT_EQ(layout.children.size(), 2);
  menu.GetLayout(0, 0, {}, layout);
  EXPECT_TRUE(layout.children.isEmpty());
  menu.GetLayout(2, -1, {}, layout);
  EXPECT_EQ(layout.id, 2);
  EXPECT_EQ(layout.properties.value("label"), "Quit");
  EXPECT_TRUE(layout.children.isEmpty());
}

TEST_F(TrayMenuTest, GivesThePropertiesThatAreAskedFor) {
  EXPECT_EQ(menu.GetGroupProperties({}, {}).size(), 3);
  const TrayMenuItems one = menu.GetGroupProperties({2, 9}, {});
  ASSERT_EQ(one.size(), 1);
  EXPECT_EQ(one[0].id, 2);
  EXPECT_EQ(menu.GetProperty(1, "label").variant(), "Open");
  EXPECT_EQ(menu.GetProperty(9, "label").variant(), "");
}

/// A parameter whose type the bus library cannot look up by its name makes the method unknown to
/// hosts.
TEST_F(TrayMenuTest, HasParametersThatTheBusLibraryKnows) {
  QDBusMetaType::typeToSignature(QMetaType::fromType<int>()); // registers the library's own types
  const QMetaObject& menuType = TrayMenu::staticMetaObject;
  int parameterCount = 0;
  for (int index = menuType.methodOffset(); index < menuType.methodCount(); ++index) {
    const QMetaMethod method = menuType.method(index);
    for (const QByteArray& typeName : method.parameterTypes()) {
      const QByteArray plainName = typeName.endsWith('&') ? typeName.chopped(1) : typeName;
      EXPECT_NE(QDBusMetaType::typeToSignature(QMetaType::fromName(plainName)), nullptr)
          << method.methodSignature().constData() << " has " << plainName.constData();
      ++parameterCount;
    }
  }
  EXPECT_GT(parameterCount, 10);
}

TEST_F(TrayMenuTest, ReportsUnknownIdentifiers) {
  const QDBusVariant data{QVariant(QString())};
  const TrayMenuEvents events = {{1, "clicked", data, 0}, {7, "clicked", data, 0}};
  EXPECT_EQ(menu.EventGroup(events), QList<int>{7});
  EXPECT_EQ(opened, 1);
  EXPECT_EQ(quitted, 0);
  QList<int> errors;
  EXPECT_TRUE(menu.AboutToShowGroup({0, 1, -1}, errors).isEmpty());
  EXPECT_EQ(errors, QList<int>{-1});
  EXPECT_FALSE(menu.AboutToShow(0));
}

} // namespace
} // namespace tamberline
