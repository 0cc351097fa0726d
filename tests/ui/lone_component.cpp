#include "ui/lone_component.h"

#include "panel/qml_modules.h"
#include "support/fake_machine.h"
#include "support/simulated_event_source.h"

#include <QCoreApplication>
#include <QEvent>
#include <QQmlEngine>
#include <QUrl>

namespace tamberline {

void LoneComponent::showComponent(const QString& name, const QVariantMap& properties, int width,
                                  double fontScale) {
  view.reset();
  context = std::make_unique<PanelContext>(PanelContext::Outside{
      .scanner = PortScanner::create(
          {.acquisition = {.machine = std::make_shared<FakeMachine>(), .queue = queue},
           .events = std::make_shared<SimulatedEventSource>()}),
      .queue = queue,
      .fontScale = fontScale});
  view = std::make_unique<QQuickView>();
  useQmlModules(*view->engine());
  context->attachTo(*view->engine());
  view->setResizeMode(QQuickView::SizeRootObjectToView);
  view->setInitialProperties(properties);
  view->setSource(QUrl(QStringLiteral("qrc:/qml/Tamberline/%1.qml").arg(name)));
  ASSERT_NE(view->rootObject(), nullptr);
  view->setWidth(width);
  view->show();
  draw();
  view->setHeight(qCeil(view->rootObject()->implicitHeight()));
  draw();
}

void LoneComponent::draw() {
  QCoreApplication::processEvents();
  QEvent update(QEvent::UpdateRequest);
  QCoreApplication::sendEvent(view.get(), &update);
}

} // namespace tamberline
