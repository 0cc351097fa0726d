# Every outside library, in one place; docs/architecture.md says why each is here.
find_package(Threads REQUIRED)
find_package(nlohmann_json 3.11 REQUIRED)
find_package(pugixml REQUIRED)
