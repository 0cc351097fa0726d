# Every outside library, in one place; docs/architecture.md says why each is here.
find_package(Threads REQUIRED)
