#pragma once

#include "panel/panel_context.h"
#include "support/hand_driven_queue.h"
#include "ui/qml_warnings.h"

#include <QQuickItem>
#include <QQuickView>
#include <QVariantMap>
#include <gtest/gtest.h>

#include <memory>

namespace tamberline {

/// A single component of the panel in a window. Any QML warning fails the test.
class LoneComponent : public testing::Test {
protected:
  ~LoneComponent() override { EXPECT_EQ(warnings.text(), ""); }

  /// Shows `name`.qml with these properties and this width, at its implicit height.
  void showComponent(const QString& name, const QVariantMap& properties, int width,
                     double fontScale = 1);
  void draw();

  QQuickItem& item() { return *view->rootObject(); }

  QmlWarnings warnings;
  std::shared_ptr<HandDrivenQueue> queue = std::make_shared<HandDrivenQueue>();
  std::unique_ptr<PanelContext> context;
  std::unique_ptr<QQuickView> view;
};

} // namespace tamberline
