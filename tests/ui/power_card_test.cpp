#include "panel/panel_context.h"
#include "panel/row_variants.h"
#include "support/fake_tools.h"
#include "support/hand_driven_queue.h"
#include "support/simulated_event_source.h"
#include "ui/accessible_objects.h"
#include "ui/layout_check.h"
#include "ui/qml_warnings.h"

#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>
#include <gtest/gtest.h>

// Registers the types of the QML module.
extern void qml_register_types_Tamberline();

namespace tamberline {
namespace {

/// The card of the adapter and the battery, alone in a window.
class PowerCardOnItsOwn : public testing::Test {
protected:
  ~PowerCardOnItsOwn() override { EXPECT_EQ(warnings.text(), ""); }

  void show(const ChargerInfo& charger, const std::optional<BatteryInfo>& battery,
            double fontScale = 1) {
    view.reset();
    context = std::make_unique<PanelContext>(PanelContext::Outside{
        .scanner = PortScanner::create(
            {.acquisition = {.tools = std::make_shared<FakeTools>(), .queue = queue},
             .events = std::make_shared<SimulatedEventSource>()}),
        .queue = queue,
        .fontScale = fontScale});
    qml_register_types_Tamberline();
    view = std::make_unique<QQuickView>();
    view->engine()->addImportPath(QStringLiteral(":/qml"));
    context->attachTo(*view->engine());
    view->setResizeMode(QQuickView::SizeRootObjectToView);
    view->setInitialProperties({{"card", powerCardVariant(powerCard(charger, battery))}});
    view->setSource(QUrl(QStringLiteral("qrc:/qml/Tamberline/PowerCard.qml")));
    ASSERT_NE(view->rootObject(), nullptr);
    view->setWidth(376);
    view->show();
    draw();
    view->setHeight(qCeil(view->rootObject()->implicitHeight()));
    draw();
    expectNoFaults();
  }

  void draw() {
    QCoreApplication::processEvents();
    QEvent update(QEvent::UpdateRequest);
    QCoreApplication::sendEvent(view.get(), &update);
  }

  void expectNoFaults() {
    for (const std::string& fault : layoutFaults(*view)) {
      ADD_FAILURE() << fault;
    }
  }

  bool isTextShown(const QString& text) {
    return findAccessible(*view, QAccessible::StaticText, text).has_value();
  }

  QColor colorOf(const QString& text) {
    return findAccessible(*view, QAccessible::StaticText, text)
        .value()
        .item()
        ->property("color")
        .value<QColor>();
  }

  QColor ink(Color color) {
    return context->theme()->property("inks").toMap().value(colorName(color)).value<QColor>();
  }

  ChargerInfo adapter{.name = "96W USB-C Power Adapter",
                      .ratedWatts = 96,
                      .currentWatts = 58,
                      .isConnected = true,
                      .isCharging = true};

  QmlWarnings warnings;
  std::shared_ptr<HandDrivenQueue> queue = std::make_shared<HandDrivenQueue>();
  std::unique_ptr<PanelContext> context;
  std::unique_ptr<QQuickView> view;
};

TEST_F(PowerCardOnItsOwn, TellsWhatTheAdapterGives) {
  adapter.connectsViaUSBC = true;
  adapter.portLabel = "Thunderbolt Port 3";
  show(adapter, std::nullopt);
  for (const char* text : {"96W USB-C Power Adapter", "96W rated",
                           "USB-C / Thunderbolt · Thunderbolt Port 3", "rated max 96W max"}) {
    EXPECT_TRUE(isTextShown(text)) << text;
  }
  EXPECT_FALSE(isTextShown("Battery"));
}

TEST_F(PowerCardOnItsOwn, ShowsTheLevelOfTheBatteryInItsColor) {
  struct Row {
    BatteryInfo battery;
    const char* level;
    Color color;
  };
  adapter.isCharging = false;
  for (const Row& row :
       {Row{{.stateOfCharge = 5}, "5%", Color::red}, Row{{.stateOfCharge = 20}, "20%", Color::red},
        Row{{.stateOfCharge = 46}, "46%", Color::primary},
        Row{{.stateOfCharge = 82, .isCharging = true}, "82%", Color::green},
        Row{{.stateOfCharge = 100, .isFullyCharged = true}, "100%", Color::green}}) {
    show(adapter, row.battery);
    EXPECT_TRUE(isTextShown("Battery"));
    ASSERT_TRUE(isTextShown(row.level)) << row.level;
    EXPECT_EQ(colorOf(row.level).rgb(), ink(row.color).rgb()) << row.level;
  }
}

TEST_F(PowerCardOnItsOwn, ShowsTheHealthOfTheBattery) {
  show(adapter,
       BatteryInfo{
           .stateOfCharge = 72, .health = "Good", .maxCapacityPercent = "91%", .cycleCount = 120});
  for (const char* text : {"Health", "Good 91%", "Cycles", "120"}) {
    EXPECT_TRUE(isTextShown(text)) << text;
  }
}

TEST_F(PowerCardOnItsOwn, HasRoomForLongTexts) {
  adapter.name = "140W Volta Gallium Nitride Travel Power Adapter With Long Cable";
  adapter.connectsViaUSBC = true;
  adapter.portLabel = "Thunderbolt Port 3";
  const BatteryInfo battery{.stateOfCharge = 72,
                            .health = "Service recommended by everybody who ever looked at it",
                            .maxCapacityPercent = "91%",
                            .cycleCount = 123456};
  show(adapter, battery);
  show(adapter, battery, 2);
}

TEST_F(PowerCardOnItsOwn, ShowsAnAdapterThatTellsNothing) {
  show({}, std::nullopt);
  EXPECT_TRUE(isTextShown("Power Adapter"));
  EXPECT_FALSE(isTextShown("96W rated"));
}

} // namespace
} // namespace tamberline
