#pragma once

#include "i18n/app_language.h"

#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>

namespace CLI {
class App;
}

namespace tamberline {

/// Thrown by what an ArgumentParser calls; says what is wrong with an argument.
class WrongArgument : public std::runtime_error {
public:
  using std::runtime_error::runtime_error;
};

/// Reads the arguments of a program for the terminal. Of an option that is given twice the last
/// value counts. CLI11 does the work behind this, and takes so long to compile that one source
/// includes it.
class ArgumentParser {
public:
  using TakeValue = std::function<void(const std::string&)>;

  explicit ArgumentParser(const std::string& program);
  ArgumentParser(const ArgumentParser&) = delete;
  ArgumentParser& operator=(const ArgumentParser&) = delete;
  ~ArgumentParser();

  /// The names as in "-h,--help".
  void addFlag(const std::string& names, bool& isGiven);
  /// An option with a value, as in "--reports"; without dashes, an argument by its place.
  void addOption(const std::string& name, const TakeValue& takeValue);
  void addLanguageOption(std::optional<AppLanguage>& language);
  /// Called when everything has been taken, for what only the arguments together tell.
  void checkAtEnd(std::function<void()> check);

  /// False when the arguments make no sense, after saying why on standard error.
  bool parse(int argc, char** argv);

private:
  std::unique_ptr<CLI::App> app_;
};

} // namespace tamberline
