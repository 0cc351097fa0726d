# Every outside library, in one place; docs/architecture.md says why each is here.
find_package(Threads REQUIRED)
find_package(nlohmann_json 3.11 REQUIRED)
find_package(pugixml REQUIRED)
find_package(Qt6 6.4 REQUIRED COMPONENTS Core Gui Network PdfWidgets Qml Quick Test Widgets)
find_package(QCoro6 REQUIRED COMPONENTS Coro)
if(UNIX AND NOT APPLE)
  find_package(Qt6 6.4 REQUIRED COMPONENTS DBus)
endif()
