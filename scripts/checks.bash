# shellcheck shell=bash
# The checks of scripts/test: a table, and a function for each check, which fails if the check fails.

least_line_coverage=95

# Prints a line for each check, in the order in which they run: its name, the checks that it needs
# (separated by commas, or a dash) and its purpose. The function check_NAME, with underscores
# instead of dashes, runs the check NAME.
list_checks() {
  cat <<'CHECKS'
format - the layout of C++ (clang-format)
scripts - shell scripts (shellcheck)
layers - what layers include, and the picture of them
desktop-entries - desktop entries and metainfo
release - versions, notes and the source archive
figures - the table of figures in docs/performance.md
build-dev - the everyday build
quick build-dev its tests, as with --quick
build-coverage - the build with g++ that counts lines
tests build-coverage the tests with g++
coverage-lines tests that those run enough of the lines
qmllint build-coverage QML against the types of that build
build-asan - the build with clang and the address and undefined-behaviour sanitizers
asan build-asan the tests under these sanitizers
tidy build-asan analysis of the sources (clang-tidy)
cppcheck - analysis of the sources (cppcheck)
build-tsan - the build with the thread sanitizer
tsan build-tsan the tests under the thread sanitizer
fuzz - each fuzz target for 12 seconds
build-bench - the optimised build with the benchmarks and the manuals
whole-sets build-bench every pair of faults, and all random machines
hardening build-bench hardened programs
privileges build-bench least privilege
vm build-bench plugging in a virtual machine
desktops build-bench desktops: Wayland, and X11 with a tray
technicians build-bench the recipes for technicians, and the figures for Prometheus
manuals build-bench the manuals
package build-bench the Debian package, in a clean root
CHECKS
}

# Prints the checks that leave the processors idle most of the time and only read what others built.
# They run together, after all others.
list_light_checks() { printf '%s\n' whole-sets hardening privileges vm desktops manuals package; }

# Prints the project's files that match, including new ones; fails if there are none.
project_files() {
  git ls-files --cached --others --exclude-standard -- "$@" | grep .
}

build() {
  cmake --preset "$1" >/dev/null && cmake --build --preset "$1"
}

# Runs tests with a locale that has a decimal comma, to check that numbers do not depend on it. Only
# for the builds with g++ without sanitizers: the C library never frees what it caches for a path to
# locales.
test_with_locale() {
  local locales=$PWD/build/locales
  if [[ ! -d $locales/de_DE.UTF-8 ]]; then
    mkdir -p "$locales"
    localedef --inputfile=de_DE --charmap=UTF-8 "$locales/de_DE.UTF-8"
  fi
  LOCPATH=$locales ctest --preset "$1" --parallel "$(nproc)"
}

check_format() { project_files '*.cpp' '*.h' | xargs clang-format --dry-run -Werror; }

check_scripts() {
  project_files scripts .ci benchmarks packaging |
    xargs grep -lE '^#!.*\bbash$|^# shellcheck shell=bash$' | xargs shellcheck --external-sources
}

check_layers() { scripts/check-layers; }

check_desktop_entries() {
  desktop-file-validate packaging/linux/*.desktop &&
    appstreamcli validate --no-net packaging/linux/*.metainfo.xml
}

check_release() { tests/release/check_release.py; }

check_figures() { tests/benchmarks/check_figures.py; }

check_build_dev() { build dev; }

check_quick() { test_with_locale dev; }

check_build_coverage() { build coverage; }

check_tests() { test_with_locale coverage; }

# Ignores parse errors of branches: their counts do not add up if a thread was still running when
# its process ended.
check_coverage_lines() {
  gcovr --root . --filter src/ --exclude-throw-branches --gcov-ignore-parse-errors \
    --print-summary --fail-under-line "$least_line_coverage" build/coverage
}

# Uses the type descriptions that the build generated.
check_qmllint() {
  local modules=build/coverage/qml
  find "$modules" -name '*.qml' -print0 |
    xargs -0 "$(qtpaths6 --query QT_HOST_BINS)/qmllint" --unused-imports warning -I "$modules"
}

check_build_asan() { build asan; }

check_asan() { ctest --preset asan --parallel "$(nproc)"; }

# tidy BUILD_FOLDER CHECKS FILES: runs clang-tidy on these files of a build and prints its warnings.
tidy() {
  local build_folder=$1 checks=$2 files=$3
  local log=$build_folder/clang-tidy.log
  if ! run-clang-tidy -quiet -p "$build_folder" -j "$(nproc)" -checks="$checks" \
    -header-filter="^$PWD/(src|tools)/" "$files" >"$log" 2>&1; then
    grep -vE '^(clang-tidy|[0-9]+ warnings? )' "$log"
    return 1
  fi
  grep -q '^clang-tidy' "$log" # fails if no file was checked
}

# Most rules process everything that a file includes, which takes nearly all of the time, so they
# run on the unity sources of the build with the sanitizers. The rules in `by_file` run on each file
# separately, because they only examine the main file or forbid including a source. Without
# NewDeleteLeaks: it does not know that Qt's calls take ownership; the address sanitizer finds leaks.
# Tests and benchmarks are not checked: the macros of their libraries violate half of the rules.
check_tidy() {
  local by_file=(bugprone-suspicious-include 'clang-analyzer-*' 'clang-diagnostic-*' misc-unused-alias-decls)
  local sources="$PWD/(src|tools)/.*" result=0
  cmake --preset clang >/dev/null
  tidy build/clang "-*$(printf ',%s' "${by_file[@]}"),-clang-analyzer-cplusplus.NewDeleteLeaks" "$sources" || result=1
  tidy build/asan "$(printf ',-%s' "${by_file[@]}")" \
    "$sources|$PWD/build/asan/((src|tools)/(?!.*qml).*|tests/macos_stand_in/.*/tamberline_[a-z_]+\.dir)/Unity/.*" ||
    result=1
  return "$result"
}

# Without these definitions of Qt's macros cppcheck skips the panel's classes.
check_cppcheck() {
  cppcheck --quiet --error-exitcode=1 --enable=warning,performance,portability -j "$(nproc)" \
    --language=c++ --std=c++20 --suppressions-list=.cppcheck-suppressions \
    --library=qt -DQML_ANONYMOUS= '-DQML_ATTACHED(type)=' -DQML_ELEMENT= '-DQML_NAMED_ELEMENT(name)=' \
    -DQML_SINGLETON= '-DQML_VALUE_TYPE(name)=' -I src src tools
}

check_build_tsan() { build tsan; }

# Turns off address space randomisation where possible, because it can leave no room for the thread
# sanitizer. Some containers do not allow turning it off.
check_tsan() {
  local fixed_layout=(setarch --addr-no-randomize)
  "${fixed_layout[@]}" true 2>/dev/null || fixed_layout=()
  TSAN_OPTIONS="suppressions=$PWD/tests/thread_sanitizer_suppressions.txt" \
    "${fixed_layout[@]}" ctest --preset tsan --parallel "$(nproc)"
}

check_fuzz() { scripts/fuzz --seconds 12; }

check_build_bench() {
  build bench && cmake --build --preset bench --target tool_faults_test random_machines_test
}

# The build with the sanitizers runs only a fifth of these.
check_whole_sets() {
  build/bench/tests/scanner/tool_faults_test --gtest_brief=1 &&
    build/bench/tests/tools/random_machines_test --gtest_brief=1
}

check_hardening() { scripts/check-hardening build/bench; }

check_privileges() { tests/privileges/check_privileges.py build/bench; }

check_vm() { scripts/test-vm build/bench/tools/tamberline-inspect/tamberline-inspect; }

check_desktops() { scripts/test-desktops build/bench; }

# Prometheus and its node exporter run on the loopback while this does.
check_technicians() {
  cmake --build --preset bench --target tamberline-inspect write_fleet_metrics &&
    tests/technicians/run_recipes.py build/bench &&
    tests/metrics/check_metrics.py build/bench &&
    tests/metrics/check_units.py build/bench
}

check_manuals() { tests/manual/check_manuals.py build/bench; }

check_package() { scripts/test-package build/bench; }
